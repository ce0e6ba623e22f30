#include "cli/help_fields.h"

#include <cmath>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "forms/line_form.h"
#include "series/series_input.h"
#include "short_circuit/entry.h"
#include "short_circuit/short_circuit_fields.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

/// An input as a reader or a program is told of it.
struct InputRow {
    std::string_view area;  // "line", "short_circuit"
    std::string field;      // empty where it is derived
    std::string_view name;  // in English; may be empty
    std::string_view kind;
    std::string_view unit;
    Limits limits;
    Text sense;
    Reason text;
    std::vector<std::string_view> read_by{};  // methods; empty where it is for none
};

/// The letters by which the formulas of the user guide know an input.
constexpr std::pair<std::string_view, std::string_view> symbols[] = {
    {"altitude", "y"},
    {"wind_speed", "V"},
    {"wind_angle", "δ"},
    {"air_temperature", "Ta"},
    {"global_radiation", "S"},
    {"frequency", "f"},
    {"emissivity", "ε"},
    {"absorptivity", "α"},
    {"conductor_current", "I"},
    {"conductor_temperature", "T"},
    {"diameter", "D"},
    {"dc_resistance", "R20"},
    {"wire_diameter", "d"},
    {"conductor_section", "A"},
    {"specific_heat", "c20"},
    {"resistance_coefficient", "α20"},
    {"core_diameter", "Dc"},
    {"Frequenz_ks", "f"},
    {"Ith", "I_th"},
    {"T_k", "T_k"},
    {"IK2", "Ik''"},
    {"IK", "Ik"},
    {"Kappa", "κ"},
    {"Ithr", "I_thr"},
    {"Tkr", "T_kr"},
    {"theta_b", "θb"},
    {"theta_e", "θe"},
    {"A_Leiter", "A"},
    {"waermekapaz", "c"},
    {"kappa20_ks", "κ20"},
    {"Tk20_ks", "α20"},
    {"Dichte_rho", "ρ"},
};

std::string_view symbol_of(const InputRow& row) {
    const bool of_line = row.area == "line" && !row.name.empty();
    for (const auto& [name, symbol] : symbols)
        if (name == (of_line ? row.name : std::string_view(row.field))) return symbol;
    return {};
}

/// What a flag says that no form names.
constexpr struct {
    FieldKey flag;
    Text text;
} flag_texts[] = {
    {&CalcCase::Leitertemp_Merker_db,
     {"-1: die Leitertemperatur ist gegeben", "-1: the conductor temperature is given"}},
    {&CalcCase::Stromstaerke_Merker_db,
     {"-1: die Stromstärke ist gegeben", "-1: the current is given"}},
    {&CalcCase::Stromstaerkebuendel_Merker_db,
     {"-1: die Stromstärke des Bündels ist gegeben", "-1: the current of the bundle is given"}},
    {&CalcCase::Umgebungstemperaturmerker_db,
     {"1: die Tabelle stuft die Umgebungstemperatur",
      "1: the table steps the ambient temperature"}},
    {&CalcCase::Umgebtemp_merker1_db,
     {"folgt der Stufung der Tabelle", "follows what the table steps"}},
    {&CalcCase::Umgebtemp_merker2_db,
     {"folgt der Stufung der Tabelle", "follows what the table steps"}},
    {&CalcCase::Globalstrahlung_Merker_db,
     {"wie die Globalstrahlung gegeben ist", "how the global radiation is given"}},
};

Reason text_of(const CaseField& field) {
    for (const Method method : all_methods)
        if (field_of(flag_of(method)).name == field.name)
            return {Text{"1: Berechnung nach {0}", "1: calculate by {0}"}, {name_of(method)}};
    for (const auto& row : flag_texts)
        if (field_of(row.flag).name == field.name) return row.text;
    return long_label_of(field);
}

std::string_view kind_of(const FieldInfo& field) {
    switch (field.kind) {
        case FieldKind::Text: return "text";
        case FieldKind::Number:
        case FieldKind::Single: return "number";
        case FieldKind::Whole: return "whole";
        case FieldKind::List: return "list";
        case FieldKind::Flag: break;
    }
    return "flag";
}

InputRow row_of(std::string_view area, const std::string& name, const FieldInfo& field,
                const Limits& limits) {
    return {area,
            name,
            field.english_name,
            kind_of(field),
            field.unit_in(LangId::English),
            limits,
            sense_of(field.english_name),
            long_label_of(field)};
}

