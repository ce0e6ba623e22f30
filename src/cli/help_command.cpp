#include <cmath>
#include <nlohmann/json.hpp>

#include "cli/commands.h"
#include "series/series_input.h"
#include "short_circuit/entry.h"
#include "short_circuit/short_circuit_fields.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr const char* fields_notes =
    "\n"
    "Names both of the case files and, in plain English, of series and programs. An input of the\n"
    "kind \"derived\" is one of series only: it sets fields of the case.";

/// An input as a reader or a program is told of it.
struct InputRow {
    std::string_view area;  // "line", "short_circuit"
    std::string field;      // empty where it is derived
    std::string_view name;  // in English; may be empty
    std::string_view kind;
    std::string_view unit;
    Limits limits;
    Text sense;
    Text text;
};

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

std::vector<InputRow> inputs() {
    std::vector<InputRow> rows;
    for (const CaseField& field : case_fields())
        rows.push_back(row_of("line", std::string(field.name), field, series_limits_of(field)));
    CalcCase any;
    for (const FieldOf& field : fields_of(any))
        if (find_case_field(field.name) == nullptr)
            rows.push_back(row_of("line", field.name, *field.info, Limits()));
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

ordered_json both(const Text& text) { return {{"de", text.de}, {"en", text.in(LangId::English)}}; }

std::string document(const std::vector<InputRow>& rows) {
    ordered_json list = ordered_json::array();
    for (const InputRow& row : rows)
        list.push_back({{"area", row.area},
                        {"field", row.field},
                        {"name", row.name},
                        {"kind", row.kind},
                        {"unit", row.unit},
                        {"low", bound(row.limits.low)},
                        {"high", bound(row.limits.high)},
                        {"sign", both(row.sense)},
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

int tell_fields(const CommonOptions& words) {
    const std::vector<InputRow> rows = inputs();
    return print_or_fail(words.json ? document(rows) : printable(page(rows, words.lang)));
}

}  // namespace

void add_help(CommandLine& line) {
    CLI::App& help = line.add_group("help", "What the program reads and writes", "");
    const auto [command, words] = line.add<CommonOptions>(
        help, "fields", "The inputs by name, with kind, unit and range", tell_fields);
    add_json_option(command, words);
    add_language(command, words.lang, words.separator);
    command.footer(fields_notes);
}

}  // namespace zel
