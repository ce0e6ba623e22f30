#include "desktop/printing/print_desk.h"

#include "adapters/qt_canvas/drawing_file.h"
#include "desktop/frame/widgets.h"
#include "desktop/printing/frm_print_preview.h"
#include "desktop/printing/frm_printer_select.h"
#include "reports/report_frame.h"

namespace zel {
namespace {

constexpr std::int16_t preview_on = 1;

}  // namespace

void PrintDesk::print(QWidget& form, const PrintOrder& order) {
    print(form, order, print_lang(parts_.settings.now().LangId_print));
}

void PrintDesk::print(QWidget& form, const PrintOrder& order, PrintLang lang) {
    const ReportPrint print = {lang, parts_.session.separator, print_date_text(parts_.clock())};
    const auto on_paper = [this, order, lang] {
        const WaitCursor waiting;
        // The time of the paper is that of the print, not that of the preview.
        const bool printed =
            S00_Drucken(order, {lang, parts_.session.separator, print_date_text(parts_.clock())},
                        {parts_.printers, parts_.errors, sheets_file});
        return printed ? parts_.printers.current() : std::string();
    };
    if (parts_.settings.now().Druckvorschau != preview_on) {
        (void)on_paper();
        return;
    }
    const auto report = report_for_preview(order, print, parts_.errors);
    if (!report) return;
    FrmPrintPreview preview(
        &form, {parts_.session, parts_.chooser, parts_.files},
        {order.kind, *report, lang, on_paper, [this](QWidget& window) { choose_printer(window); }});
    preview.exec();
}

void PrintDesk::choose_printer(QWidget& form) {
    FrmPrinterSelect(&form, parts_.session, parts_.settings, parts_.printers).exec();
}

}  // namespace zel
