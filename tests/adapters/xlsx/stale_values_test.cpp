#include "adapters/xlsx/stale_values.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/xlsx/formula_reads.h"
#include "adapters/xlsx/packed.h"
#include "adapters/xlsx/xlsx_workbook.h"

namespace zel::xlsx {
namespace {

using testing::HasSubstr;
using testing::Not;

/// "A:B sheet!C:C name ?" of what a formula reads.
std::string told(const FormulaReads& reads) {
    std::string text;
    for (const auto& [sheet, first, last, first_moves, last_moves] : reads.columns) {
        if (!text.empty()) text += ' ';
        if (!sheet.empty()) text += sheet + "!";
        text += std::to_string(first) + (first_moves ? ">" : "");
        if (last != first) text += "-" + std::to_string(last) + (last_moves ? ">" : "");
    }
    for (const std::string& name : reads.names) text += (text.empty() ? "" : " ") + name;
    return reads.anything ? text + "?" : text;
}

TEST(FormulaReads, references_are_told_from_other_words) {
    constexpr std::pair<const char*, const char*> formulas[] = {
        {"AH5*2+1E-3", "34>"},
        {"$AH$5+AH$6", "34 34>"},
        {"SUM(A1:B$2,$C:$C)", "1>-2> 3"},
        {"SUM(D7:B7)", "2>-4>"},
        {"5:7", "1-16384"},
        {"'my sheet''s'!A1&\"B2 'C3'!\"\"D4\"", "my sheet's!1>"},
        {"Summary!A1-B1", "Summary!1> 2>"},
        {"Summary!A1:C1", "Summary!1>-3>"},
        {"LOG10(A1)+ROUND(tax,2)*TRUE", "1> tax"},
        {"[1]Other!A1+'[2]Far sheet'!B2+C3", "3>"},
        {"Table1[wind]", "Table1?"},
        {"INDIRECT(\"A1\")", "?"},
        {"Winter:Sommer!A1", "1> Winter?"},
        {"1.5%", ""},
        {"\"AH5\"", ""},
    };
    for (const auto& [formula, reads] : formulas) {
        const std::string got = told(reads_of_formula(formula));
        if (std::string(formula).starts_with("Winter"))
            EXPECT_THAT(got, HasSubstr("?")) << formula;
        else
            EXPECT_EQ(got, reads) << formula;
    }
}

/// The sheets of a workbook of "input" and "summary" after a number is set in column C of "input".
struct Saved {
    std::string input;
    std::string summary;
    std::string workbook;
};

Saved after_change(const std::string& input_rows, const std::string& summary_rows,
                   const std::string& names = {}, int read_column = 0) {
    Parts parts =
        workbook_with(sheet_of(input_rows), {{"xl/worksheets/second.xml", sheet_of(summary_rows)}},
                      R"(<Relationship Id="rId9" Type=")" + relation +
                          R"(/worksheet" Target="worksheets/second.xml"/>)",
                      names + R"(<calcPr calcId="1"/>)");
    for (auto& [part, content] : parts)
        if (part == "xl/workbook.xml")
            content.insert(content.find("</sheets>"),
                           R"(<sheet name="summary" sheetId="2" r:id="rId9"/>)");
    std::string saved;
    auto workbook =
        open_xlsx("a.xlsx", packed(parts), [&](std::string_view bytes) { saved = bytes; });
    workbook->select("input");
    if (read_column != 0) (void)workbook->text(1, read_column);
    workbook->set_number(1, 3, 7);
    workbook->save();
    auto contents = unpacked(saved);
    return {contents["xl/worksheets/first.xml"], contents["xl/worksheets/second.xml"],
            contents["xl/workbook.xml"]};
}

std::string formula_cell(const char* name, const char* formula) {
    return std::string("<c r=\"") + name + "\" s=\"2\"><f>" + formula + "</f><v>1</v></c>";
}

