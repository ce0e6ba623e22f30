#include "pictures/methods_picture.h"

#include <algorithm>
#include <cmath>

#include "pictures/bars.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"

namespace zel {
namespace {

constexpr Text current_title = {"Strombelastbarkeit nach den Verfahren", "Current by the methods"};
constexpr Text temperature_title = {"Leitertemperatur nach den Verfahren",
                                    "Conductor temperature by the methods"};
constexpr Text spread_text = {"Spannweite {0} bis {1}, das sind {2}",
                              "Spread {0} to {1}, that is {2}"};
constexpr Text no_result = {"kein Ergebnis", "no result"};
constexpr Text rated_current = {"Dauerstrombelastbarkeit {0}", "Rated continuous current {0}"};
constexpr Text highest_temperature = {"Max. Leitertemperatur {0}",
                                      "Max. conductor temperature {0}"};
constexpr Text share_of_rated = {
    "Der gegebene Strom ist {0} % der Dauerstrombelastbarkeit von {1}.",
    "The given current is {0} % of the rated continuous current of {1}."};

/// How numbers of the kind of result are shown.
struct Kind {
    std::string_view mask;
    std::string_view unit;
};
constexpr Kind current_kind = {"####0", " A"};
constexpr Kind temperature_kind = {"###0.0", " °C"};

/// Between two numbers as they are shown, so that whoever subtracts finds the same.
double shown_difference(double high, double low, bool tenths) {
    const double step = tenths ? 10 : 1;
    return (std::round(high * step) - std::round(low * step)) / step;
}

std::string shown(double value, const Kind& kind, const Locale& locale) {
    return masked(value, kind.mask, locale.separator) + std::string(kind.unit);
}

std::optional<double> value_of(const SteadyResult& outcome, const RunBasis& basis) {
    if (!outcome.sound()) return std::nullopt;
    if (basis.current_given) return outcome.temperature_C;
    return basis.sub_conductors * *outcome.current_A;
}

/// The rated current of the bundle; 0 where it is not known.
double rated_of(const CalcCase& c) {
    return c.Dauerstrombelastbarkeit_db.value * c.Anzahl_Teilleiter_db;
}

std::vector<BarMark> marks_of(const CalcCase& c, const RunBasis& basis, const Locale& locale) {
    const auto mark = [&](double value, const Text& text, const Kind& kind) {
        return value > 0 ? std::vector<BarMark>{{value, fill(text.in(locale.lang),
                                                             {shown(value, kind, locale)})}}
                         : std::vector<BarMark>{};
    };
    if (basis.current_given)
        return mark(c.Seiltemperatur_max_db.value, highest_temperature, temperature_kind);
    return mark(rated_of(c), rated_current, current_kind);
}

}  // namespace

std::optional<ResultSpread> spread_of(const SteadyRunResult& result) {
    std::vector<double> values;
    for (const MethodResult& line : result.methods)
        if (const auto value = value_of(line.outcome, result.basis)) values.push_back(*value);
    if (values.size() < 2) return std::nullopt;
    const auto [low, high] = std::minmax_element(values.begin(), values.end());
    return ResultSpread{*low, *high};
}

std::optional<Picture> methods_picture(const CalcCase& c, const SteadyRunResult& result,
                                       const Locale& locale) {
    if (result.methods.empty()) return std::nullopt;
    const RunBasis& basis = result.basis;
    const Kind& kind = basis.current_given ? temperature_kind : current_kind;
    std::vector<Bar> bars;
    for (const MethodResult& line : result.methods) {
        const auto value = value_of(line.outcome, basis);
        bars.push_back(
            {std::string(name_of(line.method)), value,
             value ? shown(*value, kind, locale) : std::string(no_result.in(locale.lang))});
    }
    std::vector<std::string> lines;
    if (const auto spread = spread_of(result)) {
        const Kind apart = {kind.mask, basis.current_given ? " K" : " A"};
        lines.push_back(
            fill(spread_text.in(locale.lang),
                 {shown(spread->low, kind, locale), shown(spread->high, kind, locale),
                  shown(shown_difference(spread->high, spread->low, basis.current_given), apart,
                        locale)}));
    }
    if (const double rated = rated_of(c); basis.current_given && rated > 0)
        lines.push_back(fill(share_of_rated.in(locale.lang),
                             {masked(basis.given / rated * 100, "##0", locale.separator),
                              shown(rated, current_kind, locale)}));
    const Text& title = basis.current_given ? temperature_title : current_title;
    return Picture{std::string(title.in(locale.lang)),
                   [bars, marks = marks_of(c, basis, locale), lines](Canvas& canvas) {
                       double y = draw_bars(canvas, bars, marks, picture_top + 150, 3900) + 200;
                       for (const std::string& line : lines)
                           y = write_lines(canvas, {picture_margin, y}, Side::Left,
                                           picture_sheet.width() - 2 * picture_margin, line) +
                               60;
                   }};
}

}  // namespace zel
