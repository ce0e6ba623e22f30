#include "reports/printing.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/memory_canvas.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/scripted_printers.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;

const ReportPrint german_print = {PrintLang::German, DecimalSeparator::Comma, "22/11/2026 / 09:05"};

Report long_report() {
    Report report;
    report.title = " Bericht ";
    report.sheet_label = "Blatt {0}/{1}";
    for (int sheet = 0; sheet < 2; ++sheet) report.blocks.emplace_back(SheetBreak{"mehr"});
    return report;
}

class Printing : public testing::Test {
protected:
    PrintOrder order(std::optional<Report> report) {
        return {ReportKind::TransientTable, "S03", [report](const ReportPrint& print) {
                    EXPECT_EQ(print.print_date, german_print.print_date);
                    return report;
                }};
    }
    void print(const PrintOrder& what) {
        S00_Drucken(what, german_print, {printers, errors, [this](const SheetsDocument& document) {
                                             return pdf_of(document);
                                         }});
    }
    /// The words of all sheets, by language and title.
    std::string pdf_of(const SheetsDocument& document) {
        MemoryCanvas canvas;
        std::size_t turned = 0;
        document.draw(canvas, [&turned] { ++turned; });
        return std::string(document.language) + " " + document.title + " " +
               std::to_string(turned) + " " + std::to_string(canvas.texts.size());
    }
    std::vector<std::string> heads() const {
        std::vector<std::string> lines;
        for (const Box& box : dialogs.shown) lines.push_back(box.lines.front());
        return lines;
    }

    LangId lang = LangId::German;
    ScriptedDialogs dialogs;
    ErrorHandling errors{lang, dialogs};
    ScriptedPrinters printers;
};

TEST_F(Printing, sends_all_sheets_with_their_properties) {
    print(order(long_report()));
    ASSERT_EQ(printers.printed.size(), 1U);
    const auto& [printer, title, pdf, properties] = printers.printed.front();
    EXPECT_EQ(printer, "Laser");
    EXPECT_EQ(title, "Bericht");
    EXPECT_TRUE(pdf.starts_with("de Bericht 2 ")) << pdf;
    EXPECT_THAT(properties, ElementsAreArray(sheet_properties));
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST_F(Printing, ends_an_empty_document_where_there_is_nothing_to_tell) {
    print(order(std::nullopt));
    ASSERT_EQ(printers.printed.size(), 1U);
    EXPECT_EQ(printers.printed.front().pdf, "de  0 0");
}

TEST_F(Printing, tells_a_printer_that_is_missing_under_the_name_of_the_report) {
    printers.names.clear();
    print(order(long_report()));
    EXPECT_THAT(heads(), ElementsAre("Ist der Drucker angeschlossen bzw. eingeschaltet ?",
                                     "Error 482 in PRINT_Modul.S03"));
    EXPECT_EQ(dialogs.shown.back().title, " Drucker-Fehler");
    EXPECT_EQ(dialogs.shown.back().lines.back(), "keine Antwort");
    EXPECT_TRUE(printers.printed.empty());
}

TEST_F(Printing, tells_a_job_that_is_refused) {
    printers.refuses_jobs = true;
    print(order(long_report()));
    EXPECT_THAT(heads(), ElementsAre("Ist der Drucker angeschlossen bzw. eingeschaltet ?",
                                     "Error 482 in PRINT_Modul.S00_Drucken"));
}

TEST_F(Printing, tells_a_report_that_fails_and_prints_nothing) {
    PrintOrder failing = order(long_report());
    failing.module = "MODUL_IEC865";
    failing.report = [](const ReportPrint&) -> std::optional<Report> {
        throw PlatformError(PlatformFault::Overflow, Reason(Text{"zu groß", "too large"}));
    };
    print(failing);
    EXPECT_FALSE(report_for_preview(failing, german_print, errors));
    EXPECT_THAT(heads(), ElementsAre("Error 6 in MODUL_IEC865.S03", "Error 6 in MODUL_IEC865.S03"));
    EXPECT_TRUE(printers.printed.empty());
}

TEST_F(Printing, passes_over_properties_that_a_printer_does_not_have) {
    printers.unknown_properties = {SheetProperty::A4Paper, SheetProperty::Portrait,
                                   SheetProperty::TrueSize};
    print(order(long_report()));
    EXPECT_EQ(errors.Druck_Fehlerzaehler, 3);
    print(order(long_report()));
    EXPECT_TRUE(dialogs.shown.empty()) << "each print counts anew";
    EXPECT_EQ(printers.printed.size(), 2U);
}

TEST_F(Printing, shows_two_sheets_in_the_preview_and_all_on_paper) {
    const auto sheets = set_in_sheets(long_report(), MemoryCanvas());
    ASSERT_EQ(sheets.size(), 3U);
    EXPECT_EQ(sheets_for(PrintTarget::Printer, sheets, lang, dialogs).size(), 3U);
    EXPECT_TRUE(dialogs.shown.empty());
    EXPECT_EQ(sheets_for(PrintTarget::Preview, sheets, lang, dialogs).size(), 2U);
    ASSERT_EQ(dialogs.shown.size(), 1U);
    EXPECT_EQ(dialogs.shown.front().lines.front(),
              "Es können in der Druckvorschau maximal 2 Seiten ");
    EXPECT_EQ(sheets_for(PrintTarget::Preview, {sheets[0], sheets[1]}, lang, dialogs).size(), 2U);
    EXPECT_EQ(dialogs.shown.size(), 1U);
}

}  // namespace
}  // namespace zel