std::string valueless_cell(const char* name, const char* formula) {
    return std::string("<c r=\"") + name + "\" s=\"2\"><f>" + formula + "</f></c>";
}

std::string row_of(const std::string& cells) { return "<row r=\"1\">" + cells + "</row>"; }

TEST(StaleValues, formulas_that_depend_on_a_change_lose_their_value) {
    const Saved saved = after_change(
        row_of(formula_cell("A1", "B1+1") + formula_cell("E1", "C1*2") + formula_cell("F1", "E1")),
        row_of(formula_cell("A1", "SUM(input!B1:D9)") + formula_cell("B1", "input!A1") +
               formula_cell("C1", "A1") + formula_cell("D1", "B1")));
    EXPECT_THAT(saved.input, HasSubstr(formula_cell("A1", "B1+1")));
    EXPECT_THAT(saved.input, HasSubstr(valueless_cell("E1", "C1*2")));
    EXPECT_THAT(saved.input, HasSubstr(valueless_cell("F1", "E1")));
    EXPECT_THAT(saved.input, HasSubstr("<c r=\"C1\"><v>7</v></c>"));
    EXPECT_EQ(
        saved.summary,
        sheet_of(row_of(valueless_cell("A1", "SUM(input!B1:D9)") + formula_cell("B1", "input!A1") +
                        valueless_cell("C1", "A1") + formula_cell("D1", "B1"))));
    EXPECT_THAT(saved.workbook, HasSubstr(R"(<calcPr calcId="1" fullCalcOnLoad="1"/>)"));
}

TEST(StaleValues, other_formulas_keep_every_byte) {
    const std::string summary = row_of(formula_cell("A1", "input!A1*NOW()") + "<c r='B1' />");
    const Saved saved = after_change(row_of(formula_cell("A1", "B1")), summary);
    EXPECT_EQ(saved.summary, sheet_of(summary));
    EXPECT_THAT(saved.workbook, Not(HasSubstr("fullCalcOnLoad")));
}

TEST(StaleValues, names_and_parts_of_tables_count) {
    const Saved saved =
        after_change(row_of("<c r=\"A1\"/>"),
                     row_of(formula_cell("A1", "results") + formula_cell("B1", "constant") +
                            formula_cell("C1", "Table1[x]")),
                     "<definedNames><definedName name=\"Results\">input!$C$1:$C$9</definedName>"
                     "<definedName name=\"constant\">3.5</definedName></definedNames>");
    EXPECT_THAT(saved.summary, HasSubstr(valueless_cell("A1", "results")));
    EXPECT_THAT(saved.summary, HasSubstr(formula_cell("B1", "constant")));
    EXPECT_THAT(saved.summary, HasSubstr(valueless_cell("C1", "Table1[x]")));
}

TEST(StaleValues, copies_of_a_formula_move_its_columns) {
    const std::string shared =
        "<c r=\"A1\"><f t=\"shared\" ref=\"A1:B1\" si=\"0\">input!B1+input!$E1</f><v>1</v></c>"
        "<c r=\"B1\"><f t=\"shared\" si=\"0\"/><v>1</v></c>";
    const Saved saved = after_change(row_of("<c r=\"A1\"/>"), row_of(shared));
    EXPECT_THAT(saved.summary, HasSubstr("input!$E1</f><v>1</v>"));
    EXPECT_THAT(saved.summary, HasSubstr("<c r=\"B1\"><f t=\"shared\" si=\"0\"/></c>"));
}

TEST(StaleValues, what_the_program_reads_keeps_its_value) {
    const std::string rows = row_of(formula_cell("A1", "Table1[wind]"));
    EXPECT_THAT(after_change(rows, "").input, HasSubstr(valueless_cell("A1", "Table1[wind]")));
    EXPECT_THAT(after_change(rows, "", {}, 1).input, HasSubstr(formula_cell("A1", "Table1[wind]")));
}

}  // namespace
}  // namespace zel::xlsx
