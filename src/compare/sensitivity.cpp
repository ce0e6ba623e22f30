#include "compare/sensitivity.h"

#include <algorithm>
#include <cmath>

#include "platform/errors.h"
#include "workflow/rules/derived.h"
#include "workflow/rules/entry_rules.h"
#include "workflow/rules/steady_check.h"
#include "workflow/run/steady_run.h"
#include "workflow/run/transient_memory.h"

namespace zel {
namespace {

using C = CalcCase;

constexpr Text no_input = {"{0} ist keine Zahl, von der ein Ergebnis abhängt",
                           "{0} is no number that a result depends on"};

struct StepRow {
    Entry CalcCase::*field;
    double step;
};
constexpr StepRow usual_steps[] = {{&C::Hoehe_ueber_NN_db, 100},
                                   {&C::Winkel_S_S_db, 5},
                                   {&C::geogr_Breite_db, 1},
                                   {&C::geo_laeng_db, 1},
                                   {&C::geo_laeng_zeit_db, 1},
                                   {&C::Tag_db, 1},
                                   {&C::Monat_db, 1},
                                   {&C::Stunden_db, 1},
                                   {&C::Minuten_db, 10},
                                   {&C::Windgeschwindigkeit_db, 0.1},
                                   {&C::Winkel_W_S_db, 5},
                                   {&C::Umgebungstemperatur_db, 1},
                                   {&C::Bodentemp_db, 1},
                                   {&C::Bodenart_db, 0.05},
                                   {&C::Globalstrahlung_db, 50},
                                   {&C::Bewoelkungsgrad_db, 0.05},
                                   {&C::Feldlaenge_db, 10},
                                   {&C::Hoehendifferenz_db, 1},
                                   {&C::Netzfrequenz_db, 1},
                                   {&C::Emissionsverhaeltnis_db, 0.05},
                                   {&C::Absorptionsverhaeltnis_db, 0.05},
                                   {&C::Stromstaerke_db, 10},
                                   {&C::Stromstaerke_Buendel, 10},
                                   {&C::Leitertemp_db, 1},
                                   {&C::KniepunktTemperatur_db, 1}};

const Entry CalcCase::*number_of(const CaseField& field) {
    const auto* number = std::get_if<Entry CalcCase::*>(&field.key);
    return number == nullptr ? nullptr : *number;
}

/// The case with one input moved; nothing where its limits or the input check refuse it.
std::optional<CalcCase> with_step(CalcCase c, const CaseField& field, double step,
                                  const Locale& locale) {
    auto CalcCase::*const number = std::get<Entry CalcCase::*>(field.key);
    const double before = (c.*number).value;
    if (enter(c, number, plain_number(before + step, locale.separator), locale))
        return std::nullopt;
    if ((c.*number).value == before || S_Eingabepruefung_steady(c, locale.lang))
        return std::nullopt;
    return c;
}

/// The results by method: A of the bundle, or °C.
std::vector<std::optional<double>> results_of(const CalcCase& c, const Session& session) {
    MethodMemory memory;
    std::vector<std::optional<double>> results;
    for (const MethodResult& line : rated(c, silent(session, &memory))) {
        const SteadyResult& outcome = line.outcome;
        if (!outcome.sound())
            results.emplace_back();
        else if (c.Stromstaerke_Merker_db)
            results.push_back(outcome.temperature_C);
        else
            results.emplace_back(c.Anzahl_Teilleiter_db * *outcome.current_A);
    }
    return results;
}

/// The inputs that may be moved: numbers that are given, and that no other one sets.
std::vector<const CaseField*> inputs_of(const CalcCase& c) {
    const CalcCase given = steady_inputs(c);
    std::vector<const CaseField*> inputs;
    for (const CaseField& field : case_fields()) {
        const auto number = number_of(field);
        if (number == nullptr || !(given.*number).given()) continue;
        if (field.nothing_at_0 && (given.*number).value == 0) continue;
        inputs.push_back(&field);
    }
    return inputs;
}

/// A chosen step, the one that is usual for the field, or a hundredth of the value.
SensitivityLine started(const CaseField& field, const CalcCase& c,
                        const std::vector<ChosenStep>& steps) {
    for (const auto& [name, step] : steps)
        if (name == field.name) return {&field, step};
    const auto number = number_of(field);
    for (const auto& [usual, step] : usual_steps)
        if (number == usual) return {&field, step};
    return {&field, std::abs((c.*number).value) * 0.01, true};
}

void check(const std::vector<ChosenStep>& steps, const std::vector<const CaseField*>& inputs) {
    for (const ChosenStep& chosen : steps)
        if (std::none_of(inputs.begin(), inputs.end(),
                         [&](const CaseField* field) { return field->name == chosen.field; }))
            throw InputError(Reason(no_input, {in_quotes(chosen.field)}));
}

/// Whether a step of an angle leads to another branch of its fold: the folded angle then moves by
/// more than the step.
bool folds_otherwise(const CalcCase& before, const CalcCase& after) {
    const auto turned = [](const CalcCase& c) {
        return c.Winkel_W_S_db.value - c.Winkel_S_S_db.value;
    };
    const double folded = std::abs(S_Winkel_Wind_Leiter(after) - S_Winkel_Wind_Leiter(before));
    constexpr double noise = 1e-9;  // degrees
    return folded > std::abs(turned(after) - turned(before)) + noise;
}

/// The line with its changes; nothing where its input cannot be moved.
std::optional<SensitivityLine> moved(SensitivityLine line, const CalcCase& c,
                                     const Sensitivity& found, const Session& session) {
    for (const double step : {line.step, -line.step}) {
        const auto changed = with_step(c, *line.field, step, session);
        if (!changed) continue;
        line.step = step;
        line.across_fold = folds_otherwise(c, *changed);
        const auto results = results_of(*changed, session);
        if (results.size() != found.results.size()) return std::nullopt;
        for (std::size_t i = 0; i < results.size(); ++i)
            line.changes.push_back(results[i] && found.results[i]
                                       ? std::optional(*results[i] - *found.results[i])
                                       : std::nullopt);
        return line;
    }
    return std::nullopt;
}

}  // namespace

double SensitivityLine::largest() const {
    double most = 0;
    for (const auto& change : changes) most = std::max(most, std::abs(change.value_or(0)));
    return most;
}

std::vector<const SensitivityLine*> moving(const Sensitivity& found, std::size_t method) {
    std::vector<const SensitivityLine*> lines;
    for (const SensitivityLine& line : found.lines)
        if (line.changes[method].value_or(0) != 0) lines.push_back(&line);
    std::stable_sort(lines.begin(), lines.end(), [method](const auto* a, const auto* b) {
        return std::abs(*a->changes[method]) > std::abs(*b->changes[method]);
    });
    return lines;
}

std::vector<SensitivityLine> started_steps(const CalcCase& given,
                                           const std::vector<ChosenStep>& steps) {
    CalcCase c = given;
    forget_emptied(c);
    const std::vector<const CaseField*> inputs = inputs_of(c);
    check(steps, inputs);
    std::vector<SensitivityLine> lines;
    for (const CaseField* field : inputs) lines.push_back(started(*field, c, steps));
    return lines;
}

std::optional<Sensitivity> sensitivity(const CalcCase& given, const Session& session,
                                       const std::vector<ChosenStep>& steps,
                                       const SensitivityProgress& progress) {
    CalcCase c = given;
    forget_emptied(c);
    const std::vector<SensitivityLine> starts = started_steps(c, steps);
    Sensitivity found;
    found.of_temperature = c.Stromstaerke_Merker_db;
    MethodMemory memory;
    for (const MethodResult& line : rated(c, silent(session, &memory)))
        found.methods.push_back(line.method);
    found.results = results_of(c, session);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        auto line = moved(starts[i], c, found, session);
        if (line && line->largest() > 0) found.lines.push_back(*std::move(line));
        if (progress && !progress(i + 1, starts.size())) return std::nullopt;
    }
    std::stable_sort(found.lines.begin(), found.lines.end(),
                     [](const SensitivityLine& a, const SensitivityLine& b) {
                         return a.largest() > b.largest();
                     });
    return found;
}

}  // namespace zel
