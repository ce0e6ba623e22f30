#pragma once

#include <QWidget>
#include <functional>

#include "compare/comparison.h"
#include "desktop/frame/widgets.h"
#include "desktop/pictures/picture_panel.h"
#include "platform/workbook.h"

class QListWidget;
class QListWidgetItem;
class QPushButton;
class QTableWidget;

namespace zel {

/// The runs of a session as a list, those with a tick beside the newest one in a table: a tick pins
/// a run, so that the next ones stand beside it. What differs is bold.
class ComparePanel : public QWidget {
public:
    struct Parts {
        PanelParts panel;
        WorkbookStore& workbooks;
        /// The run becomes the case.
        std::function<void(const KeptRun&)> open;
        /// The case of a run as a JSON text.
        std::function<std::string(const CalcCase&)> json;
    };
    explicit ComparePanel(Parts parts);

    void keep(KeptRun run);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    [[nodiscard]] QWidget* make_buttons();
    [[nodiscard]] const KeptRun* chosen_run() const;
    [[nodiscard]] Comparison compared(ComparedInputs inputs) const;
    void show_runs();
    void show_table();
    void show_ticks();
    void fit_columns(int first);
    [[nodiscard]] int widest_word(int column) const;
    void pin_as_ticked(const QListWidgetItem& item);
    void copy_table() const;
    void save_table() const;

    Parts parts_;
    RunHistory history_;
    QListWidget* list_;
    NoteLine* note_;  // which run has lost its tick
    QTableWidget* table_;
    std::vector<QPushButton*> of_run_;  // what is about the chosen run
};

}  // namespace zel
