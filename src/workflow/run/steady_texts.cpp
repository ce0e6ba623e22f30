#include "workflow/run/steady_texts.h"

#include <array>
#include <cmath>
#include <span>

#include "steady/constants.h"
#include "workflow/rules/derived.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

/// What is sought, with all that its kind of result says.
struct Kind {
    Text head_line;  // {0} the given value, {1} the bundle's name
    std::string_view head_mask;
    Text table_caption;
    Text ambient_table_caption;
    std::array<std::string_view, 4> table_steps;
    Text print_caption;
};

constexpr Kind current_sought = {
    {"Bei gegebener Leitertemperatur von  {0} °C  beträgt die Stromstärke des {1}",
     "By given conductor temperature of  {0} °C  the current of the  {1}"},
    "##0.0",
    {"Windgeschwindigkeit- / Leitertemperatur- / Strom-Tabelle ",
     "Wind speed / conductor temperature / current table "},
    {"Windgeschwindigkeit- / Umgebungstemperatur- / Strom-Tabelle ",
     "Wind speed / ambient temperature / current table "},
    {" 10 ", "  5 ", "  2 ", "  1 "},
    {"Ausdruck : Stromstärkeberechnung ", "Print : Current calculation "}};

constexpr Kind temperature_sought = {
    {"Bei gegebener Stromstärke des {1} von  {0} A  beträgt die Leitertemperatur ",
     "By given current of  {0} A  the conductor temperature of the {1}"},
    "####00",
    {"Windgeschwindigkeit- / Strom- / Leitertemperatur-Tabelle ",
     "Wind speed / current / conductor temperature table "},
    {"Windgeschwindigkeit- / Strom- / Leitertemperatur-Tabelle ",
     "Wind speed / current / conductor temperature table "},
    {" 100 ", "  50 ", "  20 ", "  10 "},
    {"Ausdruck : &Temperaturberechnung", "Print : Temperature calculation "}};

struct Tb601Line {
    Text label;
    double Tb601Details::*value;
    std::string_view mask;
    std::string_view unit;
};

constexpr Tb601Line tb601_temperatures[] = {
    {{"Temperatur Seil-Kern (TB 601) :", "Temperature conductor core (TB 601) :"},
     &Tb601Details::TCore,
     "###0.0",
     " °C"},
    {{"Temperatur Seil-Oberfläche (TB 601) :", "Temperature conductor surface (TB 601) :"},
     &Tb601Details::TSurface,
     "###0.0",
     " °C"},
};

// The wording is the same in both languages.
constexpr Tb601Line tb601_factors[] = {
    {{" skin effect factor Kiessling:  "}, &Tb601Details::KiesslingFactor, "##0.0####", ""},
    {{" skin effect factor:  "}, &Tb601Details::KSkin, "##0.0####", ""},
    {{" magentic heating factor:  "}, &Tb601Details::KMag, "##0.0###", ""},
};

std::vector<LabelledText> lines_of(std::span<const Tb601Line> lines, const Tb601Details& details,
                                   const Locale& locale) {
    std::vector<LabelledText> texts;
    for (const auto& [label, value, mask, unit] : lines)
        texts.push_back({std::string(label.in(locale.lang)),
                         masked(details.*value, mask, locale.separator) + std::string(unit)});
    return texts;
}

std::string head_line(const Kind& kind, const RunBasis& basis, const Locale& locale) {
    return fill(kind.head_line.in(locale.lang),
                {masked(basis.given, kind.head_mask, locale.separator),
                 bundle_name(basis.sub_conductors).in(locale.lang)});
}

const Kind& kind_of(bool current_given) {
    return current_given ? temperature_sought : current_sought;
}

/// Caption, result, balance and details of one method.
void write_method(MethodResult& line, SteadyRunResult& result, const Locale& locale) {
    const SteadyMethod& method = *find_method(line.method);
    const SteadyResult& outcome = line.outcome;
    line.caption = bundle_name(result.basis.sub_conductors).in(locale.lang);
    line.caption += method.caption.in(locale.lang);
    line.result = result_text(outcome, result.basis, locale.separator);
    if (outcome.terms)
        result.balance_lines.push_back(
            balance_line(method.balance, *outcome.terms, locale.separator));
    if (outcome.tb601) {
        result.tb601_temperatures = lines_of(tb601_temperatures, *outcome.tb601, locale);
        result.tb601_factors = lines_of(tb601_factors, *outcome.tb601, locale);
    }
}

}  // namespace

std::string result_text(const SteadyResult& outcome, const RunBasis& basis,
                        DecimalSeparator separator) {
    if (!outcome.status.empty()) return " Error";
    if (!outcome.fault.empty()) return {};
    if (!basis.current_given)
        return masked(basis.sub_conductors * *outcome.current_A, "####0", separator) + " A";
    return masked(*outcome.temperature_C, "###0.0", separator) + " °C";
}

std::string balance_line(std::string_view head, const HeatTerms& terms,
                         DecimalSeparator separator) {
    const auto watts = [separator](double term) {
        return masked(term, "#####0.0#", separator) + " W/m";
    };
    return std::string(head) + "P Joule " + watts(terms.PJ) + "  +  P Solar " + watts(terms.PS) +
           "   =   P Radiation " + watts(terms.PR) + "  +  P Convection " + watts(terms.PC);
}

void S_Windanzeige(SteadyRunResult& result, DecimalSeparator separator) {
    result.perpendicular_wind = std::abs(std::sin(radians(result.angle)) * result.basis.wind);
    result.angle_text = masked(result.angle, "##0.0#", separator) + " °";
    result.perpendicular_wind_text =
        masked(result.perpendicular_wind, "#0.0##", separator) + " m/s";
}

ResultTexts kind_texts(bool current_given, bool ambient_table, LangId lang) {
    const Kind& kind = kind_of(current_given);
    const Text& caption = ambient_table ? kind.ambient_table_caption : kind.table_caption;
    return {std::string(caption.in(lang)),
            {kind.table_steps.begin(), kind.table_steps.end()},
            std::string(kind.print_caption.in(lang))};
}

void write_texts(SteadyRunResult& result, const Locale& locale) {
    const RunBasis& basis = result.basis;
    result.texts = kind_texts(basis.current_given, basis.ambient_table, locale.lang);
    result.head_line = head_line(kind_of(basis.current_given), basis, locale);
    result.balance_lines.clear();
    std::vector<std::string> names;
    for (MethodResult& line : result.methods) {
        write_method(line, result, locale);
        names.emplace_back(name_of(line.method));
    }
    result.methods_line = joined(names, " / ");
    S_Windanzeige(result, locale.separator);
    result.notes = notes_on(result, locale);
}

}  // namespace zel
