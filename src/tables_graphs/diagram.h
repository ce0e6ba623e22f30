#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "platform/canvas.h"
#include "platform/text/locale.h"
#include "platform/text/text.h"

// A diagram: results as curves, with axes, auxiliary lines, a header about the case and a legend.
// It is drawn once, on a canvas, for window, file and paper alike.

namespace zel {

/// 1, 2 or 5 times a power of ten: the smallest such step that parts `range` into at most `most`.
[[nodiscard]] double round_step(double range, int most);
inline constexpr int most_steps = 10;  // along an axis

struct ValueRange {
    double low = 0;
    double high = 1;

    [[nodiscard]] constexpr double width() const { return high - low; }
    friend bool operator==(const ValueRange&, const ValueRange&) = default;
};

/// `range` widened to whole steps of a round size; one of no width to a step around it.
[[nodiscard]] ValueRange round_range(ValueRange range);

/// How a curve looks: no colour or style alone tells it from the others.
struct CurveLook {
    Colour on_white = black;
    Colour on_black = white;
    LineStyle style = LineStyle::Solid;
    int width = 2;

    [[nodiscard]] constexpr Colour on(bool black_ground) const {
        return black_ground ? on_black : on_white;
    }
    friend bool operator==(const CurveLook&, const CurveLook&) = default;
};

/// A small sign on a curve, so that curves of one look are told apart.
enum class CurveSign : std::uint8_t { None, Circle, Square, Triangle, Diamond, Cross, Wedge };

struct DiagramAxis {
    std::string caption;  // with the unit
    std::string unit;
    std::string line_unit;  // what an auxiliary line is called: "1 auxiliary line unit x axis = "
    ValueRange range;
    std::string mask{};           // of its values; by their step where there is none
    std::string line_unit_end{};  // behind the size of an auxiliary line; the unit without one
};

struct DiagramCurve {
    std::string name;
    CurveLook look;
    CurveSign sign = CurveSign::None;
    bool on_right_axis = false;
    std::string tag{};    // written at the curve
    double tag_at = 0.5;  // share of the points of its first stretch before the tag
    /// In the units of its axes; between two stretches there is no result.
    std::vector<std::vector<CanvasPoint>> stretches;
    /// Draws the curve inside `Diagram::plot_frame` in the colour given; where there is none, the
    /// stretches are drawn.
    std::function<void(Canvas&, Colour)> plot{};
};

/// A line of the legend: what a look or a sign stands for.
struct LegendEntry {
    std::string text;
    std::optional<CurveLook> look{};
    CurveSign sign = CurveSign::None;
};

/// A vertical line at a value of the x axis.
struct DiagramMark {
    double x = 0;
    std::string text;  // on top of it
};

struct Diagram {
    std::string title;
    std::vector<std::string> header;  // about the case, column by column
    DiagramAxis x;
    DiagramAxis y;
    std::optional<DiagramAxis> right;
    std::vector<DiagramCurve> curves;
    std::vector<LegendEntry> legend;
    std::vector<DiagramMark> marks;
    CanvasBox plot_frame;
};

/// A part of the plot, in shares of its width and height from the lower left corner.
struct DiagramZoom {
    ValueRange x;
    ValueRange y;
};

/// What a person chooses in looking at a diagram.
struct DiagramView {
    bool auxiliary_lines = true;
    bool black_ground = false;
    std::vector<bool> hidden{};  // curves; those without an entry are shown
    DiagramZoom zoom{};

    [[nodiscard]] bool shows(std::size_t curve) const {
        return curve >= hidden.size() || !hidden[curve];
    }
};

/// The size of a diagram in a file: a sheet of A4 on its side.
inline constexpr CanvasBox diagram_sheet = {0, 0, 16838, 11906};

/// Where the plot stands on a canvas, and what its axes show.
struct DiagramFrame {
    CanvasBox plot;
    ValueRange x;
    ValueRange y;
    ValueRange right;  // as `y` where there is no right axis

    [[nodiscard]] CanvasPoint place_of(const CanvasPoint& value, bool on_right_axis) const;
    [[nodiscard]] CanvasPoint value_at(const CanvasPoint& place, bool on_right_axis) const;
};

[[nodiscard]] DiagramFrame frame_in(const CanvasBox& plot, const Diagram& diagram,
                                    const DiagramView& view);

/// The frame of a diagram that is drawn in `area`.
[[nodiscard]] DiagramFrame frame_of(const Canvas& canvas, const CanvasBox& area,
                                    const Diagram& diagram, const DiagramView& view);

void draw(Canvas& canvas, const CanvasBox& area, const Diagram& diagram, const DiagramView& view,
          DecimalSeparator separator);

/// A point of a curve.
struct DiagramReading {
    std::size_t curve = 0;
    CanvasPoint value;  // in the units of the curve's axes
    CanvasPoint place;
};

/// The point of the shown curves that is nearest to `place`, no further than `reach` twips.
[[nodiscard]] std::optional<DiagramReading> read_at(const Diagram& diagram, const DiagramView& view,
                                                    const DiagramFrame& frame,
                                                    const CanvasPoint& place, double reach);

/// The values under `place`, and those of the curve that is read there: "812 A, 64.3 °C".
[[nodiscard]] std::string reading_text(const Diagram& diagram, const DiagramFrame& frame,
                                       const CanvasPoint& place,
                                       const std::optional<DiagramReading>& reading,
                                       DecimalSeparator separator);

}  // namespace zel
