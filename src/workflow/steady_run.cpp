#include "workflow/steady_run.h"

#include <algorithm>
#include <array>
#include <span>

#include "platform/message_box.h"
#include "workflow/advice.h"
#include "workflow/bundle.h"
#include "workflow/steady_check.h"
#include "workflow/wind.h"

namespace zel {
namespace {

/// What is sought, with all that its kind of result says and the order in which the methods run.
struct Kind {
    std::array<Method, 5> order;
    Text head_line;  // {0} the given value, {1} the bundle's name
    std::string_view head_mask;
    Text table_caption;
    Text ambient_table_caption;
    std::array<std::string_view, 4> table_steps;
    Text print_caption;
};

constexpr Kind current_sought = {
    {Method::TB601, Method::TB207, Method::TBB, Method::Webs, Method::Kirn},
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
    {Method::TB207, Method::TBB, Method::TB601, Method::Webs, Method::Kirn},
    {"Bei gegebener Stromstärke des {1} von  {0} A  beträgt die Leitertemperatur ",
     "By given current of  {0} A  the conductor temperature of the {1}"},
    "####00",
    {"Windgeschwindigkeit- / Strom- / Leitertemperatur-Tabelle ",
     "Wind speed / current / conductor temperature table "},
    {"Windgeschwindigkeit- / Strom- / Leitertemperatur-Tabelle ",
     "Wind speed / current / conductor temperature table "},
    {" 100 ", "  50 ", "  20 ", "  10 "},
    {"Ausdruck : &Temperaturberechnung", "Print : Temperature calculation "}};

constexpr BoxText not_available = {
    Icon::Stop,
    {"Eingabeprüfung", "Input verification"},
    {"Das ausgewählte Berechnungsverfahren {0} ist in diesem Programm nicht verfügbar.",
     "The selected calculation method {0} is not available in this program."}};

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
                                   const Session& session) {
    std::vector<LabelledText> texts;
    for (const auto& [label, value, mask, unit] : lines)
        texts.push_back({std::string(label.in(session.lang)),
                         masked(details.*value, mask, session.separator) + std::string(unit)});
    return texts;
}

/// TB 207 goes before the busbar method where both are selected.
bool runs(const CalcCase& c, Method method) {
    const bool displaced = method == Method::TBB && is_selected(c, Method::TB207);
    return is_selected(c, method) && !displaced;
}

std::optional<Box> unavailable_method(const CalcCase& c, LangId lang) {
    for (const Method method : all_methods)
        if (runs(c, method) && find_method(method) == nullptr)
            return box_in(lang, not_available, {key_of(method)});
    return std::nullopt;
}

std::string result_text(const MethodOutcome& outcome, const CalcCase& c, const Session& session) {
    if (!outcome.status.empty()) return " Error";
    if (outcome.fault) return {};
    if (!c.Stromstaerke_Merker_db)
        return masked(c.Anzahl_Teilleiter_db * *outcome.current_A, "####0", session.separator) +
               " A";
    return masked(*outcome.temperature_C, "###0.0", session.separator) + " °C";
}

MethodResult run_method(const SteadyMethod& method, const CalcCase& c, double angle,
                        const Session& session) {
    MethodResult line;
    line.method = method.id;
    line.caption = bundle_name(c.Anzahl_Teilleiter_db).in(session.lang);
    line.caption += method.caption.in(session.lang);
    line.outcome = method.run(c, angle, session);
    line.result = result_text(line.outcome, c, session);
    return line;
}

/// `S_Rechnung_strom` and `S_Rechnung_temperatur`: the selected methods in the order of the kind.
/// The last sound method that can start a transient sets its start.
void run_methods(const Kind& kind, const CalcCase& c, const Session& session,
                 SteadyRunResult& result) {
    for (const Method id : kind.order) {
        if (!runs(c, id)) continue;
        const SteadyMethod& method = *find_method(id);
        const MethodResult& line =
            result.methods.emplace_back(run_method(method, c, result.angle, session));
        const MethodOutcome& outcome = line.outcome;
        if (outcome.angle) result.angle = *outcome.angle;
        if (!outcome.sound()) continue;
        if (!method.balance.empty())
            result.balance_lines.push_back(
                balance_line(method.balance, *outcome.terms, session.separator));
        if (outcome.tb601) {
            result.tb601_temperatures = lines_of(tb601_temperatures, *outcome.tb601, session);
            result.tb601_factors = lines_of(tb601_factors, *outcome.tb601, session);
        }
        if (method.starts_transient) {
            result.transient_start = {*outcome.current_A, *outcome.temperature_C};
            result.may_save = true;
        }
    }
    std::sort(result.methods.begin(), result.methods.end(),
              [](const MethodResult& a, const MethodResult& b) { return a.method < b.method; });
}

std::string methods_line(const CalcCase& c) {
    std::vector<std::string> names;
    for (const Method method : all_methods)
        if (runs(c, method)) names.emplace_back(find_method(method)->name);
    return joined(names, " / ");
}

std::string head_line(const Kind& kind, const CalcCase& c, const Session& session) {
    const double given =
        c.Stromstaerke_Merker_db ? c.Stromstaerke_Buendel.value : c.Leitertemp_db.value;
    return fill(kind.head_line.in(session.lang),
                {masked(given, kind.head_mask, session.separator),
                 bundle_name(c.Anzahl_Teilleiter_db).in(session.lang)});
}

ResultTexts result_texts(const Kind& kind, const CalcCase& c, LangId lang) {
    const Text& caption =
        c.Umgebtemp_merker1_db == 1 ? kind.ambient_table_caption : kind.table_caption;
    return {std::string(caption.in(lang)),
            {kind.table_steps.begin(), kind.table_steps.end()},
            std::string(kind.print_caption.in(lang))};
}

/// `S_Windanzeige`
void show_wind(const CalcCase& c, const Session& session, SteadyRunResult& result) {
    result.perpendicular_wind = perpendicular_wind(c.Windgeschwindigkeit_db.value, result.angle);
    result.angle_text = masked(result.angle, "##0.0#", session.separator) + " °";
    result.perpendicular_wind_text =
        masked(result.perpendicular_wind, "#0.0##", session.separator) + " m/s";
}

std::optional<double> Kirn_temperature(const SteadyRunResult& result) {
    for (const MethodResult& line : result.methods)
        if (line.method == Method::Kirn) return line.outcome.temperature_C;
    return std::nullopt;
}

}  // namespace

