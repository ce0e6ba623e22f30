#include "desktop/printing/frm_print_preview.h"

#include <QEvent>
#include <QFrame>
#include <QHBoxLayout>
#include <QImage>
#include <QLabel>
#include <QMenuBar>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "adapters/qt_canvas/drawing_file.h"
#include "adapters/qt_canvas/qt_canvas.h"
#include "desktop/frame/events.h"
#include "desktop/frame/print_source.h"
#include "desktop/frame/sheet_saving.h"
#include "desktop/frame/widgets.h"
#include "desktop/printing/preview_sheets.h"
#include "platform/errors.h"
#include "reports/report_file.h"

namespace zel {

struct FrmPrintPreview::MenuRow {
    const char* name;
    Text caption;
    const char* shortcut;
    void (FrmPrintPreview::*act)();
};

namespace {

constexpr QSize window_size(1000, 900);
constexpr QSize frame_room(20, 60);    // of the window system, around a window
constexpr double wide_screen = 19000;  // twips
constexpr double zoom_step = 1.25;

constexpr Text title = {"Druckvorschau", "Print Preview"};
constexpr Text view_caption = {"&Ansicht", "&View"};
/// {0} is the sheet that a press shows
constexpr Text switch_caption = {"Anzeige Druckvorschau Blatt {0} / 2 ...",
                                 "Show print preview page {0} / 2 ..."};
constexpr Text panel_words = {"Blatt {0} von {1}     Strg + Rad : vergrößern, verkleinern",
                              "Page {0} of {1}     Ctrl + wheel : enlarge, reduce"};
constexpr Text not_all_shown = {"     Papier und PDF haben alle {0} Blätter",
                                "     Paper and PDF have all {0} pages"};
constexpr Text printed_words = {"     Gedruckt auf : {0}", "     Printed on : {0}"};
constexpr Text save_title = {"Bericht speichern", "Save report"};
constexpr Text filters = {"PDF-Dateien (*.pdf) (*.pdf)", "PDF files (*.pdf) (*.pdf)"};
constexpr Text not_saved = {"Der Bericht kann nicht gespeichert werden:\n{0}",
                            "The report can not be saved:\n{0}"};
constexpr Text file_name = {"Bericht", "report"};

/// The sheets of a report by the widths that letters have on paper.
std::vector<ReportSheet> sheets_of(const Report& report) {
    QImage nothing(1, 1, QImage::Format_RGB32);
    QPainter painter(&nothing);
    const QtCanvas canvas(painter, 1);
    return set_in_sheets(report, canvas);
}

}  // namespace

FrmPrintPreview::FrmPrintPreview(QWidget* parent, const PreviewParts& parts, PreviewContent content)
    : QDialog(parent, Qt::Window | Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint),
      parts_(parts),
      content_(std::move(content)),
      switch_(new QPushButton) {
    setObjectName(content_.kind == ReportKind::ShortCircuit ? "Ks_Form10b" : "frm_print_preview");
    setWindowTitle(qt(title, parts_.session.lang));
    std::vector<ReportSheet> sheets = sheets_of(content_.report);
    all_sheets_ = sheets.size();
    sheets = sheets_for(PrintTarget::Preview, std::move(sheets), parts_.session.lang,
                        parts_.session.dialogs);
    count_ = sheets.size();
    sheets_ = new PreviewSheets(std::move(sheets));
    make_panel();
    switch_->setObjectName("Befehl1");
    switch_->setFocusPolicy(Qt::TabFocus);
    on(switch_, &QPushButton::clicked, [this] { switch_sheet(); });
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setMenuBar(make_menu());
    layout->addWidget(sheets_);
    show_caption();
    place_window();
    layout->activate();
    sheets_->set_scale();
    sheets_->fit_width();
    sheets_->setFocus();
}

/// As large as the screen has room for, and all of it on the screen.
void FrmPrintPreview::place_window() {
    const QRect room = screen()->availableGeometry();
    size_window(*this, window_size.boundedTo(room.size() - frame_room));
    const QSize free = (room.size() - frame_room - size()) / 2;
    move(room.topLeft() + QPoint(free.width(), free.height() + frame_room.height() / 2));
}

QMenuBar* FrmPrintPreview::make_menu() {
    static constexpr MenuRow entries[] = {
        {"mZurueck", {"&Zurück", "&Back"}, "Esc", &FrmPrintPreview::reject},
        {"mPrint", {"&Drucken", "&Print"}, "Ctrl+P", &FrmPrintPreview::print},
        {"mDruckereinrichtung",
         {"Drucker &einrichten", "Printer &configuration"},
         "",
         &FrmPrintPreview::choose_printer},
        {"save_report",
         {"Als PDF &speichern ...", "&Save as PDF ..."},
         "Ctrl+S",
         &FrmPrintPreview::save},
    };
    static constexpr MenuRow view_entries[] = {
        {"fit_width", {"Seiten&breite", "Page &width"}, "Ctrl+2", &FrmPrintPreview::fit_width},
        {"fit_sheet", {"&Ganzes Blatt", "Whole &page"}, "Ctrl+0", &FrmPrintPreview::fit_sheet},
        {"true_size", {"&100 %", "&100 %"}, "Ctrl+1", &FrmPrintPreview::true_size},
        {"enlarge", {"&Vergrößern", "&Enlarge"}, "+", &FrmPrintPreview::enlarge},
        {"reduce", {"Ver&kleinern", "&Reduce"}, "-", &FrmPrintPreview::reduce},
    };
    auto* bar = new QMenuBar(this);
    for (const MenuRow& row : entries) add(nullptr, bar, row);
    QMenu* view = bar->addMenu(qt(view_caption, parts_.session.lang));
    for (const MenuRow& row : view_entries) add(view, bar, row);
    bar->setCornerWidget(switch_);
    switch_->setVisible(count_ > 1);
    return bar;
}

void FrmPrintPreview::add(QMenu* menu, QMenuBar* bar, const MenuRow& row) {
    const QString caption = qt(row.caption, parts_.session.lang);
    QAction* action = menu != nullptr ? menu->addAction(caption) : bar->addAction(caption);
    const bool of_short_circuit = content_.kind == ReportKind::ShortCircuit;
    action->setObjectName(row.act == &FrmPrintPreview::choose_printer && of_short_circuit
                              ? "mDruckereinrichtungks"
                              : row.name);
    action->setShortcut(QKeySequence(row.shortcut));
    on(action, &QAction::triggered, [this, act = row.act] { (this->*act)(); });
}

void FrmPrintPreview::make_panel() {
    panel_ = new QFrame;
    panel_->setObjectName("Picture2");
    panel_text_ = plain_label();
    panel_text_->setObjectName("panel_text");
    auto* line = new QHBoxLayout(panel_);
    line->setContentsMargins(0, 0, 0, 0);
    line->addWidget(panel_text_);
    sheets_->set_panel(*panel_);
}

/// A large screen has no need for it.
void FrmPrintPreview::show_panel() {
    panel_->setVisible(
        !(isMaximized() && screen()->size().width() * twips_per_pixel >= wide_screen));
}

void FrmPrintPreview::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    guarded(*this, [this] { show_panel(); });
}

