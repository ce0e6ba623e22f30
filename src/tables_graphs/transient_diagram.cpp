#include "tables_graphs/transient_diagram.h"

#include <algorithm>
#include <cmath>

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

}  // namespace zel