std::string balance_line(std::string_view head, const HeatTerms& terms,
                         DecimalSeparator separator) {
    const auto watts = [separator](double term) {
        return masked(term, "#####0.0#", separator) + " W/m";
    };
    return std::string(head) + "P Joule " + watts(terms.PJ) + "  +  P Solar " + watts(terms.PS) +
           "   =   P Radiation " + watts(terms.PR) + "  +  P Convection " + watts(terms.PC);
}

SteadyRunResult RunSteady(CalcCase& c, const Session& session) {
    SteadyRunResult result;
    auto refusal = S_Eingabepruefung_steady(c, session.lang);
    if (!refusal) refusal = unavailable_method(c, session.lang);
    if (refusal) {
        result.refusal = *refusal;
        session.tell(*refusal);
        return result;
    }
    result.input_valid = true;
    result.angle = S_Winkel_Wind_Leiter(c);
    S_Stromstaerke_buendel(c, session.separator);
    // With both flags set the kind does not matter: the solver refuses the undefined mode.
    const Kind& kind = c.Stromstaerke_Merker_db ? temperature_sought : current_sought;
    result.texts = result_texts(kind, c, session.lang);
    result.head_line = head_line(kind, c, session);
    run_methods(kind, c, session, result);
    result.methods_line = methods_line(c);
    show_wind(c, session, result);
    result.advice =
        advice(c, {result.angle, result.perpendicular_wind, Kirn_temperature(result)}, session);
    return result;
}

}  // namespace zel
