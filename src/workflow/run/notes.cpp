#include "workflow/run/notes.h"

#include <algorithm>
#include <cmath>

#include "platform/errors.h"
#include "steady/case/case_fields.h"
#include "tb601_transient/tb601/tb601_joule.h"
#include "workflow/rules/derived.h"
#include "workflow/run/steady_texts.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

constexpr double same_angle = 1e-9;         // degrees
constexpr double rounding_noise = 1e-6;     // tenths of an ampere
constexpr double share_of_joule = 0.01;     // of the Joule heat, by which a balance may miss
constexpr double last_direction = 359.9;    // degrees, that a case may hold
constexpr double endless_emissivity = 0.9;  // without a result by Kirn
constexpr double next_emissivity = 0.899;   // with one

constexpr Text wind_fold_text = {
    "Der Wind trifft die Leitung unter {0}°, gerechnet ist mit {1}° (Winkel durch Abzug gefaltet). "
    "Mit {0}°: {2}.",
    "The wind meets the line at {0}°, the calculation counts {1}° (angle folded by subtraction). "
    "With {0}°: {2}."};
constexpr Text balance_text = {
    "{0}: die Wärmebilanz geht um {1} W/m nicht auf, mehr als 1 % der Stromwärme. Der wirksame "
    "Strom springt hier.",
    "{0}: the heat balance misses by {1} W/m, more than 1 % of the Joule heat. The effective "
    "current jumps here."};
constexpr Text short_table_text = {
    "Von {1} AC-Wertepaaren sind nur die ersten {0} gerechnet: die Tabelle endet bei einer "
    "Temperatur von 0 °C und vor einer, die nicht steigt.",
    "Of {1} pairs of AC resistances only the first {0} count: the table ends at a temperature of "
    "0 °C, and before one that does not rise."};
constexpr Text endless_age_text = {
    "Kirn hat bei einem Emissionsverhältnis von genau {0} kein Ergebnis: sein Maß für das Alter der "
    "Oberfläche teilt dort durch 0. Nehmen Sie {1}.",
    "Kirn has no result at an emissivity of exactly {0}: its measure of the surface's age divides "
    "by 0 there. Take {1}."};
constexpr Text assumed_text = {"Angenommen, nicht angegeben: {0}.", "Assumed, not given: {0}."};

constexpr Text leads_elsewhere = {"{0} A führen in {2} zu {1} °C statt zu {3} °C.",
                                  "{0} A lead to {1} °C in {2}, not to {3} °C."};
constexpr Text no_end_known = {"Wohin {0} A in {2} führen, läßt sich nicht berechnen.",
                               "Where {0} A lead in {2} cannot be calculated."};
constexpr Text sought_in_vain = {"Es wurde keine Stromstärke gefunden, die in {2} zu {3} °C führt.",
                                 "No current was found that leads to {3} °C in {2}."};
constexpr Text right_current = {" {0} A führen zu {1} °C.", " {0} A lead to {1} °C."};
constexpr Text below_jump = {
    " Die Temperatur springt über {1} °C; die höchste Stromstärke darunter ist {0} A.",
    " The temperature jumps over {1} °C; the highest current below that is {0} A."};
constexpr Text no_right_current = {" Keine Stromstärke erreicht {1} °C.",
                                   " No current reaches {1} °C."};
constexpr Text too_hot_text = {
    "Die Zeile endet bei {0} °C. Über {1} °C gelten die Daten keines Leiters: er wäre zerstört.",
    "The row ends at {0} °C. Above {1} °C the data of no conductor hold: it would be destroyed."};
constexpr Text note_label = {"Hinweis: ", "Note: "};
constexpr Text duration_text = {"{0} min {1} s", "{0} min {1} s"};

/// `c` with a wind that meets the line at `angle`, so that no fold changes it.
CalcCase with_wind_at(CalcCase c, double angle) {
    const double line = c.Winkel_S_S_db.value;
    c.Winkel_W_S_db.value = line + angle <= last_direction ? line + angle : line - angle;
    return c;
}

std::optional<SteadyRemarks::TrueWind> wind_fold(const CalcCase& c, const SteadyRunResult& result,
                                                 const Session& session) {
    if (!is_turned(c)) return std::nullopt;
    const double angle = acute_angle(c);
    const double counted = S_Winkel_Wind_Leiter(c);
    MethodMemory memory;
    const Session quiet = silent(session, &memory);
    const CalcCase turned = with_wind_at(c, angle);
    SteadyRemarks::TrueWind remark = {angle, counted, {}};
    for (const MethodResult& line : result.methods) {
        MethodResult& rated = remark.methods.emplace_back();
        rated.method = line.method;
        try {
            rated.outcome = find_method(line.method)->run(turned, angle, quiet);
        } catch (const ProgramEnd& end) {
            rated.outcome.status = end.what();
        }
    }
    return remark;
}

