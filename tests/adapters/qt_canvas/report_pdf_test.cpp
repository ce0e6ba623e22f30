#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <random>

#include "adapters/json/flat_json.h"
#include "adapters/posix/text_file.h"
#include "adapters/qt_canvas/drawing_file.h"
#include "adapters/qt_canvas/pdf_words.h"
#include "adapters/qt_canvas/qt_canvas.h"
#include "fakes/short_circuit_cases.h"
#include "fakes/steady_cases.h"
#include "fakes/transient_cases.h"
#include "persistence/case_file.h"
#include "reports/report_file.h"
#include "reports/steady_report.h"
#include "reports/transient_report.h"
#include "short_circuit/short_circuit_report.h"
#include "short_circuit/short_circuit_run.h"
#include "workflow/run/transient_memory.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

constexpr const char* longest = "Wwwwwwwww Äöüß";

/// A case with texts of any length, methods, and a transient.
class Cases {
public:
    CalcCase operator()() {
        CalcCase c = example_;
        for (std::string* text :
             {&c.Projekt_db, &c.Bearbeiter_db, &c.Abteilung_db, &c.Bezeichnung1_db})
            for (int words = upto(6); words > 0; --words) *text += std::string(longest) + " ";
        c.rechnung_cigre601_merker_db = static_cast<std::int16_t>(upto(1));
        c.rechnung_webs_merker_db = c.rechnung_kirn_merker_db = static_cast<std::int16_t>(upto(1));
        c.Anzahl_Teilleiter_db = static_cast<std::int16_t>(1 + upto(7));
        c.Leitertemp_db = typed(60 + upto(40));
        c.Umgebungstemperatur_db = c.Bodentemp_db = typed(upto(40));
        c.Windgeschwindigkeit_db = typed(0.1 * upto(60));
        for (int row = upto(5); row >= 0; --row)
            c.Z[static_cast<std::size_t>(row)] = typed_temperature_row(
                c.Anzahl_Teilleiter_db * (500.0 + upto(400)), 1 + upto(30), 0);
        return c;
    }
    int upto(int most) { return std::uniform_int_distribution(0, most)(random_); }

private:
    [[nodiscard]] static CalcCase read_example() {
        const std::string text = read_text_file(ZEL_SOURCE_DIR "/examples/380kV-twin-264-34.json");
        return with_masses(
            read_case(parse_flat_json(text), {LangId::German, DecimalSeparator::Comma}).c);
    }

    CalcCase example_ = read_example();
    std::mt19937 random_{11};
};

/// What a case gives on screen and on paper.
struct Printed {
    explicit Printed(CalcCase given, const ReportPrint& print) : c(std::move(given)) {
        RecordingDialogs dialogs;
        MethodMemory methods;
        const Session session = {LangId::German, print.separator, RunMode::Silent, dialogs,
                                 &methods};
        run = RunSteady(c, session);
        EXPECT_TRUE(run.input_valid) << testing::PrintToString(run.refusal.lines);
        TransientMemory memory;
        memory.keep(run, c);
        RunTransient(c, memory.basis(), session, {}, transient);
        EXPECT_TRUE(transient.input_valid) << testing::PrintToString(transient.refusal.box.lines);
        transient_screen = transient_text(transient, c, session);
        reports = {*print_tab_stat({c, run}, print),
                   S03_Print_Tab_transient_Cigre207_601_TBB(c, transient, print)};
        if (TotalTime(transient.rows) > 0)
            reports.push_back(S04_Print_Graph_transient_Cigre207_601_TBB(
                c, transient, *transient_series(c, memory.basis(), transient, session), print));
    }
    CalcCase c;
    SteadyRunResult run;
    TransientResult transient;
    std::string transient_screen;
    std::vector<Report> reports;
};

const ReportPrint german = {PrintLang::German, DecimalSeparator::Comma, "22/11/2026 / 09:05"};

std::vector<Report> reports_of_short_circuits() {
    std::vector<Report> reports;
    for (const ShortCircuitForm& form : {copper_far(), aluminium_near(), limited_equipment()}) {
        const ShortCircuitCase& c = form.content();
        const ShortCircuitRun run = RunShortCircuit(c, DecimalSeparator::Point);
        reports.push_back(KS10_tab_print_Kurzschluss_1(
            c, run.result, {PrintLang::Spanish, DecimalSeparator::Point, "now"}));
    }
    return reports;
}

std::vector<std::vector<Place>> recorded(const std::vector<ReportSheet>& sheets) {
    std::vector<std::vector<Place>> pages;
    for (const ReportSheet& sheet : sheets) {
        auto& page = pages.emplace_back();
        MemoryCanvas canvas;
        draw(canvas, sheet);
        for (const auto& [x, y, text, font, colour] : canvas.texts) page.emplace_back(text, x, y);
    }
    return pages;
}

