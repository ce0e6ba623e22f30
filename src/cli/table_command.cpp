#include <algorithm>
#include <nlohmann/json.hpp>

#include "cli/case_output.h"
#include "cli/range_calculation.h"
#include "persistence/sheet_file.h"
#include "program/case_source.h"
#include "program/stores.h"
#include "shell/case_settings.h"
#include "tables_graphs/parameter_table.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr const char* table_notes =
    "\n"
    "Where the case gives the conductor temperature, the table has currents over\n"
    "Temp_min_db to Temp_max_db in steps of Schrittweite_Temp_db: of the conductor, or\n"
    "with Umgebungstemperaturmerker_db 1 of the ambient air. Where it gives the current,\n"
    "the table has temperatures over Strom_min_db to Strom_max_db in steps of\n"
    "Schrittweite_Strom_db. Wind1_db to Wind6_db are the wind speeds of its columns.\n"
    "\n"
    "See examples/table-264-34.json. Messages are as of \"zel steady\". A cell stays empty\n"
    "where a method found nothing; the exit status is 1 then.\n";

struct TableWords : CaseWords {
    std::string path{};  // where the table goes; empty for standard output
};

class TableCommand : public RangeCalculation {
public:
    explicit TableCommand(const TableWords& words) : RangeCalculation(words), path_(words.path) {
        if (!path_.empty()) refuse_sheet_ending(path_);
    }

private:
    bool find() override {
        table_ = *calculate_table(calc_case(), session());
        if (!path_.empty()) {
            XlsxStore workbooks;
            PosixFiles files;
            write_sheet(table_sheet(table_, words()), path_, workbooks, files, words().separator);
        }
        return table_.complete();
    }

    [[nodiscard]] std::string document(std::string_view program_end) const override {
        ordered_json rows = ordered_json::array();
        for (std::size_t step = 0; step < table_.steps.size(); ++step) {
            ordered_json cells = ordered_json::object();
            for (std::size_t method = 0; method < table_.methods.size(); ++method) {
                ordered_json& row = cells[key_of(table_.methods[method])] = ordered_json::array();
                for (std::size_t wind = 0; wind < table_.winds.size(); ++wind) {
                    const auto& cell = table_.at(step, wind, method);
                    row.push_back(cell ? ordered_json(shown(cell)) : ordered_json(nullptr));
                }
            }
            rows.push_back({{"value", table_.steps[step]}, {"cells", std::move(cells)}});
        }
        ordered_json document = {
            {"kind", table_.stepped == Stepped::Current ? "temperature" : "current"},
            {"title", table_title(table_.stepped).in(words().lang)},
            {"winds_m_s", table_.winds},
            {"rows", std::move(rows)},
            {"notes", json_of(notes())},
            {"messages", json_of(messages())}};
        if (!program_end.empty()) document["program_end"] = program_end;
        return json_text(document);
    }

    [[nodiscard]] std::string page() const override {
        std::string text = std::string(table_title(table_.stepped).in(words().lang)) + "\n";
        for (std::size_t method = 0; method < table_.methods.size(); ++method)
            text += "\n" + block(method);
        return text + notes_text(notes(), words().lang);
    }

    /// The rows of one method.
    [[nodiscard]] std::string block(std::size_t method) const {
        const std::string label(step_label(table_.stepped).in(words().lang));
        const std::size_t width = width_of(label);
        std::string text = std::string(name_of(table_.methods[method])) + "\n" + label;
        for (const double wind : table_.winds)
            text += right(plain_number(wind, words().separator) + " m/s", wind_width);
        text += "\n";
        for (std::size_t step = 0; step < table_.steps.size(); ++step) {
            text += right(plain_number(table_.steps[step], words().separator), width);
            for (std::size_t wind = 0; wind < table_.winds.size(); ++wind) {
                const auto& cell = table_.at(step, wind, method);
                text += right(cell ? shown(cell) : "-", wind_width);
            }
            text += "\n";
        }
        return text;
    }

    [[nodiscard]] std::string shown(const std::optional<double>& cell) const {
        return cell_text(cell, table_.stepped, words().separator);
    }
    static std::string right(const std::string& text, std::size_t width) {
        return std::string(width - std::min(width, width_of(text)), ' ') + text;
    }

    static constexpr std::size_t wind_width = 10;
    const std::string& path_;
    ParameterTable table_;
};

}  // namespace

void add_table(CommandLine& line) {
    const auto [command, words] =
        line.add<TableWords>("table", "Rate a case over a range: the parameter table",
                             [](const TableWords& given) { return TableCommand(given).run(); });
    add_case_word(command, words);
    command.add_option("-o", words.path, "Write the table into a file too")
        ->option_text("FILE.xlsx|FILE.csv");
    add_case_options(command, words, table_notes);
    add_conductor_option(command, words);
}

}  // namespace zel