/// The methods that read a field of the form; none where it only names something.
std::vector<std::string_view> readers_of(const CaseField& field) {
    std::vector<std::string_view> readers;
    for (const forms::Section& section : forms::line_sections())
        for (const forms::Row& row : section.rows)
            if (row.field == &field && field.kind != FieldKind::Text)
                for (const Method method : all_methods)
                    if ((row.read_by & methods(method)) != 0) readers.push_back(key_of(method));
    return readers;
}

std::vector<InputRow> inputs() {
    std::vector<InputRow> rows;
    for (const CaseField& field : case_fields()) {
        rows.push_back(row_of("line", std::string(field.name), field, series_limits_of(field)));
        rows.back().text = text_of(field);
        rows.back().read_by = readers_of(field);
    }
    for (std::size_t row = 0; row < state_change_count; ++row) {
        const auto add = [&](StateCell cell) {
            const FieldInfo& input = forms::transient_input(row, cell);
            rows.push_back(row_of("line", std::string(input.name), input, Limits()));
            if (cell == nullptr) rows.back().kind = "whole";
        };
        add(nullptr);
        for (const StateCell cell : state_cells) add(cell);
    }
    for (const DerivedInput& input : derived_inputs())
        rows.push_back({"line",
                        {},
                        input.name,
                        "derived",
                        input.unit,
                        input.limits,
                        sense_of(input.name),
                        input.about});
    for (const auto& field : short_circuit_fields()) {
        const auto* const number = std::get_if<NumberKey>(&field.key);
        rows.push_back(row_of("short_circuit", std::string(field.name), field,
                              number != nullptr ? limits_of(*number) : Limits()));
    }
    return rows;
}

ordered_json bound(double limit) {
    return std::isfinite(limit) ? ordered_json(limit) : ordered_json(nullptr);
}

template <class Words>
ordered_json both(const Words& words) {
    return {{"de", words.in(LangId::German)}, {"en", words.in(LangId::English)}};
}

std::string document(const std::vector<InputRow>& rows) {
    ordered_json list = ordered_json::array();
    for (const InputRow& row : rows)
        list.push_back({{"area", row.area},
                        {"field", row.field},
                        {"name", row.name},
                        {"symbol", symbol_of(row)},
                        {"kind", row.kind},
                        {"unit", row.unit},
                        {"low", bound(row.limits.low)},
                        {"high", bound(row.limits.high)},
                        {"sign", both(row.sense)},
                        {"read_by", row.read_by},
                        {"text", both(row.text)}});
    return json_text({{"fields", list}});
}

std::string range_of(const Limits& limits) {
    if (!std::isfinite(limits.low) && !std::isfinite(limits.high)) return {};
    const auto shown = [](double limit) {
        return std::isfinite(limit) ? exact_number(limit) : std::string();
    };
    return shown(limits.low) + ".." + shown(limits.high);
}

std::string padded(std::string_view text, std::size_t width) {
    return std::string(text) + std::string(width - std::min(width, width_of(text)), ' ') + "  ";
}

std::string page(const std::vector<InputRow>& rows, LangId lang) {
    using Cells = std::array<std::string, 6>;
    std::vector<Cells> lines;
    for (const InputRow& row : rows) {
        std::string text(row.text.in(lang));
        // What is derived says it in its text.
        const std::string sense = "(" + std::string(row.sense.in(lang)) + ")";
        if (!row.sense.de.empty() && !row.field.empty() && text.find(sense) == std::string::npos)
            text += " " + sense;
        lines.push_back({std::string(row.name), row.field, std::string(row.kind),
                         std::string(row.unit), range_of(row.limits), text});
    }
    Cells::size_type last = std::tuple_size_v<Cells> - 1;
    std::array<std::size_t, std::tuple_size_v<Cells>> widths{};
    for (const Cells& line : lines)
        for (std::size_t i = 0; i < line.size(); ++i)
            widths[i] = std::max(widths[i], width_of(line[i]));
    std::string page;
    for (const Cells& line : lines) {
        for (std::size_t i = 0; i < last; ++i) page += padded(line[i], widths[i]);
        page += line[last] + "\n";
    }
    return page;
}

}  // namespace

int tell_fields(const CommonOptions& words) {
    const std::vector<InputRow> rows = inputs();
    return print_or_fail(words.json ? document(rows) : printable(page(rows, words.lang)));
}

}  // namespace zel
