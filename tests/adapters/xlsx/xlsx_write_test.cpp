#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/xlsx/packed.h"
#include "adapters/xlsx/xlsx_workbook.h"

namespace zel::xlsx {
namespace {

using testing::HasSubstr;
using testing::Not;

/// The parts of `parts` after `change`.
template <class Change>
std::map<std::string, std::string> changed(const Parts& parts, Change change) {
    std::string saved;
    auto workbook =
        open_xlsx("a.xlsx", packed(parts), [&](std::string_view bytes) { saved = bytes; });
    workbook->select("input");
    change(*workbook);
    workbook->save();
    return unpacked(saved);
}

template <class Change>
std::string changed_rows(const std::string& rows, Change change, const std::string& before = {}) {
    const std::string sheet =
        changed(workbook_with(sheet_of(rows, before)), change)["xl/worksheets/first.xml"];
    const std::string begin = "<sheetData>";
    const std::size_t from = sheet.find(begin) + begin.size();
    return sheet.substr(from, sheet.find("</sheetData>") - from);
}

TEST(XlsxWrite, only_the_bytes_of_set_cells_change) {
    const std::string rows = R"(<row r="1" spans="1:3" ht='15'><c r='A1'  s="1"><v>1.50</v></c>
        <c r="B1" s="7" t="s"><v>0</v></c><c r="C1"><f>A1*2</f><v>3</v></c></row><row r="2"/>)";
    const std::string edited = changed_rows(rows, [](Workbook& w) { w.set_number(1, 2, 80.1); });
    EXPECT_EQ(edited, R"(<row r="1" ht='15'><c r='A1'  s="1"><v>1.50</v></c>
        <c r="B1" s="7"><v>80.1</v></c><c r="C1"><f>A1*2</f><v>3</v></c></row><row r="2"/>)");
}

TEST(XlsxWrite, new_cells_and_rows_stand_in_order) {
    const std::string edited = changed_rows(
        R"(<row r="2"><c r="B2"><v>1</v></c><c r="D2"/></row><row r="5"/>)", [](Workbook& w) {
            w.set_number(2, 5, 1305);
            w.set_number(2, 1, 1);
            w.set_text(2, 3, "a & b");
            w.set_number(1, 1, -0.25);
            w.set_number(5, 2, 5);
            w.set_number(4, 27, 4);
            w.set_number(9, 1, 9);
        });
    EXPECT_EQ(edited,
              R"(<row r="1"><c r="A1"><v>-0.25</v></c></row>)"
              R"(<row r="2"><c r="A2"><v>1</v></c><c r="B2"><v>1</v></c>)"
              R"(<c r="C2" t="inlineStr"><is><t xml:space="preserve">a &amp; b</t></is></c>)"
              R"(<c r="D2"/><c r="E2"><v>1305</v></c></row>)"
              R"(<row r="4"><c r="AA4"><v>4</v></c></row>)"
              R"(<row r="5"><c r="B5"><v>5</v></c></row><row r="9"><c r="A9"><v>9</v></c></row>)");
}

TEST(XlsxWrite, cleared_cells_keep_their_format) {
    const std::string rows =
        R"(<row r="5"><c r="A5" s="3"><v>1</v></c><c r="B5" s="3"><v>1</v></c><c r="C5" s="3"/>)"
        R"(<c r="D5" t="inlineStr"><is><t>Error</t></is></c><c r="E5"><v>1</v></c></row>)"
        R"(<row r="6"><c r="E6"><v>1</v></c></row><row r="8"><c r="B8"><v>8</v></c></row>)";
    const std::string edited = changed_rows(rows, [](Workbook& w) {
        w.set_number(5, 4, 7);
        w.clear({5, 2, 7, 4});
        w.set_number(5, 3, 2);
        EXPECT_EQ(w.text(5, 1), "1");
        EXPECT_EQ(w.text(5, 2), "");
        EXPECT_EQ(w.text(5, 3), "2");
        EXPECT_EQ(w.text(5, 4), "");
    });
    EXPECT_EQ(edited,
              R"(<row r="5"><c r="A5" s="3"><v>1</v></c><c r="B5" s="3"/>)"
              R"(<c r="C5" s="3"><v>2</v></c><c r="D5"/><c r="E5"><v>1</v></c></row>)"
              R"(<row r="6"><c r="E6"><v>1</v></c></row><row r="8"><c r="B8"><v>8</v></c></row>)");
}

TEST(XlsxWrite, new_cells_take_the_format_of_their_row_or_column) {
    const std::string cols = R"(<cols><col min="2" max="3" width="9" style="4"/></cols>)";
    const std::string edited =
        changed_rows(R"(<row r="1" s="6" customFormat="1"/><row r="2" s="6"/>)",
                     [](Workbook& w) {
                         for (int row = 1; row <= 3; ++row) w.set_number(row, 3, 1);
                         w.set_number(2, 4, 1);
                     },
                     cols);
    EXPECT_EQ(edited, R"(<row r="1" s="6" customFormat="1"><c r="C1" s="6"><v>1</v></c></row>)"
                      R"(<row r="2" s="6"><c r="C2" s="4"><v>1</v></c><c r="D2"><v>1</v></c></row>)"
                      R"(<row r="3"><c r="C3" s="4"><v>1</v></c></row>)");
}

TEST(XlsxWrite, the_area_in_use_grows) {
    const std::string sheet = changed(
        workbook_with(sheet_of(R"(<row r="2"><c r="B2"/></row>)", R"(<dimension ref="B2:C4"/>)")),
        [](Workbook& w) { w.set_number(9, 34, 1); })["xl/worksheets/first.xml"];
    EXPECT_THAT(sheet, HasSubstr(R"(<dimension ref="B2:AH9"/>)"));
}

TEST(XlsxWrite, an_empty_sheet_takes_its_first_cell) {
    const std::string sheet =
        changed(workbook_with(xml_head + "<x:worksheet xmlns:x=\"m\"><x:sheetData /><x:last/>"
                                         "</x:worksheet>"),
                [](Workbook& w) { w.set_number(1, 1, 1); })["xl/worksheets/first.xml"];
    EXPECT_EQ(sheet, xml_head + "<x:worksheet xmlns:x=\"m\"><x:sheetData >"
                                "<x:row r=\"1\"><x:c r=\"A1\"><x:v>1</x:v></x:c></x:row>"
                                "</x:sheetData><x:last/></x:worksheet>");
}

TEST(XlsxWrite, other_parts_keep_their_bytes) {
    const std::string chart(5000, 'c');
    const Parts parts =
        workbook_with(sheet_of("<row r=\"1\"/>"), {{"xl/charts/chart1.xml", chart}});
    auto saved = changed(parts, [](Workbook& w) { w.set_number(1, 1, 1); });
    EXPECT_EQ(saved.size(), parts.size());
    for (const auto& [part, content] : parts)
        if (part != "xl/worksheets/first.xml") {
            EXPECT_EQ(saved[part], content) << part;
        }
}

TEST(XlsxWrite, a_sheet_without_changes_keeps_its_bytes) {
    const std::string sheet = sheet_of("<row r='1' ><c r='A1' ><v>1</v></c ></row >");
    auto saved = changed(workbook_with(sheet), [](Workbook& w) {
        EXPECT_EQ(w.text(1, 1), "1");
        w.clear({5, 1, 100, 16384});
    });
    EXPECT_EQ(saved["xl/worksheets/first.xml"], sheet);
}

constexpr const char* chained_rows =
    R"(<row r="1"><c r="A1"><f>1+1</f><v>2</v></c><c r="B1"><f>A1</f><v>2</v></c></row>)";

TEST(XlsxWrite, an_overwritten_formula_leaves_the_calculation_chain) {
    const std::string link =
        R"(<Relationship Id="rId8" Type=")" + relation + R"(/calcChain" Target="calcChain.xml"/>)";
    const Parts parts =
        workbook_with(sheet_of(chained_rows), {{"xl/calcChain.xml", "<calcChain/>"}}, link);
    auto saved = changed(parts, [](Workbook& w) { w.set_number(1, 1, 3); });
    EXPECT_FALSE(saved.contains("xl/calcChain.xml"));
    EXPECT_THAT(saved["xl/_rels/workbook.xml.rels"], Not(HasSubstr("calcChain")));
    EXPECT_THAT(saved["xl/_rels/workbook.xml.rels"], HasSubstr("rId7"));
    EXPECT_THAT(saved["[Content_Types].xml"], Not(HasSubstr("calcChain")));
    EXPECT_THAT(saved["xl/worksheets/first.xml"], HasSubstr(R"(<c r="A1"><v>3</v></c>)"));

    saved = changed(parts, [](Workbook& w) { w.set_number(1, 3, 3); });
    EXPECT_TRUE(saved.contains("xl/calcChain.xml"));
    EXPECT_THAT(saved["[Content_Types].xml"], HasSubstr("calcChain"));
}

TEST(XlsxWrite, part_of_an_array_formula_is_not_overwritten) {
    const Parts parts = workbook_with(
        sheet_of(R"(<row r="1"><c r="A1"><f t="array" ref="A1:A2">B1:B2</f><v>2</v></c></row>)"
                 R"(<row r="2"><c r="A2"><v>2</v></c></row>)"));
    bool written = false;
    const auto open = [&] {
        auto workbook =
            open_xlsx("a.xlsx", packed(parts), [&](std::string_view) { written = true; });
        workbook->select("input");
        return workbook;
    };
    auto half = open();
    half->set_number(1, 1, 1);
    try {
        half->save();
        FAIL();
    } catch (const WorkbookError& error) {
        EXPECT_EQ(error.fault(), WorkbookFault::Entwined);
        EXPECT_STREQ(error.what(),
                     "a.xlsx: input: the formula in A1 fills A1:A2, but A2 is not a cell for "
                     "results");
    }
    EXPECT_FALSE(written);
    auto whole = open();
    whole->clear({1, 1, 2, 1});
    whole->save();
    EXPECT_TRUE(written);
}

}  // namespace
}  // namespace zel::xlsx
