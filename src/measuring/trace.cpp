#include "measuring/trace.h"

#include <algorithm>
#include <vector>

#include "measuring/measuring_texts.h"

namespace zel::measuring {
namespace {

constexpr Font font = {8};
constexpr Colour frame = rgb(0xB0, 0xB0, 0xB0);
constexpr double gap = 60;       // twips, between lanes
constexpr double line_gap = 25;  // below a caption
constexpr int line_width = 2;
constexpr std::chrono::milliseconds least_span{60000};  // that is shown

/// A lane: what it shows, in which colour, and the least range of its axis.
struct Lane {
    Text caption;
    double (*value)(const MeasurementSample& sample);
    std::string (*text)(double value, DecimalSeparator separator);
    double least_range;
    Colour colour;
};

const Lane lanes[] = {
    {{"Windgeschwindigkeit", "Wind speed"},
     [](const MeasurementSample& s) { return s.Windgeschwindigkeit; },
     speed_text,
     1,
     rgb(0x1F, 0x6F, 0xB4)},
    {{"Windrichtung", "Wind direction"},
     [](const MeasurementSample& s) { return s.Windrichtung; },
     direction_text,
     10,
     rgb(0x2C, 0x8A, 0x3C)},
    {{"Lufttemperatur", "Air temperature"},
     [](const MeasurementSample& s) { return s.Lufttemperatur; },
     temperature_text,
     1,
     rgb(0xB0, 0x3A, 0x2E)},
    {{"Globalstrahlung", "Global radiation"},
     [](const MeasurementSample& s) { return static_cast<double>(s.Globalstrahlung); },
     [](double value, DecimalSeparator separator) {
         return masked(value, "###0", separator) + " W/qm";
     },
     10,
     rgb(0xC7, 0x7F, 0x0A)},
};

}  // namespace

void Trace::add(std::chrono::milliseconds at, const MeasurementSample& sample) {
    points_.push_back({at, sample, std::exchange(interrupted_, false)});
    while (at - points_.front().at > span) points_.pop_front();
}

void Trace::draw(Canvas& canvas, const CanvasBox& area, const Locale& locale) const {
    const double text_height = canvas.text_height(font);
    const double lane_height = area.height() / static_cast<double>(std::size(lanes));
    const std::chrono::duration<double> shown =
        points_.empty() ? least_span : std::max(least_span, points_.back().at - points_.front().at);
    for (std::size_t i = 0; i < std::size(lanes); ++i) {
        const Lane& lane = lanes[i];
        const double top = area.top + static_cast<double>(i) * lane_height;
        const CanvasBox plot = {area.left, top + text_height + line_gap, area.right,
                                top + lane_height - gap};
        canvas.text(plot.left, top, lane.caption.in(locale.lang), font, window_text);
        canvas.box(plot, {frame});
        if (points_.empty()) continue;
        const auto [least, greatest] = std::minmax_element(
            points_.begin(), points_.end(), [&](const Point& a, const Point& b) {
                return lane.value(a.sample) < lane.value(b.sample);
            });
        const double low = lane.value(least->sample);
        const double high = lane.value(greatest->sample);
        const std::string range =
            lane.text(low, locale.separator) + " … " + lane.text(high, locale.separator);
        canvas.text(plot.right - canvas.text_width(range, font), top, range, font, window_text);
        const double middle = (low + high) / 2;
        const double reach = std::max(high - low, lane.least_range) * 1.1;
        std::vector<CanvasPoint> path;
        const auto finish = [&] {
            canvas.path(path, {lane.colour, LineStyle::Solid, line_width});
            path.clear();
        };
        for (const Point& point : points_) {
            if (point.begins && !path.empty()) finish();
            const std::chrono::duration<double> age = points_.back().at - point.at;
            const double y = (lane.value(point.sample) - middle) / reach + 0.5;
            path.push_back(
                {plot.right - age / shown * plot.width(), plot.bottom - y * plot.height()});
        }
        finish();
    }
}

}  // namespace zel::measuring
