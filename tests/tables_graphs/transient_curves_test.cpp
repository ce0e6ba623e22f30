#include "tables_graphs/transient_curves.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_canvas.h"

namespace zel {
namespace {

using testing::ElementsAre;
using Line = MemoryCanvas::Line;

constexpr Colour blue = 0xFF0000;

Line segment(PlotMode mode, double x1, double y1, double x2, double y2) {
    MemoryCanvas canvas;
    TS_Plot_Segment(canvas, mode, x1, y1, x2, y2, blue, LineStyle::Dashes);
    return canvas.lines.at(0);
}

TEST(PlotSegment, starts_at_the_origin_of_its_layout) {
    EXPECT_EQ(segment(PlotMode::Screen, 0, 100, 1000, 2000),
              (Line{650, 8100, 1650, 6200, {blue, LineStyle::Dashes, 1}}));
    for (const PlotMode mode : {PlotMode::Print, PlotMode::PrintAgain})
        EXPECT_EQ(segment(mode, 0, 100, 1000, 2000),
                  (Line{1200, 9500, 2200, 7600, {window_text, LineStyle::Dashes, 1}}));
}

TEST(PlotSegment, is_cut_off_at_the_frame) {
    // A level within 40 units of the base is drawn 40 above it.
    EXPECT_EQ(segment(PlotMode::Screen, 9949, 39, 9951, 40),
              (Line{10599, 8160, 10600, 8160, {blue, LineStyle::Dashes, 1}}));
    EXPECT_EQ(segment(PlotMode::Screen, 0, -500, 0, 41).y1, 8160);
    EXPECT_EQ(segment(PlotMode::Screen, 0, -500, 0, 41).y2, 8159);
    EXPECT_EQ(segment(PlotMode::Screen, 0, 7980, 0, 7981).y1, 220);
    EXPECT_EQ(segment(PlotMode::Screen, 0, 7979, 0, 7981).y1, 221);
    EXPECT_EQ(segment(PlotMode::Screen, 0, 7979, 0, 7981).y2, 220);
    EXPECT_EQ(segment(PlotMode::Print, 10001, 0, 0, 7981).x1, 11200);
    EXPECT_EQ(segment(PlotMode::Print, 10001, 0, 0, 7981).y1, 9560);
    EXPECT_EQ(segment(PlotMode::Print, 10001, 0, 0, 7981).y2, 1620);
}

TEST(PlotSegment, of_another_mode_draws_nothing) {
    MemoryCanvas canvas;
    TS_Plot_Segment(canvas, PlotMode{4}, 0, 0, 1, 1, red);
    EXPECT_TRUE(canvas.lines.empty());
}

TEST(TemperatureCurve, joins_the_points_of_each_row) {
    MemoryCanvas canvas;
    const std::vector<RowSeries> series = {
        {1, {{0, 50}, {10, 60}, {20, 65}}}, {2, {{20, 65}}}, {3, {{30, 70}, {40, 60}}}};
    TS_Temperature_Curve(canvas, PlotMode::Screen, series, {10, 100, 0, 40, 0}, blue);
    const Pen pen = {blue, LineStyle::Solid, 1};
    EXPECT_THAT(canvas.lines,
                ElementsAre(Line{650, 7200, 750, 6200, pen}, Line{750, 6200, 850, 5700, pen},
                            Line{950, 5200, 1050, 6200, pen}));
}

TEST(CurrentCurve, is_made_of_red_dotted_steps) {
    MemoryCanvas canvas;
    const std::vector<CurrentStep> steps = {{0, 0, 400}, {0, 100, 900}, {100, 150, 300}};
    TS_Current_Curve(canvas, PlotMode::Screen, steps, {10, 0, 5, 0, 200});
    const Pen pen = {red, LineStyle::Dots, 1};
    EXPECT_THAT(canvas.lines, ElementsAre(Line{650, 7200, 650, 7200, pen},      // the start
                                          Line{650, 4700, 1650, 4700, pen},     // row 1
                                          Line{1650, 4700, 1650, 7700, pen},    // down to
                                          Line{1650, 7700, 2150, 7700, pen}));  // row 2
}

}  // namespace
}  // namespace zel
