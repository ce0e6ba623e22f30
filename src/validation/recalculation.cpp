#include "validation/recalculation.h"

#include <algorithm>
#include <cmath>

#include "persistence/case_file.h"
#include "persistence/conductor_table.h"
#include "persistence/material_table.h"
#include "platform/errors.h"
#include "short_circuit/short_circuit_file.h"
#include "workflow/run/steady_methods.h"

namespace zel {
namespace {

constexpr Text no_change = {"{0} ist keine Änderung: Feld=Wert", "{0} is no change: field=value"};
constexpr Text no_number = {"{0}: eine Zahl wird erwartet, nicht {1}",
                            "{0}: a number is expected, not {1}"};
constexpr Text method_needed = {"ein Verfahren wird gebraucht", "a method is needed"};

/// An input that no field of a case stands for.
struct SpecialInput {
    std::string_view name;
    Text text;
    std::string_view unit;
};

constexpr SpecialInput special_inputs[] = {
    {"conductor", {"Leiter", "Conductor"}, ""},
    {"start", {"Anfangstemperatur", "Start temperature"}, "°C"},
    {"target", {"Endtemperatur", "End temperature"}, "°C"},
    {"minutes", {"Dauer", "Duration"}, "min"}};

struct Change {
    std::string name, value;
};

/// "field=value; field=value".
std::vector<Change> parsed(const std::string& changes) {
    std::vector<Change> found;
    for (std::size_t begin = 0; begin < changes.size();) {
        const std::size_t end = std::min(changes.find(';', begin), changes.size());
        const std::string one = without_outer_blanks(changes.substr(begin, end - begin));
        begin = end + 1;
        if (one.empty()) continue;
        const std::size_t sign = one.find('=');
        if (sign == std::string::npos) throw InputError(Reason(no_change, {in_quotes(one)}));
        found.push_back({without_outer_blanks(one.substr(0, sign)),
                         without_outer_blanks(one.substr(sign + 1))});
    }
    return found;
}

void put(FlatObject& values, const FlatMember& member) {
    const auto place = std::find_if(values.begin(), values.end(), [&](const FlatMember& other) {
        return same_name(other.key, member.key);
    });
    if (place == values.end())
        values.push_back(member);
    else
        place->value = member.value;
}

/// With what the library offers for what a record does not hold.
void put(CalcCase& c, const LibraryConductor& conductor) {
    static_cast<ConductorData&>(c) = conductor.c;
    (void)take_offers(c, conductor.c, {});
}

double number_in(const Change& change) {
    const auto number = parse_number(change.value, DecimalSeparator::Point);
    if (!number) throw InputError(Reason(no_number, {change.name, in_quotes(change.value)}));
    return *number;
}

/// The row of a field of either area; null where it has none, as a cell of a change of state.
const FieldInfo* field_named(const std::string& name) {
    if (const FieldInfo* field = find_case_field(name)) return field;
    return find_short_circuit_field(name);
}

const SpecialInput* special_input(std::string_view name) {
    const auto row = std::find_if(std::begin(special_inputs), std::end(special_inputs),
                                  [&](const SpecialInput& input) { return input.name == name; });
    return row == std::end(special_inputs) ? nullptr : &*row;
}

/// Adds an input by its name on forms. One that stands on none, as the flags of what is given,
/// follows from the others.
void add(std::vector<GivenInput>& inputs, const std::string& name, const std::string& value) {
    if (const SpecialInput* special = special_input(name)) {
        inputs.push_back({Reason(special->text), value, special->unit});
        return;
    }
    const FieldInfo* field = field_named(name);
    if (field == nullptr || long_label_of(*field).de.empty()) return;
    inputs.push_back({Reason(long_label_of(*field)), value, field->unit_in(LangId::English)});
}

std::string text_of(const FlatValue& value) {
    if (const auto* number = std::get_if<double>(&value))
        return plain_number(*number, DecimalSeparator::Point);
    const auto* text = std::get_if<std::string>(&value);
    return text != nullptr ? *text : std::string();
}

Entry entry(double number) { return {plain_number(number, DecimalSeparator::Point), number}; }

/// What a steady run leaves, with the session in which a transient goes on.
struct Run {
    explicit Run(LangId lang) : silent(SeriesOptions()), session(silent.session) {
        session.lang = lang;
    }
    SilentRun silent;
    Session session;
    SteadyRunResult result;
};

/// Runs the one method of `c`; gives the reason where it has no result.
std::optional<Reason> failure_of(Run& run, CalcCase& c) {
    try {
        RunSteady(c, run.session, run.result);
    } catch (const ProgramEnd& end) {
        return Reason(end.what());
    }
    if (!run.result.input_valid) return Reason(joined(run.result.refusal.lines, " "));
    const SteadyResult& outcome = run.result.methods.front().outcome;
    if (!outcome.sound()) return Reason(outcome.status.empty() ? outcome.fault : outcome.status);
    return std::nullopt;
}

void select(CalcCase& c, Method method) {
    for (const Method other : all_methods) c.*flag_of(other) = other == method ? 1 : 0;
}

Recalculated number_of(const std::optional<double>& number) {
    constexpr Text not_given = {"gibt es hier nicht", "does not exist here"};
    if (number) return {number};
    return {std::nullopt, Reason(not_given)};
}

}  // namespace

Recalculation::Recalculation(Files& files, CaseStore& cases, std::string folder, LangId lang)
    : cases_(cases), folder_(std::move(folder)), lang_(lang) {
    const std::string above = folder_ + "/..";
    const std::string materials = above + "/materials.csv";
    const std::string conductors = above + "/conductors.csv";
    conductors_ = read_conductors(
        files.content(conductors), conductors,
        read_materials(files.content(materials), materials, DecimalSeparator::Point),
        DecimalSeparator::Point);
}

const FlatObject& Recalculation::values_in(const std::string& file) {
    const auto known = files_.find(file);
    if (known != files_.end()) return known->second;
    return files_.emplace(file, cases_.load(folder_ + "/" + file)).first->second;
}

void Recalculation::change(Prepared& prepared, const std::string& name,
                           const std::string& value) const {
    const Change change = {name, value};
    if (name == "conductor") {
        CalcCase c;
        put(c, find_conductor(conductors_, value));
        for (const FlatMember& member : values_of(c)) put(prepared.values, member);
    } else if (name == "start") {
        prepared.start = number_in(change);
    } else if (name == "target") {
        prepared.target = number_in(change);
    } else if (name == "minutes") {
        prepared.minutes = number_in(change);
    } else {
        put(prepared.values, {name, number_in(change)});
    }
}

Recalculation::Prepared Recalculation::prepared(const CaseChoice& choice) {
    Prepared prepared;
    prepared.values = values_in(choice.file);
    for (const Change& one : parsed(choice.changes)) change(prepared, one.name, one.value);
    return prepared;
}

CalcCase Recalculation::case_of(const CaseChoice& choice, const FlatObject& values) const {
    const std::string path = folder_ + "/" + choice.file;
    if (!choice.method) throw InputError(at(path, Reason(method_needed)));
    try {
        CaseFile read = read_case(values, {lang_, DecimalSeparator::Point});
        if (!read.refused.empty())
            throw InputError(at(read.refused.front().field,
                                Reason(joined(read.refused.front().box.lines, " "))));
        select(read.c, *choice.method);
        return read.c;
    } catch (const InputError& error) {
        throw InputError(at(path, error.reason()));
    }
}

Recalculated Recalculation::calculate(const CaseChoice& choice, const Quantity& quantity) {
    const Prepared found = prepared(choice);
    if (const auto* of = std::get_if<Quantity::OfShortCircuit>(&quantity.of))
        return short_circuit(choice, found, *of);
    const CalcCase c = case_of(choice, found.values);
    if (const auto* of = std::get_if<Quantity::OfTransient>(&quantity.of))
        return transient(c, found, *of);
    return steady(c, *choice.method, std::get<Quantity::OfSteady>(quantity.of));
}

Recalculated Recalculation::rating(const std::string& file, const LibraryConductor& conductor,
                                   Method method) {
    CalcCase c = case_of({file, {}, method}, values_in(file));
    put(c, conductor);
    return steady(c, method, [](const SteadyFound& f) { return std::optional(f.I); });
}

Recalculated Recalculation::steady(const CalcCase& c, Method method, Quantity::OfSteady of) {
    SteadyFound found;
    found.c = c;
    found.method = method;
    Run run(lang_);
    if (auto failure = failure_of(run, found.c)) return {std::nullopt, *failure};
    const SteadyResult& outcome = run.result.methods.front().outcome;
    found.angle = run.result.angle;
    found.I = *outcome.current_A;
    found.T = *outcome.temperature_C;
    found.terms = *heat_terms(method, outcome, found.c, found.angle, run.session);
    found.tb601 = outcome.tb601.value_or(Tb601Details());
    return number_of(of(found));
}

/// One change of state from the temperature `start`, or from the steady state of the case; where
/// the time is sought, to 63.2 % of the way to the new steady state.
Recalculated Recalculation::transient(CalcCase c, const Prepared& prepared,
                                      const Quantity::OfTransient& quantity) {
    Run run(lang_);
    if (auto failure = failure_of(run, c)) return {std::nullopt, *failure};
    TransientBasis basis;
    take_over(basis, run.result, c);
    const double settled = basis.start ? basis.start->temperature : 0;
    if (prepared.start) basis.start = {c.Stromstaerke_db.value, *prepared.start};
    StateChange& row = c.Z.front();
    row.merker = quantity.kind;
    row.Strom = c.Stromstaerke_db;
    row.min = entry(prepared.minutes.value_or(0));
    row.sec = entry(0);
    if (prepared.target) row.TEMP = entry(*prepared.target);
    if (quantity.kind == seeks_time && prepared.start)
        row.TEMP = entry(*prepared.start + (1 - std::exp(-1.0)) * (settled - *prepared.start));
    TransientResult result;
    try {
        RunTransient(c, basis, run.session, {}, result);
    } catch (const ProgramEnd& end) {
        return {std::nullopt, Reason(end.what())};
    }
    if (!result.input_valid) return {std::nullopt, Reason(joined(result.refusal.box.lines, " "))};
    return number_of(quantity.of({result.rows.front(), result.checks.front()}));
}

Recalculated Recalculation::short_circuit(const CaseChoice& choice, const Prepared& prepared,
                                          Quantity::OfShortCircuit of) const {
    const std::string path = folder_ + "/" + choice.file;
    try {
        const ShortCircuitFile read =
            read_short_circuit_case(prepared.values, {lang_, DecimalSeparator::Point});
        if (!read.refused.empty())
            throw InputError(at(read.refused.front().field,
                                Reason(joined(read.refused.front().box.lines, " "))));
        const ShortCircuitRun run = RunShortCircuit(read.form.content(), DecimalSeparator::Point);
        if (run.refusal) return {std::nullopt, Reason(joined(run.refusal->box.lines, " "))};
        return number_of(of({read.form.content(), run.result}));
    } catch (const InputError& error) {
        throw InputError(at(path, error.reason()));
    }
}

std::vector<GivenInput> Recalculation::inputs_of(const CaseChoice& choice) {
    FlatObject values = values_in(choice.file);
    std::vector<GivenInput> special;
    for (const Change& one : parsed(choice.changes)) {
        if (special_input(one.name) == nullptr)
            put(values, {one.name, number_in(one)});
        else
            add(special, one.name, one.value);
    }
    std::vector<GivenInput> inputs;
    for (const FlatMember& member : values) add(inputs, member.key, text_of(member.value));
    inputs.insert(inputs.end(), special.begin(), special.end());
    return inputs;
}

std::vector<GivenInput> Recalculation::changes_in(const std::string& changes) {
    std::vector<GivenInput> inputs;
    for (const Change& one : parsed(changes)) add(inputs, one.name, one.value);
    return inputs;
}

CaseChoice with(CaseChoice choice, const std::string& more) {
    if (!more.empty()) choice.changes += ";" + more;
    return choice;
}

}  // namespace zel
