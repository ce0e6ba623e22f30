#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/xlsx/cell_name.h"
#include "adapters/xlsx/cell_texts.h"
#include "adapters/xlsx/formula_reads.h"
#include "adapters/xlsx/packed.h"
#include "adapters/xlsx/xlsx_workbook.h"

// tests/data/xlsx.json holds cells with their texts, dates, names, formulas with what they read,
// and sheets that are refused.

namespace zel::xlsx {
namespace {

using nlohmann::json;
using testing::StartsWith;

std::unique_ptr<Workbook> opened(const Parts& parts) {
    auto workbook = open_xlsx("a.xlsx", packed(parts), [](std::string_view) {});
    workbook->select("input");
    return workbook;
}

/// Texts and formats that the cells of the data name: the formats 1 and 2 and the built-in 14 are
/// dates.
Parts workbook_of(const std::string& cell, const std::string& format = "14",
                  const std::string& workbook_end = {}) {
    return workbook_with(
        sheet_of("<row r=\"5\">" + cell + "</row>"),
        {{"xl/strings.xml",
          xml_head + "<sst " + main_ns +
              "><si><t>first</t></si><si><r><t>of </t></r><r><rPr><b/></rPr><t>two</t></r>"
              "<phoneticPr fontId=\"1\"/></si><si><t/></si></sst>"},
         {"xl/styles.xml",
          xml_head + "<styleSheet " + main_ns +
              R"(><numFmts count="2"><numFmt numFmtId="164" formatCode="dd/mm\-yy"/>)"
              R"(<numFmt numFmtId="165" formatCode="0.0&quot; dm&quot;"/></numFmts>)"
              R"(<cellXfs count="4"><xf numFmtId="0"/><xf numFmtId=")" +
              format + R"("/><xf numFmtId="164"/><xf numFmtId="165"/></cellXfs></styleSheet>)"}},
        link_to("rId8", "sharedStrings", "strings.xml") + link_to("rId9", "styles", "styles.xml"),
        workbook_end);
}

TEST(XlsxRead, each_kind_of_cell_gives_its_text) {
    for (const char* kind : {"cells", "shared strings", "date cells"})
        for (const json& row : data().at(kind))
            EXPECT_EQ(opened(workbook_of(row[0]))->text(5, 3), row[1]) << row;
    const std::string first_day = R"(<c r="C5" s="1"><v>0</v></c>)";
    EXPECT_EQ(opened(workbook_of(first_day, "14", R"(<workbookPr date1904="1"/>)"))->text(5, 3),
              "01.01.1904");
    for (const json& row : data().at("built-in date formats")) {
        const std::string cell = R"(<c r="C5" s="1"><v>1</v></c>)";
        EXPECT_EQ(opened(workbook_of(cell, std::to_string(row[0].get<int>())))->text(5, 3),
                  row[1] ? "01.01.1900" : "1")
            << row;
    }
}

TEST(XlsxRead, dates_names_and_formulas_are_understood) {
    for (const json& row : data().at("dates")) EXPECT_EQ(date_text(row[0], false), row[1]) << row;
    for (const json& row : data().at("date formats"))
        EXPECT_EQ(is_date_format(row[0].get<std::string>()), row[1]) << row;
    for (const json& row : data().at("columns")) {
        const std::string letters = row[1];
        EXPECT_EQ(column_letters(row[0]), letters);
        const auto place = cell_place(letters + "5");
        ASSERT_TRUE(place) << row;
        EXPECT_EQ(place->column, row[0]);
        EXPECT_EQ(place->row, 5);
    }
    for (const std::string wrong : data().at("no cell names"))
        EXPECT_FALSE(cell_place(wrong)) << wrong;
    EXPECT_EQ(area_name(*cell_area("$B$7:A5")), "A5:B7");
    EXPECT_EQ(area_name(*cell_area("C3")), "C3");
    EXPECT_FALSE(cell_area("A:B"));
}

/// "1 sheet!3>-4 name ?" of what a formula reads; ">" moves with a copy.
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

TEST(XlsxRead, references_of_a_formula_are_told_from_other_words) {
    for (const json& row : data().at("formulas"))
        EXPECT_EQ(told(reads_of_formula(row[0].get<std::string>())), row[1]) << row;
}

TEST(XlsxRead, rows_and_cells_may_be_missing_and_have_prefixes) {
    const std::string sheet =
        xml_head + R"(<x:worksheet xmlns:x=")" + main_ns.substr(7) +
        "><x:sheetData><x:row><x:c><x:v>1</x:v></x:c></x:row>"
        R"(<!-- <x:row r="2"> --><x:row r='7' spans="1:2"><x:c r="B7"><x:v>2</x:v></x:c></x:row>)"
        "<x:row/><x:row><x:c><x:v>3</x:v></x:c></x:row></x:sheetData></x:worksheet>";
    auto workbook = opened(workbook_with(sheet));
    for (const auto& [row, column, text] :
         {std::tuple{1, 1, "1"}, {2, 1, ""}, {7, 2, "2"}, {8, 1, ""}, {9, 1, "3"}, {1000, 1, ""}})
        EXPECT_EQ(workbook->text(row, column), text) << row;
}

std::string refusal_of(std::string_view bytes, const char* sheet = "INPUT",
                       WorkbookFault fault = WorkbookFault::Damaged) {
    try {
        auto workbook = open_xlsx("a.xlsx", bytes, [](std::string_view) {});
        workbook->select(sheet);
        (void)workbook->text(5, 3);
    } catch (const WorkbookError& error) {
        EXPECT_EQ(error.fault(), fault);
        return error.what();
    }
    return {};
}

TEST(XlsxRead, damaged_files_are_refused_with_place_and_reason) {
    EXPECT_THAT(refusal_of(""), StartsWith("a.xlsx: is no xlsx file"));
    EXPECT_THAT(refusal_of("plain text"), StartsWith("a.xlsx: is no xlsx file"));
    EXPECT_THAT(refusal_of("\xD0\xCF\x11\xE0 old"), StartsWith("a.xlsx: is no xlsx file but"));
    EXPECT_THAT(refusal_of(packed({{"other.txt", "x"}})), StartsWith("a.xlsx: has no part _rels"));
    const std::string sound = packed(workbook_with(sheet_of("")));
    EXPECT_EQ(refusal_of(sound), "");
    EXPECT_EQ(refusal_of(sound, "output", WorkbookFault::NoSheet),
              "a.xlsx: has no worksheet output");
    for (const std::size_t size : {sound.size() / 2, sound.size() - 10})
        EXPECT_THAT(refusal_of(sound.substr(0, size)), StartsWith("a.xlsx: ")) << size;
    for (const json& row : data().at("damaged sheets")) {
        const std::string sheet = row[0];
        const bool of_rows = sheet.starts_with('@');
        EXPECT_THAT(refusal_of(packed(workbook_with(of_rows ? sheet_of(sheet.substr(1)) : sheet))),
                    StartsWith(row[1].get<std::string>()));
    }
    EXPECT_THAT(refusal_of(packed(workbook_with("\xFF\xFE<"))),
                StartsWith("a.xlsx: input: is written in UTF-16"));
    std::string flipped = packed(workbook_with(sheet_of(std::string(3000, ' '))));
    const std::size_t at = flipped.find("xl/worksheets/first.xml") + 30;
    flipped[at] = static_cast<char>(flipped[at] ^ 0x55);
    EXPECT_NE(refusal_of(flipped), "");
}

TEST(XlsxRead, files_of_other_kinds_are_told) {
    const auto wide = [](std::string_view text) {
        std::string out = "\xD0\xCF\x11\xE0 ";
        for (const char c : text) (out += c) += '\0';
        return out;
    };
    EXPECT_EQ(refusal_of(wide("EncryptedPackage")),
              "a.xlsx: is protected by a password: save it without one");
    EXPECT_EQ(refusal_of(wide("Workbook")),
              "a.xlsx: is no xlsx file but one of the older kind (xls): save it as xlsx");
    EXPECT_EQ(refusal_of(packed({{"mimetype", "application/vnd.oasis.opendocument.spreadsheet"}})),
              "a.xlsx: is no xlsx file but an OpenDocument file (ods): save it as xlsx");
    Parts binary = workbook_with(sheet_of(""));
    std::string& links = binary[1].second;
    links.replace(links.find("workbook.xml"), 12, "workbook.bin");
    EXPECT_EQ(refusal_of(packed(binary)),
              "a.xlsx: is a workbook of the binary kind (xlsb): save it as xlsx");
}

std::string repeated(const std::string& text, std::size_t count) {
    std::string all;
    while (count-- > 0) all += text;
    return all;
}

TEST(XlsxRead, small_files_that_fill_the_memory_are_refused) {
    constexpr std::size_t mebibyte = 1U << 20U;
    const auto refused_rows = [](const std::string& rows) {
        return refusal_of(packed(workbook_with(sheet_of(rows))));
    };
    const std::string blanks(mebibyte - 1, ' ');
    EXPECT_THAT(refused_rows(repeated("<row/>" + blanks, 66)),
                StartsWith("a.xlsx: unpacks to 66 MiB, more than 50 times its size"));
    EXPECT_EQ(refused_rows(blanks), "");
    EXPECT_THAT(refused_rows(blanks + blanks + blanks),
                StartsWith("a.xlsx: input: its part xl/worksheets/first.xml has a stretch of 1"));
    EXPECT_EQ(refused_rows("<row r=\"5\">" + repeated("<c/>", 16384) + "</row>"), "");
    EXPECT_EQ(refused_rows("<row r=\"5\">" + repeated("<c/>", 16385) + "</row>"),
              "a.xlsx: input: has more than 16384 cells in row 5");
    EXPECT_EQ(refused_rows("<row r=\"5\">" + repeated("<c/>", mebibyte) + "</row>"),
              "a.xlsx: input: has a damaged row: it is larger than 4 MiB");
    Parts parts;
    while (parts.size() <= 10000) parts.push_back({"p" + std::to_string(parts.size()), ""});
    EXPECT_EQ(refusal_of(packed(parts)), "a.xlsx: has 10001 parts, more than any workbook");
}

TEST(XlsxRead, one_long_text_in_many_cells_is_cut) {
    const auto text = [](const std::string& written) {
        return opened(workbook_of(R"(<c r="C5" t="str"><v>)" + written + "</v></c>"))->text(5, 3);
    };
    EXPECT_EQ(text(std::string(1000, '1')), std::string(1000, '1'));
    EXPECT_EQ(text(std::string(1001, '1')), std::string(1000, '1') + "...");
    EXPECT_EQ(text(std::string(999, '1') + "\u00E4"), std::string(999, '1') + "...");
}

TEST(XlsxRead, merged_cells_are_told_with_sheet_and_range) {
    const auto merged = [](const std::string& area) {
        std::string sheet = sheet_of("");
        sheet.insert(sheet.find("<pageMargins"),
                     "<x:mergeCells><mergeCell ref=\"" + area + "\"/></x:mergeCells>");
        try {
            opened(workbook_with(sheet))->require_single_cells({5, 34, 9, 43});
        } catch (const WorkbookError& error) {
            EXPECT_EQ(error.fault(), WorkbookFault::Entwined);
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_EQ(merged("AG9:AH10"),
              "a.xlsx: input: the cells AG9:AH10 are merged, but results stand in AH5:AQ9");
    EXPECT_NE(merged("A1:XFD5"), "");
    for (const char* beside : {"AH4:AQ4", "AG5:AG9", "AR5:AS9", "AH10:AQ10", "AH5"})
        EXPECT_EQ(merged(beside), "") << beside;
}

TEST(XlsxRead, two_worksheets_with_the_same_cells_are_refused) {
    Parts parts = workbook_with(sheet_of(""));
    std::string& workbook = parts[2].second;
    workbook.insert(workbook.find("</sheets>"), R"(<sheet name="copy" sheetId="2" r:id="rId7"/>)");
    EXPECT_EQ(refusal_of(packed(parts)), "a.xlsx: its worksheet copy has the cells of another one");
}

}  // namespace
}  // namespace zel::xlsx
