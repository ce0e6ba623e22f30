#pragma once

#include <QGroupBox>
#include <functional>
#include <string>
#include <vector>

#include "desktop/frame/captions.h"
#include "forms/form.h"
#include "messages/area_messages.h"
#include "shell/session.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace zel {

class FieldMark;

/// What the panels of one area have in common that those of another have not.
struct FormLook {
    int row_gap = 10;                  // pixels
    int number_width = 68;             // pixels at least
    int list_length = 6;               // characters at least
    bool fills_room = true;            // panels are as high as the room that they have
    bool closed_turn_grey = false;     // inputs that are closed, and their labels
    bool return_leaves_lists = false;  // as it leaves boxes
};

/// What a panel works with.
struct FormParts {
    forms::Record& record;
    const Session& session;
    Captions& captions;
    std::function<void(QWidget*)> refused;  // called with the input whose text was refused
    std::function<void()> changed;          // called when the record has changed
    FormLook look{};
    std::function<void()> typed = [] {};  // called at each key that changes a text
    AreaMessages* messages = nullptr;     // of the area; without it no input bears a mark
};

/// A section of a form as a framed group: label, input and unit of each row in an aligned grid.
/// What is typed goes to the record when the input is left (not when only the window is), a choice
/// at once. A refused text is told and gets the focus back; it is emptied or stays to be corrected,
/// as the record says.
class FormPanel : public QGroupBox {
public:
    FormPanel(const forms::Section& section, const FormParts& parts);

    /// Shows what stands in the record, which inputs are open and which are needed. A text that
    /// waits to be corrected stays in its box, unless the box is closed.
    void load() { load(false); }
    /// Forgets texts that wait to be corrected: the record is another one.
    void load_anew() { load(true); }
    /// Shows which inputs are open and which are needed.
    void show_states();
    /// Shows which inputs are needed or wrong.
    void show_marks();
    /// What an input is called may hang on others.
    void show_labels();
    /// Takes in what is typed but not yet finished.
    void commit();
    /// Whether there is any.
    [[nodiscard]] bool is_unfinished() const;

    /// The texts that are typed and not yet taken in.
    [[nodiscard]] std::vector<forms::PendingText> pending() const;

    /// The inputs in the order of the rows.
    [[nodiscard]] std::vector<QWidget*> inputs() const;
    /// The input of `field`, or null.
    [[nodiscard]] QWidget* input(const FieldInfo& field) const;

    /// A widget over the whole width, above or below the rows.
    void add_on_top(QWidget* widget);
    void add_below(QWidget* widget);
    /// A widget beside the input named `control`, in the place of its unit.
    void add_beside(std::string_view control, QWidget* widget);

    /// What it needs with all its rows side by side, in pixels. A narrower panel has fewer of them
    /// in a line.
    [[nodiscard]] int full_width() const { return width_with(section_.columns); }
    [[nodiscard]] QSize minimumSizeHint() const override;

    /// The widest label and unit; panels one below the other are aligned by them.
    struct ColumnWidths {
        int label = 0;
        int unit = 0;
    };
    [[nodiscard]] ColumnWidths column_widths() const;
    void set_column_widths(ColumnWidths widths);

protected:
    bool event(QEvent* event) override;
    /// Of the inputs: what gets the focus comes into sight, whatever has led there.
    bool eventFilter(QObject* of, QEvent* event) override;

private:
    struct Field {
        const forms::Row* row;
        QLabel* label;
        QLineEdit* edit = nullptr;  // either this
        QComboBox* list = nullptr;  // or this
        QLabel* shown = nullptr;    // or this, of what is not typed
        QWidget* unit = nullptr;    // or what stands in its place
        FieldMark* mark = nullptr;
        bool wide = false;   // also over the place of the unit
        std::string seen{};  // the text of the box when it was taken in or shown
        std::string kept{};  // what the record made of it

        [[nodiscard]] QWidget* input() const;
        [[nodiscard]] QWidget* content() const;
    };

    void add_row(const forms::Row& row, bool new_line, int column);
    void add_note(const Text& note);
    [[nodiscard]] int width_with(int columns) const;
    void place_rows(int columns);
    void share_columns();
    void enter_captions(std::size_t index);
    [[nodiscard]] QLabel* make_label() const;
    [[nodiscard]] QLineEdit* make_edit(std::size_t index);
    [[nodiscard]] QComboBox* make_list(const forms::Row& row);
    void close_in_grey(QWidget& input) const;
    void name_choices(const Field& field) const;
    void show_label(const Field& field) const;
    bool show_state(const Field& field);
    void show_beside(const Field& field, bool assumed) const;
    void load(bool anew);
    void load(Field& field, bool anew);
    void tell_typing(const Field& field) const;
    void take_in(Field& field);

    const forms::Section& section_;
    FormParts parts_;
    QGridLayout* grid_;
    int columns_;         // rows that stand side by side now
    int first_line_ = 0;  // of the grid
    std::vector<Field> fields_;
    QObject alive_;  // ends before the boxes do
};

/// Gives panels that stand one below the other the same columns.
void align(const std::vector<FormPanel*>& panels);

}  // namespace zel
