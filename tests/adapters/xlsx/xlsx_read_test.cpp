#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/xlsx/cell_name.h"
#include "adapters/xlsx/cell_texts.h"
#include "adapters/xlsx/packed.h"
#include "adapters/xlsx/xlsx_workbook.h"

namespace zel::xlsx {
namespace {

std::unique_ptr<Workbook> opened(const Parts& parts) {
    auto workbook = open_xlsx("a.xlsx", packed(parts), [](std::string_view) {});
    workbook->select("input");
    return workbook;
}

std::string text_of_cell(const std::string& cell, const Parts& more = {},
                         const std::string& relationships = {}) {
    return opened(workbook_with(sheet_of("<row r=\"5\">" + cell + "</row>"), more, relationships))
        ->text(5, 3);
}

struct WrittenCell {
    const char* xml;
    const char* text;
};

TEST(XlsxRead, each_kind_of_cell_gives_its_text) {
    constexpr WrittenCell cells[] = {
        {R"(<c r="C5"/>)", ""},
        {R"(<c r="D5"><v>1</v></c>)", ""},
        {R"(<c r="C5"><v>0.5</v></c>)", "0,5"},
        {R"(<c r="C5" t="n"><v>1.0</v></c>)", "1"},
        {R"(<c r="C5"><v>-12.25</v></c>)", "-12,25"},
        {R"(<c r="C5"><v>0.30000000000000004</v></c>)", "0,3"},
        {R"(<c r="C5"><v>1E-3</v></c>)", "0,001"},
        {R"(<c r="C5"><v></v></c>)", ""},
        {R"(<c r="C5" t="b"><v>1</v></c>)", "TRUE"},
        {R"(<c r="C5" t="b"><v>0</v></c>)", "FALSE"},
        {R"(<c r="C5" t="e"><v>#N/A</v></c>)", "#N/A"},
        {R"(<c r="C5" t="str"><f>"0"&amp;".5"</f><v>0.5</v></c>)", "0.5"},
        {R"(<c r="C5"><f>1+1</f><v>2</v></c>)", "2"},
        {R"(<c r="C5"><f>1+1</f></c>)", ""},
        {R"(<c r="C5" t="inlineStr"><is><t>a &lt; b</t></is></c>)", "a < b"},
        {R"(<c r="C5" t="inlineStr"><is><r><t>ri</t></r><r><t>ch</t></r><rPh sb="0" eb="1"><t>no</t></rPh></is></c>)",
         "rich"},
        {R"(<c r="C5" t="inlineStr"><is><t xml:space="preserve"> </t></is></c>)", " "},
        {R"(<c r="C5" t="d"><v>2026-12-31</v></c>)", "2026-12-31"},
        // Cells without names stand side by side.
        {R"(<c><v>1</v></c><c><v>2</v></c><c><v>3</v></c>)", "3"},
        {R"(<c r="B5"><v>2</v></c> <c><v>3</v></c>)", "3"},
    };
    for (const auto& [xml, text] : cells) EXPECT_EQ(text_of_cell(xml), text) << xml;
}

TEST(XlsxRead, shared_strings_are_found_by_their_number) {
    const std::string strings =
        xml_head + "<sst " + main_ns +
        "><si><t>first</t></si><si><r><t>of </t></r><r><rPr><b/></rPr><t>two</t></r>"
        "<phoneticPr fontId=\"1\"/></si><si><t/></si></sst>";
    const std::string link = R"(<Relationship Id="rId8" Type=")" + relation +
                             R"(/sharedStrings" Target="strings.xml"/>)";
    const Parts more = {{"xl/strings.xml", strings}};
    EXPECT_EQ(text_of_cell(R"(<c r="C5" t="s"><v>0</v></c>)", more, link), "first");
    EXPECT_EQ(text_of_cell(R"(<c r="C5" t="s"><v>1</v></c>)", more, link), "of two");
    EXPECT_EQ(text_of_cell(R"(<c r="C5" t="s"><v>2</v></c>)", more, link), "");
    EXPECT_THROW((void)text_of_cell(R"(<c r="C5" t="s"><v>3</v></c>)", more, link), WorkbookError);
}

