#include "compare/comparison.h"

#include <algorithm>

#include "forms/config_options.h"
#include "forms/given_value.h"
#include "forms/line_form.h"
#include "platform/text/number_text.h"
#include "workflow/rules/derived.h"

namespace zel {
namespace {

constexpr Text results_caption = {"Ergebnisse", "Results"};
constexpr Text methods_caption = {"Verfahren und Einstellungen", "Methods and settings"};
constexpr Text methods_label = {"Berechnungsverfahren", "Calculation methods"};
constexpr Text given_label = {"Gegeben", "Given"};
constexpr Text current_label = {"{0}, Strom des Bündels", "{0}, current of the bundle"};
constexpr Text temperature_label = {"{0}, Leitertemperatur", "{0}, conductor temperature"};
constexpr Text angle_label = {"Winkel Wind-Leiter, mit dem gerechnet wird",
                              "Angle wind-conductor as calculated with"};

/// A setting that a method reads, with the setting of the program by whose options it is told.
struct SettingRow {
    std::int16_t CalcCase::*field;
    NumberMember setting;
};
constexpr SettingRow setting_rows[] = {
    {&CalcCase::Gravi_merker1_db, &ProgramSettings::Gravi_merker},
    {&CalcCase::Formel_merker1_db, &ProgramSettings::Formel_merker},
    {&CalcCase::wzsz_merker_db, &ProgramSettings::wzsz_merker},
};

using Runs = std::span<const KeptRun* const>;

/// A label without its colon and blanks.
std::string bare(std::string_view label) {
    std::string text = without_outer_blanks(label);
    while (!text.empty() && (text.back() == ':' || text.back() == ' ')) text.pop_back();
    return text;
}

/// One value of each run. What differs is found by the numbers, where there are any.
template <class Value>
ComparedRow row_of(std::string label, std::string_view unit, Runs runs, Value value) {
    ComparedRow row{std::move(label), std::string(unit), {}};
    for (const KeptRun* run : runs) row.values.push_back(value(*run));
    const auto same = [&](const ComparedValue& other) {
        const ComparedValue& first = row.values.front();
        if (first.number && other.number) return *first.number == *other.number;
        return first == other;
    };
    row.differs = !std::all_of(row.values.begin(), row.values.end(), same);
    return row;
}

const MethodResult* result_of(const KeptRun& run, Method method) {
    for (const MethodResult& line : run.result.methods)
        if (line.method == method) return &line;
    return nullptr;
}

ComparedValue shown(double value, std::string_view mask, const Locale& locale) {
    return {masked(value, mask, locale.separator), value};
}

ComparedGroup results(Runs runs, const Locale& locale) {
    ComparedGroup group{std::string(results_caption.in(locale.lang)), {}};
    const auto add = [&](Method method, const Text& label, std::string_view unit, auto value) {
        group.rows.push_back(row_of(fill(label.in(locale.lang), {name_of(method)}), unit, runs,
                                    [&](const KeptRun& run) -> ComparedValue {
                                        const MethodResult* line = result_of(run, method);
                                        if (line == nullptr) return {};
                                        if (!line->outcome.sound())
                                            return {without_outer_blanks(line->result)};
                                        return value(run, line->outcome);
                                    }));
    };
    for (const Method method : all_methods) {
        const bool ran = std::any_of(runs.begin(), runs.end(), [&](const KeptRun* run) {
            return result_of(*run, method) != nullptr;
        });
        if (!ran) continue;
        add(method, current_label, "A", [&](const KeptRun& run, const SteadyResult& outcome) {
            return shown(run.result.basis.sub_conductors * *outcome.current_A, "####0", locale);
        });
        add(method, temperature_label, "°C", [&](const KeptRun&, const SteadyResult& outcome) {
            return shown(*outcome.temperature_C, "###0.0", locale);
        });
    }
    group.rows.push_back(
        row_of(std::string(angle_label.in(locale.lang)), "°", runs,
               [&](const KeptRun& run) { return shown(run.result.angle, "##0.0#", locale); }));
    return group;
}

std::string method_names(const CalcCase& c) {
    std::vector<std::string> names;
    for (const Method method : all_methods)
        if (is_selected(c, method)) names.emplace_back(name_of(method));
    return joined(names, " / ");
}

ComparedGroup methods_and_settings(Runs runs, const Locale& locale) {
    ComparedGroup group{std::string(methods_caption.in(locale.lang)), {}};
    group.rows.push_back(
        row_of(std::string(methods_label.in(locale.lang)), {}, runs,
               [](const KeptRun& run) { return ComparedValue{method_names(run.c)}; }));
    group.rows.push_back(
        row_of(std::string(given_label.in(locale.lang)), {}, runs, [&](const KeptRun& run) {
            const auto given = static_cast<std::size_t>(given_value(run.c));
            return ComparedValue{std::string(given_value_rows()[given].text.in(locale.lang))};
        }));
    for (const ConfigGroup& options : config_groups())
        for (const auto& [field, setting] : setting_rows) {
            if (options.options.front().setting != setting) continue;
            const auto chosen = [&options, &locale, of = field](const KeptRun& run) {
                ComparedValue value;
                for (const ConfigOption& option : options.options)
                    if (option.value == run.c.*of)
                        value.text = without_outer_blanks(option.caption.in(locale.lang));
                return value;
            };
            group.rows.push_back(row_of(bare(options.caption.in(locale.lang)), {}, runs, chosen));
            group.rows.back().field = name_of(FieldKey(field));
        }
    return group;
}

/// The text of an input as its form shows it, with the number behind it.
ComparedValue input_of(const KeptRun& run, const forms::Row& row, const Locale& locale) {
    CalcCase c = without_derived_current(run.c);
    forget_emptied(c);
    const forms::LineForm form(c, locale);
    if (!form.state(row).needed || !form.state(row).open) return {};
    if (row.is_list()) {
        const auto chosen = static_cast<std::size_t>(form.chosen(row));
        return {std::string(row.choices[chosen].text.in(locale.lang))};
    }
    ComparedValue value{form.shown(row)};
    const auto* number = std::get_if<Entry CalcCase::*>(&key_of<CalcCase>(*row.field));
    if (number == nullptr) {
        const auto* whole = std::get_if<std::int16_t CalcCase::*>(&key_of<CalcCase>(*row.field));
        if (whole != nullptr && !value.text.empty()) value.number = c.**whole;
        return value;
    }
    const Entry& entry = c.**number;
    if (!entry.given() || (row.field->nothing_at_0 && entry.value == 0)) return {};
    value.number = entry.value;
    value.text = plain_number(entry.value, locale.separator);
    return value;
}

ComparedGroup inputs_of(const forms::Section& section, Runs runs, const Locale& locale) {
    ComparedGroup group{bare(section.caption.in(locale.lang)), {}};
    for (const forms::Row& row : section.rows) {
        // Groups fall away where only changes are told, so that the label has to stand alone.
        ComparedRow made = row_of(std::string(long_label_of(*row.field).in(locale.lang)),
                                  row.is_list() ? "" : long_unit_of(*row.field), runs,
                                  [&](const KeptRun& run) { return input_of(run, row, locale); });
        made.field = row.field->name;
        const bool given =
            std::any_of(made.values.begin(), made.values.end(),
                        [](const ComparedValue& value) { return !value.text.empty(); });
        if (given) group.rows.push_back(std::move(made));
    }
    return group;
}

std::vector<ComparedGroup> all_inputs(Runs runs, const Locale& locale) {
    std::vector<ComparedGroup> groups = {methods_and_settings(runs, locale)};
    for (const auto* sections : {&forms::input_sections(), &forms::conductor_sections()})
        for (const forms::Section& section : *sections) {
            ComparedGroup group = inputs_of(section, runs, locale);
            if (!group.rows.empty()) groups.push_back(std::move(group));
        }
    return groups;
}

}  // namespace

Comparison compare(Runs runs, ComparedInputs inputs, const Locale& locale) {
    Comparison comparison;
    if (runs.empty()) return comparison;
    for (const KeptRun* run : runs) comparison.names.push_back(run->name);
    comparison.groups.push_back(results(runs, locale));
    for (ComparedGroup& group : all_inputs(runs, locale)) {
        // What the work is about is told in any case.
        const auto stays = [&](const ComparedRow& row) {
            return row.differs || inputs == ComparedInputs::All || row.field == "Projekt_db" ||
                   row.field == "Bezeichnung1_db";
        };
        std::erase_if(group.rows, [&](const ComparedRow& row) { return !stays(row); });
        if (!group.rows.empty()) comparison.groups.push_back(std::move(group));
    }
    return comparison;
}

std::vector<ComparedRow> changed_inputs(Runs runs, const Locale& locale) {
    std::vector<ComparedRow> changed;
    if (runs.empty()) return changed;
    for (const ComparedGroup& group : all_inputs(runs, locale))
        for (const ComparedRow& row : group.rows)
            if (row.differs) changed.push_back(row);
    return changed;
}

std::vector<std::string> changed_names(const CalcCase& run, const CalcCase& now,
                                       const Locale& locale) {
    const KeptRun kept[] = {{{}, run, {}}, {{}, now, {}}};
    const KeptRun* const runs[] = {&kept[0], &kept[1]};
    std::vector<std::string> names;
    for (ComparedRow& row : changed_inputs(runs, locale)) names.push_back(std::move(row.label));
    return names;
}

}  // namespace zel
