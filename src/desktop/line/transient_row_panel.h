#pragma once

#include <QObject>
#include <array>
#include <cstddef>
#include <functional>

#include "desktop/frame/captions.h"
#include "desktop/line/line_case.h"
#include "messages/area_messages.h"
#include "steady/case/case_fields.h"

class QButtonGroup;
class QGridLayout;
class QLabel;
class QLineEdit;
class QRadioButton;
class QToolButton;

namespace zel {

class FieldMark;
class NoteLine;

/// The columns of the grid of changes of state.
enum TransientColumn {
    name_column = 0,
    kind_column = 1,  // and the two after it
    off_column = 4,
    cell_column = 5,  // and the three after it
    total_column = 9,
};

/// One change of state as a row of the grid: its kind, the ' - ' button that switches it off, its
/// four cells, the time up to its end, and the note on it below them. A cell of a quantity that is
/// sought takes no input and shows what the last run found.
class TransientRowPanel : public QObject {
public:
    /// What a row works with.
    struct Parts {
        LineCase& line;
        const Session& session;
        Captions& captions;
        AreaMessages& messages;
        std::function<void(QWidget*)> refused;  // called with the input whose text was refused
        std::function<void()> typed;            // called at each key that changes a text
    };

    /// Row `index` (0 to 5), placed into `lines` of `grid` from `line` on.
    static constexpr int lines = 3;
    TransientRowPanel(std::size_t index, Parts parts, QGridLayout& grid, int line);

    /// Where the page is narrow, name and time stand above the inputs.
    void place(QGridLayout& grid, bool narrow);
    /// Shows what stands in the case and what the last run found; a stale result is greyed.
    void load(bool stale);
    /// In the language of the session.
    void show_note();
    /// Takes in what is typed but not yet finished.
    void commit();
    /// Whether there is any.
    [[nodiscard]] bool is_unfinished() const;

    /// The input of `cell`, or of the kind for a null `cell`.
    [[nodiscard]] QWidget* input(StateCell cell) const;
    /// In the order in which tab leads along them; the button that switches off comes apart.
    [[nodiscard]] std::vector<QWidget*> inputs() const;
    [[nodiscard]] QWidget* off_button() const;

    /// Of the choice of the kind: the key - switches the row off.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void enter_captions();
    void describe_cell(std::size_t cell, LangId lang);
    void show_mark(std::size_t cell);
    void make_kinds(QGridLayout& grid, int line);
    void make_cells(QGridLayout& grid, int line);
    void set_kind(std::int16_t kind);
    void show_kind();
    void take_in(std::size_t cell);
    [[nodiscard]] bool is_unfinished(std::size_t cell) const;
    [[nodiscard]] StateChange& row() const;
    [[nodiscard]] std::string text_of(std::size_t cell) const;
    [[nodiscard]] bool is_found(std::size_t cell) const;
    [[nodiscard]] bool has_result() const;

    std::size_t index_;
    Parts parts_;
    int line_;
    QLabel* name_;
    QButtonGroup* kinds_;
    std::array<QRadioButton*, 3> kind_buttons_{};
    QToolButton* off_;
    std::array<QLineEdit*, 4> cells_{};
    std::array<FieldMark*, 4> marks_{};
    QLabel* total_;
    NoteLine* note_;
    QObject alive_;  // ends before the boxes do
};

}  // namespace zel