TEST(XlsxRead, number_in_a_date_format_is_a_date) {
    const std::string styles =
        xml_head + "<styleSheet " + main_ns +
        R"(><numFmts count="2"><numFmt numFmtId="164" formatCode="dd/mm\-yy"/>)"
        R"(<numFmt numFmtId="165" formatCode="0.0&quot; dm&quot;"/></numFmts>)"
        R"(<cellXfs count="4"><xf numFmtId="0"/><xf numFmtId="14"/><xf numFmtId="164"/>)"
        R"(<xf numFmtId="165"/></cellXfs></styleSheet>)";
    const std::string link =
        R"(<Relationship Id="rId8" Type=")" + relation + R"(/styles" Target="styles.xml"/>)";
    const Parts more = {{"xl/styles.xml", styles}};
    const auto text = [&](const char* style) {
        return text_of_cell(std::string("<c r=\"C5\" s=\"") + style + "\"><v>46387</v></c>", more,
                            link);
    };
    EXPECT_EQ(text("0"), "46387");
    EXPECT_EQ(text("1"), "31.12.2026");
    EXPECT_EQ(text("2"), "31.12.2026");
    EXPECT_EQ(text("3"), "46387");
    auto workbook =
        opened(workbook_with(sheet_of(R"(<row r="5"><c r="C5" s="1"><v>0</v></c></row>)"), more,
                             link, R"(<workbookPr date1904="1"/>)"));
    EXPECT_EQ(workbook->text(5, 3), "01.01.1904");
}

TEST(XlsxRead, dates_are_those_of_the_calendar_from_1900) {
    EXPECT_EQ(date_text(1, false), "01.01.1900");
    EXPECT_EQ(date_text(59, false), "28.02.1900");
    EXPECT_EQ(date_text(60, false), "29.02.1900");
    EXPECT_EQ(date_text(61, false), "01.03.1900");
    EXPECT_EQ(date_text(45413.5, false), "01.05.2024 12:00:00");
    EXPECT_EQ(date_text(0.75, false), "18:00:00");
    EXPECT_EQ(date_text(2958465, false), "31.12.9999");
    EXPECT_EQ(date_text(-1, false), "-1");
    EXPECT_EQ(date_text(3e6, false), "3000000");
}

TEST(XlsxRead, format_codes_of_dates_are_told_from_others) {
    for (const char* code : {"yyyy-mm-dd", "h:mm", "[h]:mm", "mmm", "[$-407]TT.MM.YYYY", "ss.0"})
        EXPECT_TRUE(is_date_format(code)) << code;
    for (const char* code :
         {"General", "0.00", "#,##0", "[Red]0", "0\" days\"", "0\\d", "0.0E+00", "@"})
        EXPECT_FALSE(is_date_format(code)) << code;
}

TEST(XlsxRead, rows_and_cells_may_be_missing_and_have_prefixes) {
    const std::string sheet =
        xml_head + R"(<x:worksheet xmlns:x=")" + main_ns.substr(7) +
        "><x:sheetData><x:row><x:c><x:v>1</x:v></x:c></x:row>"
        R"(<!-- <x:row r="2"> --><x:row r='7' spans="1:2"><x:c r="B7"><x:v>2</x:v></x:c></x:row>)"
        "<x:row/><x:row><x:c><x:v>3</x:v></x:c></x:row></x:sheetData></x:worksheet>";
    auto workbook = opened(workbook_with(sheet));
    EXPECT_EQ(workbook->text(1, 1), "1");
    EXPECT_EQ(workbook->text(2, 1), "");
    EXPECT_EQ(workbook->text(7, 2), "2");
    EXPECT_EQ(workbook->text(8, 1), "");
    EXPECT_EQ(workbook->text(9, 1), "3");
    EXPECT_EQ(workbook->text(1000, 1), "");
}

TEST(XlsxRead, sheets_are_found_by_name_whatever_the_case) {
    auto workbook = opened(workbook_with(sheet_of("")));
    workbook->select("INPUT");
    try {
        workbook->select("output");
        FAIL();
    } catch (const WorkbookError& error) {
        EXPECT_EQ(error.fault(), WorkbookFault::NoSheet);
        EXPECT_STREQ(error.what(), "a.xlsx: has no worksheet output");
    }
}

