#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/xlsx/packed.h"
#include "cli/process.h"
#include "fakes/scratch_folder.h"

// Small files that would fill memory or hours are refused within a second and 200 MB, by a message
// that names the file and the limit.

namespace zel {
namespace {

using testing::HasSubstr;
using xlsx::Parts;
using xlsx::sheet_of;

class HostileFiles : public testing::Test {
protected:
    void SetUp() override {
#ifdef __SANITIZE_ADDRESS__
        GTEST_SKIP() << "the sanitizer takes memory and time of its own";
#endif
    }

    /// What the program tells about `file`, which `words` name as "@".
    std::string refusal(const std::string& file, const std::string& content,
                        std::vector<std::string> words) {
        folder_.write(file, content);
        for (std::string& word : words)
            if (word == "@") word = file;
        words.insert(words.begin(),
                     {"-c", R"(ulimit -d 200000 && ulimit -t 1 && exec "$0" "$@")", ZEL_PROGRAM});
        const ProcessResult result = run_zel(words, folder_.path(), {}, folder_.path(), "/bin/sh");
        EXPECT_EQ(result.exit_status, 2) << file << result.output;
        EXPECT_THAT(result.errors, HasSubstr(file));
        return result.errors;
    }

    ScratchFolder folder_;
};

constexpr std::size_t mebibyte = 1U << 20U;

std::string repeated(std::string_view text, std::size_t count) {
    std::string all;
    all.reserve(text.size() * count);
    while (count-- > 0) all += text;
    return all;
}

/// A workbook of the batch whose first sheet is `sheet`.
Parts workbook(const std::string& sheet, const Parts& more = {}, const std::string& links = {},
               const std::string& workbook_end = {}) {
    Parts parts = xlsx::workbook_with(sheet, more, links, workbook_end);
    std::string& names = parts[2].second;
    names.replace(names.find("\"input\""), 7, "\"fixed_input\"");
    return parts;
}

/// A part of the workbook beside an empty sheet.
Parts with_part(const char* type, const std::string& content) {
    return workbook(sheet_of(""), {{"xl/part.xml", content}},
                    xlsx::link_to("rId1", type, "part.xml"));
}

/// An archive whose entries all have the bytes of one.
std::string overlapping(int entries) {
    const std::string one = xlsx::packed({{"part0000.xml", std::string(10 * mebibyte, ' ')}});
    const std::size_t central = one.find("PK\1\2");
    const std::size_t end = one.rfind("PK\5\6");
    std::string bytes = one.substr(0, central);
    for (int entry = 0; entry < entries; ++entry) {
        char name[24];
        std::snprintf(name, sizeof name, "part%04d.xml", entry);
        std::string head = one.substr(central, end - central);
        bytes += head.replace(head.find("part0000.xml"), 12, name);
    }
    std::string tail = one.substr(end);
    const std::size_t length = (end - central) * static_cast<std::size_t>(entries);
    for (std::size_t byte = 0; byte < 4; ++byte)
        tail[12 + byte] = static_cast<char>(length >> (8 * byte));
    for (const std::size_t count : {8U, 10U}) {
        tail[count] = static_cast<char>(entries);
        tail[count + 1] = static_cast<char>(entries >> 8);
    }
    return bytes + tail;
}

const std::string laughs = [] {
    std::string type = "<!DOCTYPE x [<!ENTITY l0 \"lol\">";
    for (int level = 1; level < 10; ++level)
        type += "<!ENTITY l" + std::to_string(level) + " \"" +
                repeated("&l" + std::to_string(level - 1) + ";", 10) + "\">";
    return type + "]>";
}();

TEST_F(HostileFiles, workbooks_are_refused_by_their_limits) {
    const std::string cell = R"(<row r="1"><c r="A1" t="inlineStr"><is><t>&l9;</t></is></c></row>)";
    Parts named = workbook(sheet_of(""));
    named[2].second.insert(xlsx::xml_head.size(), laughs);
    Parts many;
    while (many.size() < 40000) many.emplace_back("p" + std::to_string(many.size()), "");
    const std::string nested = xlsx::packed({{"b.xlsx", std::string(60 * mebibyte, ' ')}});
    const struct {
        std::string bytes;
        const char* told;
    } rows[] = {
        {xlsx::packed(workbook(sheet_of(repeated("<row/><!-- -->", 5 * mebibyte)))),
         "unpacks to 70 MiB, more than 50 times its size"},
        {xlsx::packed(many), "has 40000 parts, more than any workbook"},
        {overlapping(5000), "is no xlsx file"},
        {xlsx::packed({{"a.xlsx", nested}}), "has no part _rels/.rels"},
        {xlsx::packed(workbook(laughs + sheet_of(cell))), "has a document type declaration"},
        {xlsx::packed(named), "has a document type declaration"},
        {xlsx::packed(
             with_part("sharedStrings", "<sst>" + repeated("<si><t/></si>", 4 * mebibyte))),
         "has more than 2000000 shared strings"},
        {xlsx::packed(
             with_part("styles", "<s><cellXfs>" + repeated("<xf/>", mebibyte) + "</cellXfs></s>")),
         "has more than 65536 cell formats"},
        {xlsx::packed(workbook(sheet_of(""), {}, {}, repeated("<a>b", 15 * mebibyte))),
         "its part xl/workbook.xml is damaged: it is larger than 4 MiB"},
        {xlsx::packed(workbook(sheet_of(""), {}, {}, repeated("<a>b", mebibyte - 200))),
         "its part xl/workbook.xml is damaged"},
        {xlsx::packed(
             workbook(sheet_of("<row r=\"2\">" + repeated("<a>b</a>b", 6 * mebibyte) + "</row>"))),
         "it is larger than 4 MiB"},
        {xlsx::packed(workbook(sheet_of(repeated("<row><c>", 65)))), "nests more than 64 elements"},
        {xlsx::packed(workbook(
             sheet_of("", "<cols>" + repeated(R"(<col min="1" max="16384" style="1"/>)", 99999) +
                              "</cols>"))),
         "the formats of its columns overlap too often"},
        {xlsx::packed(workbook(sheet_of(repeated("<row/>", 10 * mebibyte)))),
         "has more than 1048576 rows"},
    };
    for (const auto& [bytes, told] : rows)
        EXPECT_THAT(refusal("bomb.xlsx", bytes, {"batch", "@"}), HasSubstr(told)) << told;
}

TEST_F(HostileFiles, texts_are_refused_by_their_limits) {
    std::string keys = "{";
    for (int key = 0; key < 1000000; ++key) keys += "\"k" + std::to_string(key) + "\":1,";
    folder_.write("weather.csv", "time,wind_speed\n2026-02-01T00:00Z,1\n2026-02-01T01:00Z,1\n");
    folder_.write("sound.csv", "name,conductor_temperature\nA,80\n");
    const std::vector<std::string> lines = {"rate", "@", "weather.csv", "-o", "out.csv"};
    const struct {
        const char* file;
        std::string content;
        std::vector<std::string> words;
        const char* told;
    } rows[] = {
        {"case.json", keys, {"steady", "@"}, "more than 10000 values"},
        {"case.json", repeated("[", 10 * mebibyte), {"steady", "@"}, "must hold one JSON object"},
        {"case.json", repeated("{\"a\":", mebibyte), {"steady", "@"}, "a: an object is no value"},
        {"case.json", repeated(" ", 17 * mebibyte), {"steady", "@"}, "larger than 16 MiB"},
        {"lines.csv", repeated(",", 15 * mebibyte), lines, "more than 1000000 cells"},
        {"lines.csv", repeated("a\n", 7 * mebibyte), lines, "more than 1000000 cells"},
        {"weather.csv",
         "time,wind_speed\n" + repeated(",", 20 * mebibyte),
         {"rate", "sound.csv", "@", "-o", "out.csv", "--interval", "60"},
         "a line is longer than 1 MiB"},
        {".config/zel/settings.ini",
         repeated("[", 15 * mebibyte),
         {"settings", "list"},
         "larger than 1 MiB"},
    };
    for (const auto& [file, content, words, told] : rows)
        EXPECT_THAT(refusal(file, content, words), HasSubstr(told)) << file << told;
}

}  // namespace
}  // namespace zel
