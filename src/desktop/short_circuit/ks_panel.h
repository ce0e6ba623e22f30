#pragma once

#include <QGroupBox>
#include <functional>
#include <string>
#include <vector>

#include "desktop/short_circuit/ks_state.h"
#include "forms/short_circuit_form.h"

class QComboBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace zel {

/// A section of the short-circuit form as a framed group: label, input and unit of each row in an
/// aligned grid. What is typed goes to the case when the input is left; a refused text is told and
/// gets the focus back. A choice goes there at once.
class KsPanel : public QGroupBox {
public:
    struct Notify {
        std::function<void(QWidget*)> refused;  // with the input whose text was refused
        std::function<void()> changed;          // the case has changed
    };

    KsPanel(const forms::Section& section, KsState& state, Notify notify);

    /// Hints and the title in the language of the session.
    void recaption();
    /// Shows what stands in the case and which inputs are open. A text that was refused and waits
    /// to be corrected stays in its box, unless the box is closed.
    void load();
    /// Forgets texts that wait to be corrected: the case is another one.
    void load_anew();
    /// Takes in what is typed but not yet finished.
    void commit();

    /// The inputs in the order of the rows.
    [[nodiscard]] std::vector<QWidget*> inputs() const;
    /// The input of `key`, or null.
    [[nodiscard]] QWidget* input(KsKey key) const;

    /// A widget over the whole width, below the rows.
    void add_below(QWidget* widget);

    void set_label_width(int width);
    [[nodiscard]] int label_width() const;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Field {
        const forms::Row* row;
        QLabel* label;
        QLineEdit* edit;   // either this
        QComboBox* list;   // or this
        QLabel* shown;     // or this, of a conductor's record
        QLabel* unit;      // where there is one
        std::string seen;  // the text of the box when it was taken in or shown
        std::string kept;  // what the case made of it

        [[nodiscard]] QWidget* input() const;
    };

    void add_row(const forms::Row& row);
    void add_note(std::string_view note);
    [[nodiscard]] QLineEdit* make_edit(const forms::Row& row);
    [[nodiscard]] QComboBox* make_list(const forms::Row& row);
    void take_in(Field& field);
    void load(Field& field, bool anew);
    [[nodiscard]] bool is_open(const forms::Row& row) const;

    const forms::Section& section_;
    KsState& state_;
    forms::ShortCircuitRecord form_;
    Notify notify_;
    QGridLayout* grid_;
    std::vector<Field> fields_;
};

/// Gives panels that stand one below the other labels of one width.
void align(const std::vector<KsPanel*>& panels);

}  // namespace zel
