#include "tables_graphs/diagram.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "platform/text/number_text.h"

namespace zel {
namespace {

double along(const ValueRange& range, double share) { return range.low + range.width() * share; }

double share_of(const ValueRange& range, double value) {
    return (value - range.low) / range.width();
}

ValueRange part(const ValueRange& whole, const ValueRange& shares) {
    return {along(whole, shares.low), along(whole, shares.high)};
}

/// The point between `a` and `b` that is nearest to `p`.
CanvasPoint nearest_between(const CanvasPoint& a, const CanvasPoint& b, const CanvasPoint& p) {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    const double length = dx * dx + dy * dy;
    if (length == 0) return a;
    const double share = std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0);
    return {a.x + share * dx, a.y + share * dy};
}

/// With as many digits as tell two values of the range apart on a screen.
std::string value_text(double value, const ValueRange& range, DecimalSeparator separator) {
    constexpr double parts_of_a_screen = 500;
    const double least = std::abs(range.width()) / parts_of_a_screen;
    const int decimals = std::clamp(static_cast<int>(std::ceil(-std::log10(least))), 0, 6);
    std::string mask = "0";
    if (decimals > 0) mask += "." + std::string(static_cast<std::size_t>(decimals), '0');
    return masked(value, mask, separator);
}

}  // namespace

double round_step(double range, int most) {
    const double least = range / most;
    const double power = std::pow(10, std::floor(std::log10(least)));
    for (const double step : {1.0, 2.0, 5.0})
        if (step * power >= least * (1 - 1e-9)) return step * power;
    return 10 * power;
}

ValueRange round_range(ValueRange range) {
    if (!(range.width() > 0)) range = {range.low - 1, range.low + 1};
    const double step = round_step(range.width(), most_steps);
    constexpr double noise = 1e-9;  // of a step
    return {std::floor(range.low / step + noise) * step,
            std::ceil(range.high / step - noise) * step};
}

CanvasPoint DiagramFrame::place_of(const CanvasPoint& value, bool on_right_axis) const {
    return {along({plot.left, plot.right}, share_of(x, value.x)),
            along({plot.bottom, plot.top}, share_of(on_right_axis ? right : y, value.y))};
}

CanvasPoint DiagramFrame::value_at(const CanvasPoint& place, bool on_right_axis) const {
    return {along(x, share_of({plot.left, plot.right}, place.x)),
            along(on_right_axis ? right : y, share_of({plot.bottom, plot.top}, place.y))};
}

DiagramFrame frame_in(const CanvasBox& plot, const Diagram& diagram, const DiagramView& view) {
    const ValueRange& right = diagram.right ? diagram.right->range : diagram.y.range;
    return {plot, part(diagram.x.range, view.zoom.x), part(diagram.y.range, view.zoom.y),
            part(right, view.zoom.y)};
}

std::optional<DiagramReading> read_at(const Diagram& diagram, const DiagramView& view,
                                      const DiagramFrame& frame, const CanvasPoint& place,
                                      double reach) {
    std::optional<DiagramReading> found;
    double least = reach;
    for (std::size_t i = 0; i < diagram.curves.size(); ++i) {
        const DiagramCurve& curve = diagram.curves[i];
        if (!view.shows(i)) continue;
        for (const auto& stretch : curve.stretches)
            for (std::size_t k = 0; k < stretch.size(); ++k) {
                const CanvasPoint to = frame.place_of(stretch[k], curve.on_right_axis);
                const CanvasPoint from =
                    k == 0 ? to : frame.place_of(stretch[k - 1], curve.on_right_axis);
                const CanvasPoint near = nearest_between(from, to, place);
                const double distance = std::hypot(near.x - place.x, near.y - place.y);
                if (distance > least || !frame.plot.holds(near)) continue;
                least = distance;
                found = {i, frame.value_at(near, curve.on_right_axis), near};
            }
    }
    return found;
}

std::string reading_text(const Diagram& diagram, const DiagramFrame& frame,
                         const CanvasPoint& place, const std::optional<DiagramReading>& reading,
                         DecimalSeparator separator) {
    const auto told = [&](const CanvasPoint& value, bool on_right) {
        const DiagramAxis& axis = on_right ? *diagram.right : diagram.y;
        return value_text(value.x, frame.x, separator) + " " + diagram.x.unit + ", " +
               value_text(value.y, on_right ? frame.right : frame.y, separator) + " " + axis.unit;
    };
    if (reading) {
        const DiagramCurve& curve = diagram.curves[reading->curve];
        return curve.name + " :  " + told(reading->value, curve.on_right_axis);
    }
    std::string text = told(frame.value_at(place, false), false);
    if (diagram.right)
        text += ", " + value_text(frame.value_at(place, true).y, frame.right, separator) + " " +
                diagram.right->unit;
    return text;
}

}  // namespace zel