void FrmPrintPreview::changeEvent(QEvent* event) {
    QDialog::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange) guarded(*this, [this] { show_panel(); });
}

void FrmPrintPreview::show_caption() {
    const LangId lang = parts_.session.lang;
    const std::size_t shown = sheets_->shown();
    switch_->setText(qt(fill(switch_caption.in(lang), {shown == 0 ? "2" : "1"})));
    switch_->setShortcut(QKeySequence("Ctrl+PgDown"));  // a new text takes it away
    std::string words =
        fill(panel_words.in(lang), {std::to_string(shown + 1), std::to_string(all_sheets_)});
    if (all_sheets_ > count_) words += fill(not_all_shown.in(lang), {std::to_string(all_sheets_)});
    if (!printed_on_.empty()) words += fill(printed_words.in(lang), {printed_on_});
    panel_text_->setText(qt(words));
}

void FrmPrintPreview::switch_sheet() {
    sheets_->show_sheet(1 - sheets_->shown());
    show_caption();
    sheets_->setFocus();
}

void FrmPrintPreview::print() {
    printed_on_ = content_.print();
    show_caption();
}

void FrmPrintPreview::save() {
    save_as(parts_.session, parts_.chooser, parts_.files, {save_title, filters, "pdf", not_saved},
            {}, std::string(file_name.in(parts_.session.lang)),
            [this](const std::string& path) -> std::optional<Box> {
                if (!has_ending(path, report_ending))
                    throw InputError(at(path, Reason(wrong_report_ending)));
                parts_.files.write(path, file_of(content_.report, content_.lang, sheets_file).pdf);
                return std::nullopt;
            });
}

void FrmPrintPreview::fit_width() { sheets_->fit_width(); }
void FrmPrintPreview::fit_sheet() { sheets_->fit_sheet(); }
void FrmPrintPreview::true_size() { sheets_->set_zoom(1); }
void FrmPrintPreview::enlarge() { sheets_->set_zoom(sheets_->zoom() * zoom_step); }
void FrmPrintPreview::reduce() { sheets_->set_zoom(sheets_->zoom() / zoom_step); }

}  // namespace zel
