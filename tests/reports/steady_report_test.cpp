#include "reports/steady_report.h"

#include <gtest/gtest.h>

#include "fakes/steady_cases.h"
#include "fakes/test_data.h"
#include "reports/steady_report_rows.h"

namespace zel {
namespace {

using nlohmann::json;

const json data = test_data("reports");

/// The rows of sections that follow each other.
void expect_rows(std::span<const PrintedSection> sections, const json& rows) {
    std::size_t at = 0;
    for (const PrintedSection& section : sections)
        for (const PrintedRow& row : section.rows) {
            if (row.label.texts[0]->empty()) continue;  // a line that is no row
            ASSERT_LT(at, rows.size());
            const json printed = {*row.label.in(PrintLang::German),
                                  *row.label.in(PrintLang::English), row.mask, row.unit};
            EXPECT_EQ(printed, rows[at++]);
        }
    EXPECT_EQ(at, rows.size());
}

TEST(SteadyReport, has_its_rows_in_their_order) {
    expect_rows(method_inputs().first(1), data["inputs"]);
    expect_rows(method_conductor().first(2), data["conductor"]);
    expect_rows(method_conductor().subspan(2, 1), data["layer"]);
    expect_rows({&method_core(), 1}, data["core"]);
}

/// A run of a twin bundle by three methods, the last of which found nothing.
SteadyRunResult run_of(bool current_given) {
    SteadyRunResult run;
    run.input_valid = true;
    run.basis.current_given = current_given;
    run.basis.given = current_given ? 800 : 80;
    const auto found = [&](Method method, double current, double temperature) {
        MethodResult& line = run.methods.emplace_back();
        line.method = method;
        line.outcome.current_A = current;
        line.outcome.temperature_C = temperature;
        return &line.outcome;
    };
    found(Method::TB601, 653.4, 55.4)->tb601 = Tb601Details{55.2, 55.6, 0, 1, 1};
    found(Method::TB207, 665.5, 54.8);
    run.methods.emplace_back().method = Method::Kirn;
    run.methods.back().outcome.fault = "overflow";
    return run;
}

std::vector<std::string> paragraphs(const Report& report) {
    std::vector<std::string> texts;
    for (const ReportBlock& block : report.blocks)
        if (const auto* paragraph = std::get_if<ReportParagraph>(&block))
            for (std::string& line : lines_of(paragraph->text)) texts.push_back(std::move(line));
    return texts;
}

std::string value_of(const Report& report, std::string_view label) {
    for (const ReportBlock& block : report.blocks)
        if (const auto* section = std::get_if<ReportSection>(&block))
            for (const ReportRow& row : section->rows)
                if (row.label == label) return row.value;
    return "no row " + std::string(label);
}

TEST(SteadyReport, tells_each_result_in_a_sentence) {
    for (const json& row : data["results"]) {
        const bool current_given = row["given"] == "current";
        const CalcCase c = current_given ? twin_264_34_at(800) : twin_264_34();
        const SteadyRunResult run = run_of(current_given);
        for (const auto& [key, lang, separator] :
             {std::tuple("de", PrintLang::German, DecimalSeparator::Comma),
              {"en", PrintLang::English, DecimalSeparator::Point}})
            EXPECT_EQ(json(paragraphs(*print_tab_stat({c, run}, {lang, separator, ""}))), row[key]);
    }
}

TEST(SteadyReport, prints_what_is_given_and_what_was_found) {
    CalcCase c = twin_264_34();
    c.Feldlaenge_db = {};
    SteadyRunResult run = run_of(false);
    run.transient_start = TransientStart{665.5, 80};
    const Report found =
        *print_tab_stat({c, run}, {PrintLang::German, DecimalSeparator::Comma, ""});
    EXPECT_EQ(value_of(found, "Stromstärke (Teilleiter):"), "666")
        << "where a transient would start";
    EXPECT_EQ(value_of(found, "Stromstärke:"), "1331");
    EXPECT_EQ(value_of(found, "Leitertemperatur:"), "80,0");
    EXPECT_EQ(value_of(found, "Spannfeldlänge:"), "-");
    const Report given = *print_tab_stat({twin_264_34_at(800), run_of(true)},
                                         {PrintLang::English, DecimalSeparator::Point, ""});
    EXPECT_EQ(value_of(given, "conductor temperature:"), "55.4") << "of the first method";
    EXPECT_FALSE(print_tab_stat({CalcCase{}, {}}, {PrintLang::German, {}, ""}));
}

TEST(SteadyReport, of_a_language_without_labels_is_without_them) {
    const Report report = *print_tab_stat({twin_264_34(), run_of(false)},
                                          {PrintLang::French, DecimalSeparator::Point, ""});
    EXPECT_EQ(value_of(report, ""), "0") << "the altitude";
    EXPECT_EQ(report.band->project.label, "");
}

TEST(SteadyReport, of_the_busbar_alone_is_its_own) {
    CalcCase c = tube();
    c.rechnung_cigre207_merker_db = c.rechnung_cigre601_merker_db = 0;
    c.rechnung_TBB_merker_db = 1;
    SteadyRunResult run;
    run.methods.emplace_back().method = Method::TBB;
    const ReportPrint print = {PrintLang::German, DecimalSeparator::Comma, ""};
    const Report alone = *print_tab_stat({c, run}, print);
    EXPECT_EQ(alone.sheet_label, "Seite {0}");
    EXPECT_EQ(alone.title, "Stromstärkeberechnung nach Puffer");
    EXPECT_EQ(paragraphs(alone), std::vector<std::string>{"Puffer: Error!"});
    c.rechnung_webs_merker_db = 1;
    const Report both = *print_tab_stat({c, run}, print);
    EXPECT_EQ(both.title, "Stromstärkeberechnung nach Puffer / Webs");
    EXPECT_EQ(paragraphs(both), std::vector<std::string>{"TB207/TBB: Error!"});
}

}  // namespace
}  // namespace zel
