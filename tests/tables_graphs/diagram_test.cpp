#include "tables_graphs/diagram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

#include "fakes/memory_canvas.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/transient_cases.h"
#include "platform/text/number_text.h"
#include "tables_graphs/steady_diagram.h"
#include "tables_graphs/transient_diagram.h"

namespace zel {
namespace {

const Locale locale{LangId::English, DecimalSeparator::Point};

TEST(RoundStep, is_the_smallest_of_1_2_and_5_that_parts_a_range_into_so_many) {
    std::mt19937 random(7);
    for (int i = 0; i < 500; ++i) {
        const double range = std::pow(10, std::uniform_real_distribution(-3.0, 6.0)(random));
        const double step = round_step(range, 10);
        const double digits = step / std::pow(10, std::floor(std::log10(step) + 1e-9));
        EXPECT_TRUE(std::abs(digits - 1) < 1e-6 || std::abs(digits - 2) < 1e-6 ||
                    std::abs(digits - 5) < 1e-6)
            << step;
        EXPECT_LE(range / step, 10 * (1 + 1e-6)) << range;
        EXPECT_GT(range / step, 4 * (1 - 1e-6)) << range;
    }
    EXPECT_EQ(round_range({23, 81}), (ValueRange{20, 90}));
    EXPECT_EQ(round_range({20, 80}), (ValueRange{20, 80}));
    EXPECT_EQ(round_range({7, 7}), (ValueRange{6, 8}));
}

/// Currents of two methods over the temperature for two winds, with a gap in one of them.
ParameterTable two_methods() {
    ParameterTable table;
    table.methods = {Method::TB601, Method::TB207};
    table.winds = {0.6, 3};
    for (int step = 0; step <= 60; ++step) {
        table.steps.push_back(20 + step);
        for (const double wind : table.winds)
            for (const double share : {1.0, 0.9})
                table.cells.emplace_back(share * (100 + 400 * wind) * std::sqrt(1 + step));
    }
    table.cells[4 * 30] = std::nullopt;
    return table;
}

CalcCase with_range() {
    CalcCase c = twin_264_34();
    c.Temp_min_db = typed(20);
    c.Temp_max_db = typed(80);
    return c;
}

TEST(SteadyDiagram, has_a_curve_for_each_method_and_wind_and_gaps_where_there_is_no_result) {
    const ParameterTable table = two_methods();
    const Diagram diagram = steady_diagram(table, with_range(), locale);
    ASSERT_EQ(diagram.curves.size(), 4U);
    EXPECT_EQ(diagram.curves[0].name, "Cigre TB 207, 0.6 m/s");
    EXPECT_EQ(diagram.curves[2].name, "Cigre TB 601, 0.6 m/s");
    ASSERT_EQ(diagram.curves[2].stretches.size(), 2U);
    EXPECT_EQ(diagram.curves[2].stretches[0].size(), 30U);
    EXPECT_EQ(diagram.curves[2].stretches[1].front(),
              (CanvasPoint{table.at(31, 0, 0).value(), 51}));
    for (const DiagramCurve& curve : diagram.curves)
        for (const auto& stretch : curve.stretches)
            for (const CanvasPoint& p : stretch) {
                EXPECT_GE(p.x, diagram.x.range.low);
                EXPECT_LE(p.x, diagram.x.range.high);
            }
    EXPECT_EQ(diagram.y.range, (ValueRange{20, 80}));
    EXPECT_NE(diagram.curves[0].look, diagram.curves[2].look);
    EXPECT_NE(diagram.curves[0].sign, diagram.curves[1].sign);
}

TEST(SteadyDiagram, holds_the_range_of_the_current_as_the_bundle_carries_it) {
    CalcCase c = with_range();
    c.Strom_min_db = typed(400);
    c.Strom_max_db = typed(6000);
    EXPECT_EQ(steady_diagram(two_methods(), c, locale).x.range, (ValueRange{0, 12000}));
    c.Stromstaerkebuendel_Merker_db = true;
    EXPECT_EQ(steady_diagram(two_methods(), c, locale).x.range, (ValueRange{0, 11000}));
}

/// No text of a row reaches into the next one.
void expect_room_for_texts(const MemoryCanvas& canvas, const CanvasBox& area) {
    for (const auto& text : canvas.texts) {
        const double end = text.x + canvas.text_width(text.text, text.font);
        EXPECT_LE(end, area.right) << text.text;
        for (const auto& other : canvas.texts)
            EXPECT_FALSE(other.y == text.y && other.x > text.x && other.x < end)
                << text.text << " | " << other.text;
    }
}

TEST(Diagram, finds_room_for_a_long_name_or_cuts_it) {
    CalcCase c = with_range();
    for (const std::size_t letters : {5U, 40U, 400U}) {
        c.Bezeichnung1_db.clear();
        while (c.Bezeichnung1_db.size() < 2 * letters) c.Bezeichnung1_db += "\u00e4";
        MemoryCanvas canvas;
        draw(canvas, diagram_sheet, steady_diagram(two_methods(), c, locale), {}, locale.separator);
        expect_room_for_texts(canvas, diagram_sheet);
        const std::string& name = canvas.texts.at(1).text;
        EXPECT_EQ(name.find(c.Bezeichnung1_db) == std::string::npos, letters == 400) << name;
        EXPECT_EQ(name.find("\u00e4...") != std::string::npos, letters == 400) << name;
    }
}

/// Where a text stands that is centred on an x value or a y value.
void expect_labels_at_their_values(const MemoryCanvas& canvas, const DiagramFrame& frame) {
    int labels = 0;
    for (const auto& [x, y, text, font, colour] : canvas.texts) {
        const auto number = parse_number(text, DecimalSeparator::Point);
        if (!number) continue;
        const double middle = x + canvas.text_width(text, font) / 2;
        if (y > frame.plot.bottom) {
            EXPECT_NEAR(frame.place_of({*number, 0}, false).x, middle, 1);
        } else if (x < frame.plot.left) {
            EXPECT_NEAR(frame.place_of({0, *number}, false).y, y + 1.15 * 8 * 22 / 2, 1);
        }
        ++labels;
    }
    EXPECT_GE(labels, 8);
}

TEST(Diagram, writes_each_value_where_it_stands_at_any_size_and_zoom) {
    const Diagram diagram = steady_diagram(two_methods(), with_range(), locale);
    DiagramView view;
    for (const CanvasBox& area : {diagram_sheet, CanvasBox{500, 300, 9000, 7000}})
        for (const ValueRange& shares : {ValueRange{}, ValueRange{0.31, 0.44}}) {
            view.zoom = {shares, shares};
            MemoryCanvas canvas;
            draw(canvas, area, diagram, view, locale.separator);
            const DiagramFrame frame = frame_of(canvas, area, diagram, view);
            expect_labels_at_their_values(canvas, frame);
            for (const auto& path : canvas.paths)
                if (path.points.size() > 20) {
                    EXPECT_EQ(path.inside, frame.plot);
                }
            const CanvasPoint place = {frame.plot.left + 321, frame.plot.top + 123};
            const CanvasPoint back = frame.place_of(frame.value_at(place, false), false);
            EXPECT_NEAR(back.x, place.x, 1e-6);
            EXPECT_NEAR(back.y, place.y, 1e-6);
        }
}

TEST(Diagram, tells_the_size_of_its_auxiliary_lines_only_where_they_are_drawn) {
    const Diagram diagram = steady_diagram(two_methods(), with_range(), locale);
    const auto told = [&](bool lines) {
        DiagramView view;
        view.auxiliary_lines = lines;
        MemoryCanvas canvas;
        draw(canvas, diagram_sheet, diagram, view, locale.separator);
        std::vector<std::string> units;
        for (const auto& written : canvas.texts)
            if (written.text.starts_with("1 auxiliary")) units.push_back(written.text);
        return units;
    };
    EXPECT_EQ(told(true), (std::vector<std::string>{"1 auxiliary line unit x axis = 2000 A",
                                                    "1 auxiliary line unit y axis = 10 °C"}));
    EXPECT_TRUE(told(false).empty());
}

TEST(Diagram, reads_the_nearest_shown_curve) {
    const ParameterTable table = two_methods();
    const Diagram diagram = steady_diagram(table, with_range(), locale);
    MemoryCanvas canvas;
    DiagramView view;
    const DiagramFrame frame = frame_of(canvas, diagram_sheet, diagram, view);
    const CanvasPoint on_curve = {table.at(10, 1, 1).value(), 30};
    CanvasPoint mouse = frame.place_of(on_curve, false);
    mouse.y += 20;
    const auto reading = read_at(diagram, view, frame, mouse, 100);
    ASSERT_TRUE(reading);
    EXPECT_EQ(diagram.curves[reading->curve].name, "Cigre TB 207, 3 m/s");
    EXPECT_NEAR(reading->value.y, 30, 0.3);
    EXPECT_EQ(reading_text(diagram, frame, mouse, reading, locale.separator).substr(0, 23),
              "Cigre TB 207, 3 m/s :  ");
    view.hidden = {false, true};
    EXPECT_FALSE(read_at(diagram, view, frame, mouse, 100));
}

class TransientDiagramTest : public testing::Test {
protected:
    TransientDiagramTest() {
        Zustand16& rows = run.rows;
        rows[0] = temperature_row(550, 20, 0);
        rows[1] = current_row(70, 10, 0);
        rows[2] = time_row(900, 80);
        EXPECT_EQ(run.run(), TransientEnd::Completed);
        series = temperature_series(rows, run.input, run.params).value();
    }
    [[nodiscard]] TransientCourse course() const { return {c, run.input.start, run.rows, series}; }