/// The words of `texts` at their places, by the widths of letters in a document.
std::vector<Place> words_in(const MemoryCanvas& texts, const Canvas& real) {
    std::vector<Place> words;
    for (const auto& [x, y, text, font, colour] : texts.texts)
        for (std::size_t at = text.find_first_not_of(' '); at < text.size();) {
            const std::size_t end = std::min(text.find(' ', at), text.size());
            words.emplace_back(text.substr(at, end - at),
                               x + real.text_width(text.substr(0, at), font), y);
            at = text.find_first_not_of(' ', end);
        }
    return words;
}

void sort(std::vector<Place>& words) {
    std::sort(words.begin(), words.end(), [](const Place& a, const Place& b) {
        const auto key = [](const Place& place) {
            return std::tuple(std::get<0>(place), std::lround(std::get<2>(place) / 60),
                              std::get<1>(place));
        };
        return key(a) < key(b);
    });
}

TEST(ReportPdf, has_every_word_in_its_place) {
    Cases cases;
    std::vector<Report> reports = reports_of_short_circuits();
    for (int i = 0; i < 6; ++i)
        for (Report& report : Printed(cases(), german).reports) reports.push_back(report);
    QImage nothing(1, 1, QImage::Format_RGB32);
    QPainter painter(&nothing);
    const QtCanvas window(painter, 1.0 / 15);
    for (const Report& report : reports) {
        std::vector<ReportSheet> sheets;
        std::vector<std::vector<Place>> expected;
        const std::string pdf =
            sheets_file({report_paper, report.title, "de",
                         [&](Canvas& canvas, const std::function<void()>& next_sheet) {
                             sheets = set_in_sheets(report, canvas);
                             for (std::size_t i = 0; i < sheets.size(); ++i) {
                                 if (i > 0) next_sheet();
                                 Witness witness(canvas);
                                 draw(witness, sheets[i]);
                                 expected.push_back(words_in(witness, canvas));
                             }
                         }});
        EXPECT_EQ(recorded(sheets), recorded(set_in_sheets(report, window)))
            << "the preview has the same places";
        const auto pages = words_of(pdf);
        if (pages.empty()) GTEST_SKIP() << "pdftotext is not installed";
        ASSERT_EQ(pages.size(), expected.size());
        for (std::size_t page = 0; page < pages.size(); ++page) {
            std::vector<Place> found = pages[page];
            sort(found);
            sort(expected[page]);
            ASSERT_EQ(found.size(), expected[page].size()) << report.title;
            for (std::size_t i = 0; i < found.size(); ++i) {
                EXPECT_EQ(std::get<0>(found[i]), std::get<0>(expected[page][i]));
                EXPECT_NEAR(std::get<1>(found[i]), std::get<1>(expected[page][i]), 25)
                    << std::get<0>(found[i]);
                EXPECT_NEAR(std::get<2>(found[i]), std::get<2>(expected[page][i]), 60)
                    << std::get<0>(found[i]);
            }
        }
    }
}

std::string words_of(const Report& report) {
    std::string words;
    const MemoryCanvas canvas;
    for (const ReportSheet& sheet : set_in_sheets(report, canvas))
        for (const PlacedText& placed : sheet.texts) words += " " + placed.text;
    return words;
}

TEST(ReportPdf, tells_the_values_of_the_screen) {
    Cases cases;
    for (int i = 0; i < 60; ++i) {
        const Printed printed(cases(), german);
        const std::string steady = words_of(printed.reports[0]);
        for (const MethodResult& line : printed.run.methods)
            EXPECT_THAT(steady, testing::HasSubstr(line.result)) << line.caption;
        const std::string transient = words_of(printed.reports[1]);
        for (const TransientRow& row : printed.transient.rows) {
            if (row.Merker != seeks_temperature || row.Failed == 1) continue;
            const std::string text = masked(row.Temp, "####0.0", german.separator);
            EXPECT_THAT(transient, testing::HasSubstr(text));
            EXPECT_THAT(printed.transient_screen, testing::HasSubstr(text));
        }
    }
}

TEST(ReportPdf, names_its_language_and_differs_only_by_its_date) {
    const Report report = reports_of_short_circuits().front();
    const auto file = [&](PrintLang lang) {
        std::string pdf = file_of(report, lang, sheets_file).pdf;
        for (const char* dated : {"/CreationDate", "/ID"})
            if (const std::size_t at = pdf.find(dated); at != std::string::npos)
                pdf.erase(at, pdf.find('\n', at) - at);
        return pdf;
    };
    EXPECT_EQ(file(PrintLang::Spanish), file(PrintLang::Spanish));
    EXPECT_THAT(file(PrintLang::Spanish), testing::HasSubstr("/Lang (es)"));
    EXPECT_EQ(file_of(std::nullopt, PrintLang::German, sheets_file).sheets, 0U);
}

}  // namespace
}  // namespace zel
