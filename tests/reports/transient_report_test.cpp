#include "reports/transient_report.h"

#include <gtest/gtest.h>

#include "fakes/memory_canvas.h"
#include "fakes/transient_cases.h"

namespace zel {
namespace {

const Locale german = {LangId::German, DecimalSeparator::Comma};

/// Three changes of state, the last of which failed.
struct Ran {
    Ran() {
        c.Projekt_db = "Line 7";
        c.Z[0] = typed_temperature_row(1800, 10, 0);
        c.Z[1] = typed_time_row(600, 65);
        c.Z[2] = typed_current_row(80, 30, 0);
        result.start = {400, 55.5};
        result.rows[0] = {seeks_temperature, 900, 95.2, 10, 0, 0, 0};
        result.rows[1] = {seeks_time, 300, 65, 8, 57, 0, 0};
        result.rows[2] = {seeks_current, 0, 80, 30, 0, 1, 0};
    }
    [[nodiscard]] Report table(PrintLang lang) const {
        return S03_Print_Tab_transient_Cigre207_601_TBB(c, result,
                                                        {lang, DecimalSeparator::Comma, "now"});
    }
    CalcCase c = twin_264_34();
    TransientResult result;
};

/// Label, value and unit of the rows of a block.
std::vector<std::string> rows_of(const ReportBlock& block) {
    std::vector<std::string> rows;
    for (const ReportRow& row : std::get<ReportSection>(block).rows)
        rows.push_back(row.label + row.value + row.unit);
    return rows;
}

TEST(TransientReport, marks_what_was_found_and_tells_where_it_failed) {
    const Report report = Ran().table(PrintLang::German);
    EXPECT_EQ(report.title,
              "Tabelle zur transienten Berechnung von Stromstärke / Leitertemperatur / Zeitdauer "
              "nach Cigre TB 207");
    ASSERT_EQ(report.blocks.size(), 7U);  // bundle, start in two, changes, marker line
    EXPECT_EQ(std::get<ReportParagraph>(report.blocks[0]).text, "Doppel-Leiter");
    const auto start = rows_of(report.blocks[2]);
    EXPECT_EQ(start[0], "Windgeschwindigkeit = 0,6 m/s");
    EXPECT_EQ(start[4], "Stromstärke Ausgangszustand:  800 A");
    EXPECT_EQ(rows_of(report.blocks[3]),
              (std::vector<std::string>{"Stromstärke neu:1800 A", "Temperatur neu:95,2 °C *",
                                        "Zeitdauer:10 min 0 sec", "t 0-1 = 10,0 min"}));
    EXPECT_EQ(rows_of(report.blocks[4]),
              (std::vector<std::string>{"Stromstärke neu:600 A", "Temperatur neu:65,0 °C",
                                        "Zeitdauer:8 min 57 sec *", "t0-2 = 18,95 min"}));
    EXPECT_EQ(rows_of(report.blocks[5])[0], "Stromstärke neu:Error");
    EXPECT_EQ(std::get<ReportParagraph>(report.blocks[6]).text,
              "*  kennzeichnet den berechneten Wert");
}

TEST(TransientReport, names_the_duration_of_its_third_block_in_all_languages) {
    const Report spanish = Ran().table(PrintLang::Spanish);
    EXPECT_EQ(rows_of(spanish.blocks[3])[2], "10 min 0 sec");
    EXPECT_EQ(rows_of(spanish.blocks[5])[2], "duración:30 min 0 sec");
    EXPECT_EQ(std::get<ReportParagraph>(spanish.blocks[6]).text, "duración:");
    EXPECT_EQ(spanish.operator_name.label, "duración:");
}

TEST(TransientReport, tells_its_notes_in_the_language_of_the_paper) {
    Ran ran;
    ran.result.checks[2] = CurrentCheck{};
    const auto notes = notes_on(ran.result, ran.c, german);
    ASSERT_FALSE(notes.empty());
    EXPECT_EQ(std::get<ReportParagraph>(ran.table(PrintLang::German).blocks.back()).text,
              notes.back().text);
    EXPECT_NE(std::get<ReportParagraph>(ran.table(PrintLang::English).blocks.back()).text,
              notes.back().text);
}

TEST(TransientReport, draws_its_graph_in_the_layout_of_paper) {
    const Ran ran;
    const std::vector<RowSeries> series = {{1, {{0, 55.5}, {600, 95.2}}},
                                           {2, {{600, 95.2}, {1137, 65}}}};
    const Report report = S04_Print_Graph_transient_Cigre207_601_TBB(
        ran.c, ran.result, series, {PrintLang::English, DecimalSeparator::Point, "now"});
    EXPECT_EQ(rows_of(report.blocks[1])[1], "angle wind / conductor = 90 °");
    MemoryCanvas canvas;
    draw(canvas, set_in_sheets(report, canvas).at(0));
    std::vector<std::string> texts;
    for (const auto& written : canvas.texts) texts.push_back(written.text);
    for (const char* text : {"time / min", "temperature / °C", "current / A", "blanker Leiter",
                             "1 line unit x-axis = 5.0min", "1 line unit temperature = 5.0 °C"})
        EXPECT_NE(std::find(texts.begin(), texts.end(), text), texts.end()) << text;
}

}  // namespace
}  // namespace zel
