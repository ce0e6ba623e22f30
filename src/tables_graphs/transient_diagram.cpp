#include "tables_graphs/transient_diagram.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "tables_graphs/diagram_header.h"

namespace zel {
namespace {

constexpr Text conductor_label = {"Seilbezeichnung", "Identificator"};
constexpr Text time_axis = {"Zeit", "Time"};
constexpr Text in_unit = {"{0} in {1}", "{0} in {1}"};
constexpr Text temperature = {"Leitertemperatur", "Conductor temperature"};
constexpr Text current = {"Stromstärke", "Current"};
constexpr Text unit_of_time = {"1 Hilfslinieneinheit Zeit  = ", "1 line unit time = "};
constexpr Text unit_of_temperature = {"1 Hilfslinieneinheit Temperatur  = ",
                                      "1 line unit temperature  = "};
constexpr Text unit_of_current = {"1 Hilfslinieneinheit Strom  = ", "1 line unit current  = "};

constexpr Text limit_name = {"Grenztemperatur {0} °C", "Limit temperature {0} °C"};
constexpr Text highest_text = {"Höchste Temperatur {0} °C bei {1} {2}",
                               "Highest temperature {0} °C at {1} {2}"};
constexpr Text within = {"; {0} °C werden nicht überschritten", "; {0} °C are not exceeded"};
constexpr Text exceeded = {"; über {0} °C von {1} bis {2} {3}",
                           "; above {0} °C from {1} to {2} {3}"};
constexpr Text exceeded_to_end = {"; über {0} °C ab {1} {2} bis zum Ende",
                                  "; above {0} °C from {1} {2} to the end"};

constexpr CurveLook limit_look = {rgb(176, 90, 0), rgb(255, 170, 80), LineStyle::Dashes, 1};
constexpr CurveLook temperature_look = {rgb(0, 90, 181), rgb(120, 185, 255), LineStyle::Solid, 1};
constexpr CurveLook current_look = {red, red, LineStyle::Dots, 1};

constexpr double units_of_time = 10000;  // of drawing
constexpr double units_of_range = 8000;

/// The range of an axis.
ValueRange axis_range(double lowest, double highest) {
    constexpr double whole = 10;
    if (highest > lowest) return {std::floor(lowest / whole) * whole, highest};
    const double doubled = 2 * highest;
    if (doubled > 0) return {0, doubled};
    return doubled < 0 ? ValueRange{doubled, 0} : ValueRange{0, 1};
}

struct Ranges {
    ValueRange currents;  // A of the bundle
    ValueRange temperatures;
};

Ranges ranges_of(const TransientCourse& course, const std::vector<CurrentStep>& steps) {
    std::vector<double> currents;
    for (std::size_t i = 1; i < steps.size(); ++i) currents.push_back(steps[i].current);
    std::vector<double> temperatures = {course.start.temperature};
    for (const TransientRow& row : course.rows) {
        if (row.Failed != 0) break;
        if (row.Merker != row_unused) temperatures.push_back(row.Temp);
    }
    const auto range = [](const std::vector<double>& values) {
        if (values.empty()) return axis_range(0, 0);
        const auto [lowest, highest] = std::minmax_element(values.begin(), values.end());
        return axis_range(*lowest, *highest);
    };
    return {range(currents), range(temperatures)};
}

std::vector<CurrentStep> steps_of(const TransientCourse& course) {
    return current_steps(course.rows, course.start, course.c.Anzahl_Teilleiter_db);
}

/// How the time axis counts.
struct TimeUnit {
    std::string_view name;
    double seconds;
};

TimeUnit time_unit(double total) {
    constexpr double first_in_minutes = 600;
    return total >= first_in_minutes ? TimeUnit{"min", 60} : TimeUnit{"sec", 1};
}

DiagramAxis axis(const Text& quantity, const Text& line_unit, std::string_view unit,
                 const ValueRange& range, LangId lang) {
    return {fill(in_unit.in(lang), {quantity.in(lang), unit}), std::string(unit),
            std::string(line_unit.in(lang)), range};
}

DiagramCurve temperature_over_time(const std::vector<RowSeries>& series, double unit) {
    DiagramCurve curve;
    auto& points = curve.stretches.emplace_back();
    for (const RowSeries& row : series)
        for (const SeriesPoint& p : row.points) points.push_back({p.time / unit, p.temperature});
    return curve;
}

DiagramCurve current_over_time(const std::vector<CurrentStep>& steps, double unit) {
    DiagramCurve curve;
    auto& points = curve.stretches.emplace_back();
    for (const CurrentStep& step : steps) {
        points.push_back({step.from / unit, step.current});
        points.push_back({step.to / unit, step.current});
    }
    return curve;
}

/// From below the lowest to above the highest value of the curves of one axis.
ValueRange heights_of(const Diagram& diagram, bool on_right_axis) {
    ValueRange range = {std::numeric_limits<double>::infinity(),
                        -std::numeric_limits<double>::infinity()};
    for (const DiagramCurve& curve : diagram.curves)
        if (curve.on_right_axis == on_right_axis)
            for (const auto& stretch : curve.stretches)
                for (const CanvasPoint& p : stretch)
                    range = {std::min(range.low, p.y), std::max(range.high, p.y)};
    if (range.high < range.low) return {0, 1};
    constexpr double room = 0.03;  // of the range, so that no curve lies on the frame
    return {range.low - room * range.width(), range.high + room * range.width()};
}

std::vector<SeriesPoint> points_of(const std::vector<RowSeries>& series) {
    std::vector<SeriesPoint> points;
    for (const RowSeries& row : series)
        points.insert(points.end(), row.points.begin(), row.points.end());
    return points;
}

/// The stretches of time in which a course is above `limit`, its ends between two points by their
/// straight line.
std::vector<ValueRange> times_above(const std::vector<SeriesPoint>& points, double limit) {
    std::vector<ValueRange> hot;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const auto crossing = [&] {
            const SeriesPoint& a = points[i - 1];
            const SeriesPoint& b = points[i];
            return a.time +
                   (b.time - a.time) * (limit - a.temperature) / (b.temperature - a.temperature);
        };
        const bool is_above = points[i].temperature > limit;
        const bool was_above = i > 0 && points[i - 1].temperature > limit;
        if (is_above && !was_above) hot.push_back({i == 0 ? points[i].time : crossing(), 0});
        if (!is_above && was_above) hot.back().high = crossing();
    }
    if (!hot.empty() && points.back().temperature > limit) hot.back().high = points.back().time;
    return hot;
}

}  // namespace

