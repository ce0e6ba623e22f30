#include "reports/printing.h"

#include "reports/report_file.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr BoxText too_many_sheets = {Icon::None,
                                     short_name,
                                     {"Es können in der Druckvorschau maximal 2 Seiten \n"
                                      "Berechnungsausdrucke angezeigt werden! \n"
                                      "Bitte vergrößern Sie die Schrittweite \n"
                                      "oder verkleinern Sie den Berechnungswertebereich \n"
                                      "oder deaktivieren Sie die Druckvorschau !",
                                      "The print preview can show at most 2 pages \n"
                                      "of a printout! \n"
                                      "Please choose a larger step \n"
                                      "or a smaller range of the calculation \n"
                                      "or switch the print preview off !"}};

/// Whether the work of a procedure came to its end.
bool done(std::int16_t action) { return action == 0; }

}  // namespace

bool S00_Drucken(const PrintOrder& order, const ReportPrint& print, const PrintTools& tools) {
    tools.errors.Druck_Fehlerzaehler = 0;
    std::unique_ptr<PrintJob> job;
    ReportFile file;
    const auto make = [&] {
        const std::optional<Report> report = order.report(print);
        job = tools.printers.begin(report ? without_outer_blanks(report->title) : std::string());
        for (const SheetProperty property : sheet_properties)
            (void)trap(tools.errors, order.module, order.procedure, [&] { job->set(property); });
        file = file_of(report, print.lang, tools.make_file);
    };
    return done(trap(tools.errors, order.module, order.procedure, make)) &&
           done(trap(tools.errors, print_module, "S00_Drucken", [&] { job->EndDoc(file.pdf); }));
}

std::optional<Report> report_for_preview(const PrintOrder& order, const ReportPrint& print,
                                         ErrorHandling& errors) {
    errors.Druck_Fehlerzaehler = 0;
    Report report;
    const auto make = [&] { report = order.report(print).value_or(Report()); };
    if (!done(trap(errors, order.module, order.procedure, make))) return std::nullopt;
    return report;
}

std::vector<ReportSheet> sheets_for(PrintTarget target, std::vector<ReportSheet> sheets,
                                    LangId lang, Dialogs& dialogs) {
    if (target == PrintTarget::Preview && sheets.size() > sheets_in_preview) {
        sheets.resize(sheets_in_preview);
        dialogs.show(box_in(lang, too_many_sheets));
    }
    return sheets;
}

}  // namespace zel