    CalcCase c = with_masses(twin_264_34());
    Tb207Transient run{c};
    std::vector<RowSeries> series;
};

TEST_F(TransientDiagramTest, draws_the_points_of_the_series_and_marks_each_change) {
    const Diagram diagram = transient_diagram(course(), locale).value();
    MemoryCanvas canvas;
    DiagramView view;
    draw(canvas, diagram_sheet, diagram, view, locale.separator);
    const DiagramFrame frame = frame_of(canvas, diagram_sheet, diagram, view);
    std::vector<CanvasPoint> drawn;
    for (const auto& path : canvas.paths)
        if (path.pen.style == LineStyle::Solid)
            for (const CanvasPoint& p : path.points) drawn.push_back(frame.value_at(p, false));
    std::vector<SeriesPoint> points;
    for (const RowSeries& row : series)
        for (const SeriesPoint& p : row.points)
            if (points.empty() || points.back().time != p.time ||
                points.back().temperature != p.temperature)
                points.push_back(p);
    ASSERT_EQ(drawn.size(), points.size());
    // The layout cuts half a hundredth off below and at the end of the time.
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_NEAR(drawn[i].x, points[i].time / 60, 0.0051 * diagram.x.range.high);
        EXPECT_NEAR(drawn[i].y, points[i].temperature, 0.0051 * diagram.y.range.width());
    }
    ASSERT_EQ(diagram.marks.size(), 3U);
    EXPECT_EQ(diagram.marks[1].x, 20);
    EXPECT_EQ(diagram.marks[2].x, 30);
    for (const DiagramMark& mark : diagram.marks) {
        const double x = frame.place_of({mark.x, 0}, false).x;
        EXPECT_TRUE(std::any_of(canvas.lines.begin(), canvas.lines.end(), [&](const auto& line) {
            return line.pen.style == LineStyle::Dashes && line.x1 == x && line.x2 == x;
        })) << mark.text;
    }
}

/// Row 1 heats from below 60 °C, row 2 ends at 70 °C, row 3 at 80 °C.
TEST_F(TransientDiagramTest, tells_when_the_limit_is_exceeded) {
    const auto told = [&](std::optional<double> limit) {
        return course_text(course(), limit, locale);
    };
    EXPECT_EQ(told({}), told(500).substr(0, told({}).size()));
    EXPECT_THAT(told(500), testing::EndsWith("; 500 °C are not exceeded"));
    EXPECT_THAT(told(-50), testing::EndsWith("; above -50 °C from 0.0 min to the end"));
    EXPECT_THAT(told(75),
                testing::ContainsRegex("; above 75 °C from 3[0-9]\\.[0-9] min to the end"));
    const Diagram diagram = course_diagram(course(), 120, locale).value();
    EXPECT_EQ(diagram.legend.back().text, "Limit temperature 120 °C");
    for (const DiagramCurve& curve : diagram.curves)
        for (const auto& stretch : curve.stretches)
            for (const CanvasPoint& p : stretch) {
                const ValueRange& range =
                    curve.on_right_axis ? diagram.right->range : diagram.y.range;
                EXPECT_GT(p.y, range.low) << curve.name;
                EXPECT_LT(p.y, range.high) << curve.name;
            }
    EXPECT_EQ(course_diagram(course(), {}, locale)->curves.size(), 2U);
}

TEST_F(TransientDiagramTest, scales_by_the_extremes_of_the_rows) {
    const TransientScale scale = transient_scale(course());
    EXPECT_DOUBLE_EQ(scale.time, 10000 / TotalTime(run.rows));
    EXPECT_EQ(scale.TempMin, 10 * std::floor(run.input.start.temperature / 10));
    EXPECT_NEAR(scale.temperature, 8000 / (80 - scale.TempMin), 1e-9);
    run.rows[1].Merker = run.rows[2].Merker = row_unused;
    EXPECT_EQ(transient_scale(course()).CurrentMin, 0) << "a single level reaches to its double";
    EXPECT_EQ(transient_scale(course()).current, 8000.0 / (2 * 2 * 550));
    run.rows[0].Min = 0;
    EXPECT_FALSE(transient_diagram(course(), locale));
}

}  // namespace
}  // namespace zel