TransientScale transient_scale(const TransientCourse& course) {
    const auto [currents, temperatures] = ranges_of(course, steps_of(course));
    return {units_of_time / TotalTime(course.rows), units_of_range / temperatures.width(),
            units_of_range / currents.width(), temperatures.low, currents.low};
}

std::optional<Diagram> transient_diagram(const TransientCourse& course, const Locale& locale,
                                         PlotMode mode) {
    const double total = TotalTime(course.rows);
    if (!(total > 0)) return std::nullopt;
    const LangId lang = locale.lang;
    const TimeUnit unit = time_unit(total);
    const std::vector<CurrentStep> steps = steps_of(course);
    const auto [currents, temperatures] = ranges_of(course, steps);
    const TransientScale scale = transient_scale(course);

    Diagram diagram;
    diagram.title = without_outer_blanks(transient_diagram_title.in(lang));
    diagram.header =
        header_lines(course.c,
                     {HeaderLine::Conductor, HeaderLine::Bundle, HeaderLine::AmbientTemperature,
                      HeaderLine::Radiation, HeaderLine::WindSpeed, HeaderLine::Angle},
                     conductor_label, locale);
    diagram.x = axis(time_axis, unit_of_time, unit.name, {0, total / unit.seconds}, lang);
    diagram.y = axis(temperature, unit_of_temperature, "°C", temperatures, lang);
    diagram.right = axis(current, unit_of_current, "A", currents, lang);
    diagram.plot_frame = plot_frame(mode);

    DiagramCurve of_current = current_over_time(steps, unit.seconds);
    of_current.name = current.in(lang);
    of_current.look = current_look;
    of_current.on_right_axis = true;
    of_current.plot = [steps, scale, mode](Canvas& canvas, Colour /*its own*/) {
        TS_Current_Curve(canvas, mode, steps, scale);
    };
    DiagramCurve of_temperature = temperature_over_time(course.series, unit.seconds);
    of_temperature.name = temperature.in(lang);
    of_temperature.look = temperature_look;
    of_temperature.plot = [series = course.series, scale, mode](Canvas& canvas, Colour colour) {
        TS_Temperature_Curve(canvas, mode, series, scale, colour);
    };
    if (mode != PlotMode::Screen)  // printed in the colour of text
        for (CurveLook* look : {&of_current.look, &of_temperature.look}) look->on_white = black;
    diagram.legend = {{of_temperature.name, of_temperature.look},
                      {of_current.name, of_current.look}};
    diagram.curves = {std::move(of_current), std::move(of_temperature)};
    for (std::size_t i = 1; i < steps.size(); ++i)
        diagram.marks.push_back({steps[i].from / unit.seconds, std::to_string(i)});
    return diagram;
}

