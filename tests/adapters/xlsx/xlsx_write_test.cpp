#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/xlsx/packed.h"
#include "adapters/xlsx/xlsx_workbook.h"

// tests/data/xlsx.json holds rows with what is set and cleared in them and what becomes of them,
// and sheets whose formulas lose their values by a change.

namespace zel::xlsx {
namespace {

using nlohmann::json;
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

std::map<std::string, std::string> changed(const Parts& parts, int row, int column) {
    return changed(parts, [&](Workbook& w) { w.set_number(row, column, 1); });
}

constexpr const char* first_sheet = "xl/worksheets/first.xml";

void act(Workbook& workbook, const json& action) {
    const std::string verb = action[0];
    if (verb == "number")
        workbook.set_number(action[1], action[2], action[3]);
    else if (verb == "text")
        workbook.set_text(action[1], action[2], action[3].get<std::string>());
    else if (verb == "clear")
        workbook.clear({action[1], action[2], action[3], action[4]});
    else
        EXPECT_EQ(workbook.text(action[1], action[2]), action[3]) << action;
}

TEST(XlsxWrite, only_what_is_set_and_cleared_changes) {
    for (const json& edit : data().at("edits")) {
        const std::string before = edit.value("before", "");
        auto saved = changed(workbook_with(sheet_of(edit.at("rows"), before)), [&](Workbook& w) {
            for (const json& action : edit.at("do")) act(w, action);
        });
        EXPECT_EQ(saved[first_sheet], sheet_of(edit.at("becomes"), before)) << edit.at("name");
    }
}

TEST(XlsxWrite, the_area_in_use_grows) {
    for (const json& row : data().at("dimensions")) {
        const auto dimension = [&](const json& area) {
            return "<dimension ref=\"" + area.get<std::string>() + "\"/>";
        };
        const Parts parts = workbook_with(sheet_of("", dimension(row[0])));
        EXPECT_THAT(changed(parts, row[1], row[2])[first_sheet], HasSubstr(dimension(row[3])));
    }
}

TEST(XlsxWrite, an_empty_sheet_takes_its_first_cell) {
    const std::string head = xml_head + "<x:worksheet xmlns:x=\"m\">";
    EXPECT_EQ(
        changed(workbook_with(head + "<x:sheetData /><x:last/></x:worksheet>"), 1, 1)[first_sheet],
        head + "<x:sheetData ><x:row r=\"1\"><x:c r=\"A1\"><x:v>1</x:v></x:c></x:row>"
               "</x:sheetData><x:last/></x:worksheet>");
}

TEST(XlsxWrite, other_parts_keep_their_bytes) {
    const Parts parts = workbook_with(sheet_of("<row r=\"1\"/>"),
                                      {{"xl/charts/chart1.xml", std::string(5000, 'c')}});
    auto saved = changed(parts, 1, 1);
    EXPECT_EQ(saved.size(), parts.size());
    for (const auto& [part, content] : parts)
        EXPECT_EQ(saved[part] == content, part != first_sheet);
}

TEST(XlsxWrite, a_workbook_is_written_the_same_again) {
    std::string saved;
    auto workbook = open_xlsx("a.xlsx", packed(workbook_with(sheet_of("<row r=\"1\"/>"))),
                              [&](std::string_view bytes) { saved = bytes; });
    workbook->select("input");
    workbook->set_number(1, 1, 1);
    workbook->save();
    // The date of a part stands behind its signature, in its own head and in the list of all.
    constexpr std::string_view first_of_1980("\0\0\x21\0", 4);
    const std::size_t in_list = saved.rfind("PK\x01\x02", saved.rfind(first_sheet));
    EXPECT_EQ(saved.substr(in_list + 12, 4), first_of_1980);
    const std::size_t in_head = saved.rfind("PK\x03\x04", saved.find(first_sheet));
    EXPECT_EQ(saved.substr(in_head + 10, 4), first_of_1980);
}

TEST(XlsxWrite, other_bytes_of_the_workbook_part_stay) {
    for (const auto& [settings, becomes] :
         {std::pair{"<calcPr calcId='1' />\r\n", "<calcPr calcId='1' fullCalcOnLoad=\"1\" />\r\n"},
          {"<calcPr fullCalcOnLoad = '0'/>", "<calcPr fullCalcOnLoad = '1'/>"},
          {"<calcPr fullCalcOnLoad=\"true\"/>", "<calcPr fullCalcOnLoad=\"true\"/>"},
          {"", "<calcPr fullCalcOnLoad=\"1\"/>"}}) {
        Parts parts = workbook_with(sheet_of(R"(<row r="1"><c r="B1"><f>A1</f><v>2</v></c></row>)"),
                                    {}, {}, settings);
        std::string& workbook = parts[2].second;
        workbook.insert(xml_head.size(), "\r\n");
        std::string expected = workbook;
        const std::size_t at = expected.find("</sheets>") + 9;
        expected.replace(at, std::string_view(settings).size(), becomes);
        EXPECT_EQ(changed(parts, 1, 1)["xl/workbook.xml"], expected);
    }
}

TEST(XlsxWrite, an_overwritten_formula_leaves_the_calculation_chain) {
    const Parts parts = workbook_with(sheet_of(R"(<row r="1"><c r="A1"><f>1+1</f><v>2</v></c>)"
                                               R"(<c r="B1"><f>A1</f><v>2</v></c></row>)"),
                                      {{"xl/calcChain.xml", "<calcChain/>"}},
                                      link_to("rId8", "calcChain", "calcChain.xml"));
    auto saved = changed(parts, 1, 1);
    EXPECT_FALSE(saved.contains("xl/calcChain.xml"));
    EXPECT_THAT(saved["xl/_rels/workbook.xml.rels"], Not(HasSubstr("calcChain")));
    EXPECT_THAT(saved["xl/_rels/workbook.xml.rels"], HasSubstr("rId7"));
    EXPECT_THAT(saved["[Content_Types].xml"], Not(HasSubstr("calcChain")));
    EXPECT_THAT(saved[first_sheet], HasSubstr(R"(<c r="A1"><v>1</v></c>)"));
    saved = changed(parts, 1, 3);
    EXPECT_TRUE(saved.contains("xl/calcChain.xml"));
    EXPECT_THAT(saved["[Content_Types].xml"], HasSubstr("calcChain"));
}

TEST(XlsxWrite, part_of_an_array_formula_is_not_overwritten) {
    const Parts parts = workbook_with(
        sheet_of(R"(<row r="1"><c r="A1"><f t="array" ref="A1:A2">B1:B2</f><v>2</v></c></row>)"
                 R"(<row r="2"><c r="A2"><v>2</v></c></row>)"));
    try {
        changed(parts, 1, 1);
        FAIL();
    } catch (const WorkbookError& error) {
        EXPECT_EQ(error.fault(), WorkbookFault::Entwined);
        EXPECT_STREQ(error.what(),
                     "a.xlsx: input: the formula in A1 fills A1:A2, but A2 is not a cell for "
                     "results");
    }
    EXPECT_NO_THROW(changed(parts, [](Workbook& w) { w.clear({1, 1, 2, 1}); }));
}

TEST(XlsxWrite, a_formula_that_fills_no_area_is_a_damage) {
    const Parts parts = workbook_with(
        sheet_of(R"(<row r="1"><c r="A1"><f t="array" ref="A">B1</f><v>2</v></c></row>)"));
    EXPECT_THROW(changed(parts, 1, 1), WorkbookError);
}

std::string row_of(const std::string& cells) { return "<row r=\"1\">" + cells + "</row>"; }

TEST(StaleValues, are_those_of_formulas_that_depend_on_a_change) {
    for (const json& row : data().at("stale values")) {
        SCOPED_TRACE(row.at("name").get<std::string>());
        Parts parts =
            workbook_with(sheet_of(row_of(row.at("input"))),
                          {{"xl/worksheets/second.xml", sheet_of(row_of(row.at("summary")))}},
                          link_to("rId9", "worksheet", "worksheets/second.xml"),
                          row.value("names", "") + R"(<calcPr calcId="1"/>)");
        for (auto& [part, content] : parts)
            if (part == "xl/workbook.xml")
                content.insert(content.find("</sheets>"),
                               R"(<sheet name="summary" sheetId="2" r:id="rId9"/>)");
        auto saved = changed(parts, [&](Workbook& w) {
            if (row.contains("read column")) (void)w.text(1, row.at("read column"));
            w.set_number(1, 3, 7);
        });
        EXPECT_EQ(saved["xl/worksheets/second.xml"], sheet_of(row_of(row.at("becomes"))));
        if (row.contains("input becomes")) {
            EXPECT_EQ(saved[first_sheet], sheet_of(row_of(row.at("input becomes"))));
        }
        EXPECT_EQ(saved["xl/workbook.xml"].find(R"(<calcPr calcId="1" fullCalcOnLoad="1"/>)") !=
                      std::string::npos,
                  row.value("recalculated", true));
    }
}

}  // namespace
}  // namespace zel::xlsx
