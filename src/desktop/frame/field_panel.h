#pragma once

#include <QGroupBox>
#include <functional>
#include <vector>

#include "desktop/frame/desktop_state.h"
#include "forms/line_form.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace zel {

/// A section of a form as a framed group: label, input and unit of each row in an aligned grid.
/// Keys are filtered one by one. What is typed goes to the case, through the entry rules, when the
/// input is left (not when only the window is); a refused text is told, emptied, and gets the focus
/// back.
class FieldPanel : public QGroupBox {
public:
    /// Called with the input whose text was refused.
    using Refused = std::function<void(QWidget*)>;

    FieldPanel(const forms::Section& section, DesktopState& state, Refused refused);

    /// Captions, hints and list entries in the language of the session.
    void recaption();
    /// Shows what stands in the case.
    void load();
    /// Takes in what is typed but not yet finished.
    void commit();
    /// Greys the labels of rows that no selected method reads.
    void mark_needed();

    /// The inputs in the order of the rows.
    [[nodiscard]] std::vector<QWidget*> inputs() const;

    /// A widget above the rows, as wide as the panel.
    void add_on_top(QWidget* widget);

    /// A widget beside the input named `control`, in the place of its unit.
    void add_beside(std::string_view control, QWidget* widget);

    /// The widest label and unit; panels one below the other are aligned by them.
    struct ColumnWidths {
        int label = 0;
        int unit = 0;
    };
    [[nodiscard]] ColumnWidths column_widths() const;
    void set_column_widths(ColumnWidths widths);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Field {
        const forms::Row* row;
        QLabel* label;
        QLineEdit* edit;  // either this
        QComboBox* list;  // or this
        QLabel* unit;     // none beside a list and a free text
        QWidget* beside;  // in place of the unit
    };

    void add_row(const forms::Row& row, int index);
    QLineEdit* make_edit(const forms::Row& row);
    QComboBox* make_list(const forms::Row& row);
    void recaption_list(const Field& field);
    void take_in(const forms::Row& row, QLineEdit& edit);

    const forms::Section& section_;
    DesktopState& state_;
    forms::LineForm form_;
    Refused refused_;
    QGridLayout* grid_;
    std::vector<Field> fields_;
};

/// Gives panels that stand one below the other the same columns.
void align(const std::vector<FieldPanel*>& panels);

}  // namespace zel