std::string refusal_of(std::string_view bytes) {
    try {
        auto workbook = open_xlsx("a.xlsx", bytes, [](std::string_view) {});
        workbook->select("input");
        (void)workbook->text(5, 3);
    } catch (const WorkbookError& error) {
        EXPECT_EQ(error.fault(), WorkbookFault::Damaged);
        return error.what();
    }
    return {};
}

TEST(XlsxRead, damaged_files_are_refused_with_place_and_reason) {
    using testing::StartsWith;
    EXPECT_THAT(refusal_of(""), StartsWith("a.xlsx: is no xlsx file"));
    EXPECT_THAT(refusal_of("plain text"), StartsWith("a.xlsx: is no xlsx file"));
    EXPECT_THAT(refusal_of("\xD0\xCF\x11\xE0 old"), StartsWith("a.xlsx: is no xlsx file but"));
    EXPECT_THAT(refusal_of(packed({{"other.txt", "x"}})), StartsWith("a.xlsx: has no part _rels"));
    const std::string sound = packed(workbook_with(sheet_of("")));
    EXPECT_EQ(refusal_of(sound), "");
    for (const std::size_t size : {sound.size() / 2, sound.size() - 10})
        EXPECT_THAT(refusal_of(sound.substr(0, size)), StartsWith("a.xlsx: ")) << size;
    const auto of_sheet = [](const std::string& sheet) {
        return refusal_of(packed(workbook_with(sheet)));
    };
    const std::string head = "a.xlsx: input: ";
    EXPECT_THAT(of_sheet(""), StartsWith(head + "has no cells"));
    EXPECT_THAT(of_sheet("<worksheet><sheetData><row>"), StartsWith(head + "an XML part ends"));
    EXPECT_THAT(of_sheet("<worksheet><sheetData><row r=\"5\"><c r=\"C5\"><v>1</c></row>"
                         "</sheetData></worksheet>"),
                StartsWith(head));
    EXPECT_THAT(of_sheet(sheet_of("<row r=\"6\"/><row r=\"5\"/>")),
                StartsWith(head + "its row 5 is out of order"));
    EXPECT_THAT(of_sheet(sheet_of("<row r=\"5\"><c r=\"D5\"/><c r=\"C5\"/></row>")),
                StartsWith(head + "cell C5 is out of order"));
    EXPECT_THAT(of_sheet(sheet_of("<row r=\"5\"><c r=\"5C\"/></row>")),
                StartsWith(head + "has a cell named 5C"));
    EXPECT_THAT(of_sheet("\xFF\xFE<\0"), StartsWith(head + "is written in UTF-16"));
}

TEST(XlsxRead, a_part_with_a_wrong_checksum_is_refused) {
    std::string bytes = packed(workbook_with(sheet_of(std::string(3000, ' '))));
    const std::size_t at = bytes.find("xl/worksheets/first.xml") + 30;
    bytes[at] = static_cast<char>(bytes[at] ^ 0x55);
    EXPECT_NE(refusal_of(bytes), "");
}

TEST(CellName, letters_go_on_behind_z) {
    constexpr std::pair<int, const char*> names[] = {{1, "A"},   {26, "Z"},   {27, "AA"},
                                                     {34, "AH"}, {52, "AZ"},  {53, "BA"},
                                                     {81, "CC"}, {702, "ZZ"}, {703, "AAA"}};
    for (const auto& [column, letters] : names) {
        EXPECT_EQ(column_letters(column), letters);
        const auto place = cell_place(std::string(letters) + "5");
        ASSERT_TRUE(place);
        EXPECT_EQ(place->column, column);
        EXPECT_EQ(place->row, 5);
    }
    for (const char* wrong : {"", "A", "5", "5A", "A0", "A5B", "XFE1", "A1048577", "a1", "A1:B2"})
        EXPECT_FALSE(cell_place(wrong)) << wrong;
}

TEST(CellName, areas_have_two_corners_or_one) {
    const auto area = cell_area("$B$7:A5");
    ASSERT_TRUE(area);
    EXPECT_EQ(area_name(*area), "A5:B7");
    EXPECT_EQ(area_name(*cell_area("C3")), "C3");
    EXPECT_FALSE(cell_area("A:B"));
}

}  // namespace
}  // namespace zel::xlsx
