#pragma once

#include <QWidget>
#include <vector>

#include "desktop/frame/form_panel.h"
#include "desktop/frame/sheet_saving.h"
#include "desktop/line/table_model.h"

class QHBoxLayout;
class QPushButton;
class QTableView;
class QToolButton;

namespace zel {

/// The parameter table of the result page: winds, range and step, the button that calculates it,
/// and the table, to be copied and saved. What is changed in the case takes the table away. A long
/// calculation shows how far it is and can be cancelled; it then leaves all as it was.
class TablePanel : public QWidget {
public:
    struct Parts {
        FormParts form;
        CalcCase& c;
        SheetSaving saving;
        int patience;  // in milliseconds: a longer calculation shows its progress
    };

    explicit TablePanel(const Parts& parts);

    /// Called where a table has been calculated.
    std::function<void()> calculated = [] {};
    /// Draws the diagram of the ranges.
    std::function<void()> draw = [] {};

    [[nodiscard]] QTableView& view() { return *view_; }
    /// The table of the case as it stands; null where there is none.
    [[nodiscard]] const ParameterTable* table() const {
        return model_.rowCount() > 0 ? &model_.table() : nullptr;
    }
    void load(bool anew);
    void commit();
    [[nodiscard]] bool is_unfinished() const;
    /// The input of `field`, or null.
    [[nodiscard]] QWidget* input(const FieldInfo& field) const;
    /// Shows what hangs on the case. A table that is not that of the case any more goes.
    void case_changed();
    /// Shows no table, as before the first one.
    void clear();

private:
    struct ButtonRow;

    void make_view();
    [[nodiscard]] QToolButton* make_steps(FormPanel& panel, const forms::Row& row);
    [[nodiscard]] QHBoxLayout* make_buttons();
    void show_captions();
    void show_heading();
    void calculate();
    [[nodiscard]] bool taken_in();
    void show_diagram();
    void copy();
    void save();

    Parts parts_;
    bool typing_refused_ = false;  // a text was refused while the inputs were taken in
    std::vector<FormPanel*> panels_;
    std::vector<QPushButton*> buttons_;
    QLabel* caption_;
    QLabel* heading_;
    TableModel model_;
    QTableView* view_;
    CalcCase inputs_;  // that led to the table
    bool running_ = false;
};

}  // namespace zel
