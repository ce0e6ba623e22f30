#include "tables_graphs/steady_diagram.h"

#include <algorithm>
#include <array>
#include <limits>

#include "platform/text/number_text.h"
#include "tables_graphs/diagram_header.h"

namespace zel {
namespace {

constexpr Text conductor_label = {"Leiterbezeichnung", "Identificator"};
constexpr Text current_caption = {"Stromstärke in A", "Current in A"};
constexpr Text conductor_caption = {"Leitertemperatur in °C", "Conductor temperature in °C"};
constexpr Text ambient_caption = {"Umgebungstemperatur in °C", "Ambient temperature in °C"};
constexpr Text unit_of_x = {"1 Hilfslinieneinheit x-Achse = ", "1 auxiliary line unit x axis = "};
constexpr Text unit_of_y = {"1 Hilfslinieneinheit y-Achse = ", "1 auxiliary line unit y axis = "};

struct MethodLook {
    Method method;
    std::string_view legend;
    CurveLook look;
};

// Colours that differ in lightness too, for eyes that tell red and green poorly apart.
constexpr MethodLook method_looks[] = {
    {Method::TB207, "= Cigre TB 207", {rgb(200, 70, 0), rgb(255, 160, 60), LineStyle::Dashes}},
    {Method::TBB, "= Puffer", {rgb(90, 90, 90), rgb(240, 228, 66), LineStyle::DashDotDot}},
    {Method::TB601, "= Cigre TB 601", {rgb(0, 90, 181), rgb(86, 180, 233), LineStyle::Solid}},
    {Method::Webs, "= Webs", {rgb(0, 125, 90), rgb(0, 205, 150), LineStyle::Dots}},
    {Method::Kirn, "= Kirn", {rgb(150, 50, 140), rgb(235, 150, 205), LineStyle::DashDot}},
};

constexpr std::array wind_signs = {CurveSign::Circle,  CurveSign::Square, CurveSign::Triangle,
                                   CurveSign::Diamond, CurveSign::Cross,  CurveSign::Wedge};

std::string wind_text(double wind, const Locale& locale) {
    return plain_number(wind, locale.separator) + " m/s";
}

/// From the lowest to the highest of what it was told.
class Extent {
public:
    void add(double value) {
        range_.low = std::min(range_.low, value);
        range_.high = std::max(range_.high, value);
    }
    /// A range that a person gave, where it is one, times `share`.
    void add(const Entry& low, const Entry& high, double share = 1) {
        if (low.text.empty() || high.text.empty() || !(low.value < high.value)) return;
        add(low.value * share);
        add(high.value * share);
    }
    [[nodiscard]] ValueRange range() const {
        return range_.low > range_.high ? ValueRange{} : round_range(range_);
    }

private:
    ValueRange range_ = {std::numeric_limits<double>::infinity(),
                         -std::numeric_limits<double>::infinity()};
};

/// The points of one method and wind, (current of the bundle, temperature).
class CurvePoints {
public:
    CurvePoints(const ParameterTable& curves, const CalcCase& c)
        : curves_(curves), share_(bundle_share(c)) {}

    [[nodiscard]] std::vector<std::vector<CanvasPoint>> stretches(std::size_t wind,
                                                                  std::size_t method) const {
        std::vector<std::vector<CanvasPoint>> all;
        bool gap = true;
        for (std::size_t step = 0; step < curves_.steps.size(); ++step) {
            const auto& cell = curves_.at(step, wind, method);
            if (cell) {
                if (gap) all.emplace_back();
                all.back().push_back(point(curves_.steps[step], *cell));
            }
            gap = !cell;
        }
        return all;
    }

private:
    [[nodiscard]] CanvasPoint point(double step, double cell) const {
        if (curves_.stepped == Stepped::Current) return {step * share_, cell};
        return {cell, step};
    }

    const ParameterTable& curves_;
    double share_;
};

std::vector<HeaderLine> header_of(Stepped stepped) {
    std::vector<HeaderLine> lines = {HeaderLine::Conductor, HeaderLine::Bundle,
                                     HeaderLine::AmbientTemperature, HeaderLine::Radiation,
                                     HeaderLine::Angle};
    if (stepped == Stepped::AmbientTemperature) lines[2] = HeaderLine::ConductorTemperature;
    return lines;
}

}  // namespace

Diagram steady_diagram(const ParameterTable& curves, const CalcCase& c, const Locale& locale) {
    const LangId lang = locale.lang;
    Diagram diagram;
    diagram.title = without_outer_blanks(steady_diagram_title.in(lang));
    diagram.header = header_lines(c, header_of(curves.stepped), conductor_label, locale);
    const CurvePoints points(curves, c);
    Extent currents, temperatures;
    currents.add(c.Strom_min_db, c.Strom_max_db, bundle_share(c));
    temperatures.add(c.Temp_min_db, c.Temp_max_db);
    const bool one_wind = curves.winds.size() == 1;
    for (const MethodLook& row : method_looks) {
        const auto found = std::find(curves.methods.begin(), curves.methods.end(), row.method);
        if (found == curves.methods.end()) continue;
        diagram.legend.push_back({std::string(row.legend), row.look});
        for (std::size_t wind = 0; wind < curves.winds.size(); ++wind) {
            DiagramCurve& curve = diagram.curves.emplace_back();
            curve.name =
                std::string(name_of(row.method)) + ", " + wind_text(curves.winds[wind], locale);
            curve.look = row.look;
            if (!one_wind) curve.sign = wind_signs[wind];
            curve.stretches =
                points.stretches(wind, static_cast<std::size_t>(found - curves.methods.begin()));
            for (const auto& stretch : curve.stretches)
                for (const CanvasPoint& p : stretch) {
                    currents.add(p.x);
                    temperatures.add(p.y);
                }
        }
    }
    for (std::size_t wind = 0; wind < curves.winds.size(); ++wind)
        diagram.legend.push_back({wind_text(curves.winds[wind], locale), std::nullopt,
                                  one_wind ? CurveSign::None : wind_signs[wind]});
    const bool ambient = curves.stepped == Stepped::AmbientTemperature;
    diagram.x = {std::string(current_caption.in(lang)), "A", std::string(unit_of_x.in(lang)),
                 currents.range()};
    diagram.y = {std::string((ambient ? ambient_caption : conductor_caption).in(lang)), "°C",
                 std::string(unit_of_y.in(lang)), temperatures.range()};
    return diagram;
}

}  // namespace zel