/// W/m by which the balance misses, gains less losses; 0 where that is not worth a remark.
double missing_heat(const SteadyResult& result) {
    if (!result.sound() || !result.terms) return 0;
    const HeatTerms& terms = *result.terms;
    const double missing = terms.PJ + terms.PS - terms.PC - terms.PR;
    return std::abs(missing) > share_of_joule * terms.PJ ? missing : 0;
}

std::vector<SteadyRemarks::Miss> misses(const SteadyRunResult& result) {
    std::vector<SteadyRemarks::Miss> found;
    for (const MethodResult& line : result.methods)
        if (const double missing = missing_heat(line.outcome); missing != 0)
            found.push_back({line.method, missing});
    return found;
}

std::optional<SteadyRemarks::ShortTable> short_table(const CalcCase& c) {
    if (!is_selected(c, Method::TB601) || c.ACDC_R_Option_Merker_db != resistance_by_table)
        return std::nullopt;
    constexpr Entry CalcCase::*pairs[][2] = {
        {&CalcCase::ACR1_db, &CalcCase::TACR1_db}, {&CalcCase::ACR2_db, &CalcCase::TACR2_db},
        {&CalcCase::ACR3_db, &CalcCase::TACR3_db}, {&CalcCase::ACR4_db, &CalcCase::TACR4_db},
        {&CalcCase::ACR5_db, &CalcCase::TACR5_db}, {&CalcCase::ACR6_db, &CalcCase::TACR6_db}};
    SteadyRemarks::ShortTable table;
    for (int i = 0; const auto& [ACR, TACR] : pairs) {
        ++i;
        if ((c.*ACR).value != 0 && (c.*TACR).given()) table.filled = i;
    }
    TB601Records records;
    fill(records, c, 0);
    table.read = static_cast<int>(points_of(records.state.table));
    if (table.read >= table.filled) return std::nullopt;
    return table;
}

std::vector<SteadyRemarks::Assumption> assumptions(const CalcCase& c) {
    std::vector<SteadyRemarks::Assumption> found;
    if (!is_selected(c, Method::TB601)) return found;
    for (const CaseField& field : case_fields())
        if (const auto* number = std::get_if<Entry CalcCase::*>(&field.key))
            if ((c.**number).assumed) found.push_back({&field, (c.**number).text});
    return found;
}

bool has_endless_age(const CalcCase& c) {
    return is_selected(c, Method::Kirn) && c.Emissionsverhaeltnis_db.value == endless_emissivity;
}

std::string degrees(double angle, const Locale& locale) {
    return masked(angle, "##0.0#", locale.separator);
}

/// "Knee-point-temperature 100 °C"
std::vector<std::string> named(const std::vector<SteadyRemarks::Assumption>& assumptions,
                               LangId lang) {
    std::vector<std::string> names;
    for (const auto& [field, text] : assumptions)
        names.push_back(std::string(long_label_of(*field).in(lang)) + " " + text + " " +
                        std::string(long_unit_of(*field)));
    return names;
}

Note wind_fold_note(const SteadyRemarks::TrueWind& remark, const RunBasis& basis,
                    const Locale& locale) {
    std::vector<std::string> results;
    for (const MethodResult& line : remark.methods)
        results.push_back(
            std::string(name_of(line.method)) + " " +
            without_outer_blanks(line.outcome.sound()
                                     ? result_text(line.outcome, basis, locale.separator)
                                     : "Error"));
    return {note_code::wind_fold, fill(wind_fold_text.in(locale.lang),
                                       {degrees(remark.angle, locale),
                                        degrees(remark.counted, locale), joined(results, ", ")})};
}

}  // namespace

double acute_angle(const CalcCase& c) {
    const double turn = std::fmod(std::abs(c.Winkel_W_S_db.value - c.Winkel_S_S_db.value), 180);
    return turn > 90 ? 180 - turn : turn;
}

SteadyRemarks remarks_on(const CalcCase& c, const SteadyRunResult& result, const Session& session) {
    return {wind_fold(c, result, session), misses(result), short_table(c), assumptions(c),
            has_endless_age(c)};
}

