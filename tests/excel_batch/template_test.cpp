#include "excel_batch/batch_fixture.h"
#include "fakes/test_data.h"

// tests/data/workbook_templates.json holds the templates line by line: each cell with its place,
// its look and its content in both languages, then the rules, then the widths of columns.

namespace zel::excel_batch {
namespace {

using nlohmann::json;

constexpr std::pair<const char*, WorkbookKind> all_kinds[] = {
    {"steady-fix", WorkbookKind::SteadyFix},
    {"steady-var", WorkbookKind::SteadyVar},
    {"transient", WorkbookKind::Transient}};

std::string text_of(const DesignCell& cell) {
    if (const auto* number = std::get_if<double>(&cell.content))
        return plain_number(*number, DecimalSeparator::Comma);
    const auto* text = std::get_if<std::string>(&cell.content);
    return text == nullptr ? "-" : "\"" + *text + "\"";
}

template <class... Number>
std::string line_of(Number... numbers) {
    return ((plain_number(static_cast<double>(numbers), DecimalSeparator::Comma) + " ") + ...);
}

std::vector<std::string> lines_of(const SheetDesign& german, const SheetDesign& english) {
    constexpr const char* looks[] = {"plain", "title", "heading",      "label",       "note",
                                     "input", "head",  "whole result", "tenth result"};
    const auto look_of = [&](CellLook look) { return looks[static_cast<std::size_t>(look)]; };
    std::vector<std::string> lines = {german.name + " fixed " +
                                      line_of(german.fixed_rows, german.fixed_columns)};
    for (std::size_t i = 0; i < german.cells.size(); ++i) {
        const DesignCell& cell = german.cells[i];
        lines.push_back(line_of(cell.row, cell.column) + look_of(cell.look) + ": " + text_of(cell) +
                        " " + text_of(english.cells.at(i)));
    }
    for (const auto& [area, low, high, whole] : german.rules)
        lines.push_back(
            "rule " +
            line_of(area.first_row, area.first_column, area.last_row, area.last_column, low, high) +
            (whole ? "whole" : "any"));
    for (const auto& [first, last, width, look] : german.columns)
        lines.push_back("columns " + line_of(first, last, width) + look_of(look));
    return lines;
}

TEST(Templates, have_the_cells_and_rules_of_the_data) {
    const json data = test_data("workbook_templates");
    for (const auto& [name, kind] : all_kinds) {
        const WorkbookDesign german = template_design(kind, LangId::German, {});
        const WorkbookDesign english = template_design(kind, LangId::English, {});
        std::vector<std::string> lines = {template_title(kind, LangId::German) + " / " +
                                          template_title(kind, LangId::English)};
        for (std::size_t i = 0; i < german.size(); ++i)
            for (std::string& line : lines_of(german[i], english.at(i))) lines.push_back(line);
        EXPECT_EQ(lines, data.at(name).get<std::vector<std::string>>());
    }
}

TEST_F(Batch, a_filled_template_with_a_conductor_runs) {
    const CalcCase line = line_of_all_methods();
    for (const WorkbookKind wanted : {WorkbookKind::SteadyFix, WorkbookKind::SteadyVar}) {
        start(wanted, line);
        const MemorySheets typed_in = workbook();
        add_row(line);
        const MemorySheets with_row = workbook();
        // The same conductor comes with the template.
        workbook() = cells_of(template_design(wanted, LangId::German, line));
        const auto missing = [](MemorySheet& to, const MemorySheet& from) {
            for (const auto& [place, content] : from) to.try_emplace(place, content);
        };
        missing(fixed(), typed_in.at("fixed_input"));
        missing(rows(), with_row.at("variable_input_result"));
        ASSERT_EQ(run().end, BatchEnd::Done);
        EXPECT_EQ(result(5, wanted == WorkbookKind::SteadyFix ? 34 : 72), "1300");
    }
}

TEST(Templates, leave_a_code_that_is_no_choice_empty) {
    CalcCase c;
    c.conductor_type_db = 5;
    MemorySheets sheets = cells_of(template_design(WorkbookKind::SteadyFix, LangId::English, c));
    EXPECT_EQ(zel::text_of(sheets["fixed_input"], 54, 3), "");
    EXPECT_EQ(zel::text_of(sheets["fixed_input"], 58, 3), "0");
}

}  // namespace
}  // namespace zel::excel_batch