std::optional<Diagram> course_diagram(const TransientCourse& course, std::optional<double> limit,
                                      const Locale& locale) {
    std::optional<Diagram> diagram = transient_diagram(course, locale);
    if (!diagram) return std::nullopt;
    diagram->title.clear();
    diagram->header.clear();
    for (DiagramCurve& curve : diagram->curves) curve.plot = nullptr;
    if (limit) {
        DiagramCurve line;
        line.name = fill(limit_name.in(locale.lang), {plain_number(*limit, locale.separator)});
        line.look = limit_look;
        line.stretches = {{{diagram->x.range.low, *limit}, {diagram->x.range.high, *limit}}};
        diagram->legend.push_back({line.name, line.look});
        diagram->curves.push_back(std::move(line));
    }
    diagram->y.range = round_range(heights_of(*diagram, false));
    diagram->right->range = round_range(heights_of(*diagram, true));
    return diagram;
}

std::string course_text(const TransientCourse& course, std::optional<double> limit,
                        const Locale& locale) {
    const double total = TotalTime(course.rows);
    if (!(total > 0)) return {};
    const TimeUnit unit = time_unit(total);
    const auto number = [&](double value, std::string_view mask) {
        return masked(value, mask, locale.separator);
    };
    const auto time = [&](double seconds) {
        return number(seconds / unit.seconds, unit.seconds > 1 ? "0.0" : "0");
    };
    const std::vector<SeriesPoint> points = points_of(course.series);
    if (points.empty()) return {};
    const auto hottest = std::max_element(
        points.begin(), points.end(),
        [](const SeriesPoint& a, const SeriesPoint& b) { return a.temperature < b.temperature; });
    std::string text = fill(highest_text.in(locale.lang),
                            {number(hottest->temperature, "0.0"), time(hottest->time), unit.name});
    if (!limit) return text;
    const std::string limit_text = plain_number(*limit, locale.separator);
    const auto hot = times_above(points, *limit);
    if (hot.empty()) return text + fill(within.in(locale.lang), {limit_text});
    for (const ValueRange& from_to : hot)
        text +=
            from_to.high < points.back().time
                ? fill(exceeded.in(locale.lang),
                       {limit_text, time(from_to.low), time(from_to.high), unit.name})
                : fill(exceeded_to_end.in(locale.lang), {limit_text, time(from_to.low), unit.name});
    return text;
}

}  // namespace zel