bool is_turned(const CalcCase& c) {
    return std::abs(acute_angle(c) - S_Winkel_Wind_Leiter(c)) >= same_angle &&
           (c.Windgeschwindigkeit_db.value != 0 || is_selected(c, Method::Kirn));
}

std::vector<std::string_view> remarkable(const CalcCase& c, std::span<const SteadyResult> results) {
    std::vector<std::string_view> codes;
    if (is_turned(c)) codes.push_back(note_code::wind_fold);
    if (std::any_of(results.begin(), results.end(),
                    [](const SteadyResult& result) { return missing_heat(result) != 0; }))
        codes.push_back(note_code::balance);
    if (short_table(c)) codes.push_back(note_code::short_table);
    if (!assumptions(c).empty()) codes.push_back(note_code::assumed);
    if (has_endless_age(c)) codes.push_back(note_code::endless_age);
    return codes;
}

std::vector<Note> notes_on(const SteadyRunResult& result, const Locale& locale) {
    const SteadyRemarks& remarks = result.remarks;
    std::vector<Note> notes;
    if (remarks.wind_fold)
        notes.push_back(wind_fold_note(*remarks.wind_fold, result.basis, locale));
    for (const auto& [method, missing] : remarks.misses)
        notes.push_back({note_code::balance,
                         fill(balance_text.in(locale.lang),
                              {name_of(method), masked(missing, "###0.0#", locale.separator)})});
    if (const auto& table = remarks.short_table)
        notes.push_back({note_code::short_table,
                         fill(short_table_text.in(locale.lang),
                              {std::to_string(table->read), std::to_string(table->filled)})});
    if (!remarks.assumptions.empty())
        notes.push_back(
            {note_code::assumed, fill(assumed_text.in(locale.lang),
                                      {joined(named(remarks.assumptions, locale.lang), ", ")})});
    if (remarks.endless_age)
        notes.push_back(
            {note_code::endless_age, fill(endless_age_text.in(locale.lang),
                                          {masked(endless_emissivity, "0.0##", locale.separator),
                                           masked(next_emissivity, "0.0##", locale.separator)})});
    return notes;
}

std::optional<Note> note_on_row(const TransientResult& result, const CalcCase& c, std::size_t row,
                                const Locale& locale) {
    const auto& check = result.checks[row];
    const TransientRow& told = result.rows[row];
    if (!check) {
        if (!ends_too_hot(result, row)) return std::nullopt;
        const auto whole = [&](double T) { return masked(T, "########0", locale.separator); };
        return Note{note_code::too_hot, fill(too_hot_text.in(locale.lang),
                                             {whole(told.Temp), whole(hottest_conductor)})};
    }
    const int n = sharing_conductors(c);
    const auto ampere = [&](double I) { return masked(I * n, "####0.0", locale.separator); };
    // Never above the target by the rounding.
    const auto ampere_below = [&](double I) {
        return masked(std::floor(I * n * 10 + rounding_noise) / 10, "####0.0", locale.separator);
    };
    const auto celsius = [&](double T) { return masked(T, "####0.0", locale.separator); };
    const Text& first = told.Failed == 1 ? sought_in_vain
                        : check->reached ? leads_elsewhere
                                         : no_end_known;
    const std::string duration =
        fill(duration_text.in(locale.lang), {std::to_string(told.Min), std::to_string(told.Sec)});
    const Text& second = !check->current ? no_right_current
                         : check->jumps  ? below_jump
                                         : right_current;
    return Note{
        note_code::transient_check,
        fill(first.in(locale.lang), {ampere(told.Strom), celsius(check->reached.value_or(0)),
                                     duration, celsius(told.Temp)}) +
            fill(second.in(locale.lang),
                 {ampere_below(check->current.value_or(0)), celsius(told.Temp)})};
}

std::vector<Note> notes_on(const TransientResult& result, const CalcCase& c, const Locale& locale) {
    std::vector<Note> notes;
    for (std::size_t row = 0; row < result.checks.size(); ++row)
        if (auto note = note_on_row(result, c, row, locale)) {
            note->text.insert(0, std::string(change_of_state_names[row].in(locale.lang)) + ": ");
            notes.push_back(std::move(*note));
        }
    return notes;
}

std::string notes_text(const std::vector<Note>& notes, LangId lang) {
    std::string text;
    for (const Note& note : notes)
        text += "\n" + std::string(note_label.in(lang)) + note.text + "\n";
    return text;
}

}  // namespace zel
