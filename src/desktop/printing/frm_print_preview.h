#pragma once

#include <QDialog>
#include <functional>

#include "desktop/frame/file_chooser.h"
#include "platform/files.h"
#include "reports/printing.h"
#include "shell/session.h"

class QFrame;
class QLabel;
class QMenu;
class QMenuBar;
class QPushButton;

namespace zel {

class PreviewSheets;

/// What the preview works with.
struct PreviewParts {
    const Session& session;
    FileChooser& chooser;
    Files& files;
};

/// What is shown, and what its entries do.
struct PreviewContent {
    ReportKind kind;
    Report report;
    PrintLang lang;
    std::function<std::string()> print;  // gives the printer, or nothing where it failed
    std::function<void(QWidget& window)> choose_printer;
};

/// `frm_print_preview`, and `Ks_Form10b` of the short-circuit area: the first two sheets of a
/// report, as they come out of the printer, to be printed or saved as PDF.
class FrmPrintPreview : public QDialog {
public:
    FrmPrintPreview(QWidget* parent, const PreviewParts& parts, PreviewContent content);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    struct MenuRow;

    [[nodiscard]] QMenuBar* make_menu();
    void add(QMenu* menu, QMenuBar* bar, const MenuRow& row);
    void place_window();
    void make_panel();
    void show_panel();
    void show_caption();
    void switch_sheet();
    void print();
    void choose_printer() { content_.choose_printer(*this); }
    void save();
    void fit_width();
    void fit_sheet();
    void true_size();
    void enlarge();
    void reduce();

    PreviewParts parts_;
    PreviewContent content_;
    std::size_t all_sheets_;  // of the report, of which the preview shows the first ones
    std::size_t count_;       // of those that are shown
    PreviewSheets* sheets_;
    QFrame* panel_;
    QLabel* panel_text_;
    QPushButton* switch_;
    std::string printed_on_{};
};

}  // namespace zel
