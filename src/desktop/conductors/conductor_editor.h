#pragma once

#include <QDialog>
#include <functional>
#include <optional>

#include "desktop/conductors/conductor_desk.h"
#include "desktop/conductors/conductor_sheet.h"
#include "desktop/conductors/conductor_table.h"

class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QTableView;

namespace zel {

/// The conductor database of this program: shows the shipped and the user's own conductors, finds,
/// sorts, and keeps own ones; the chosen one is written as a record into the exchange file.
class ConductorEditor : public QDialog {
public:
    /// `take_over` is called after a record was written that shall be taken over at once. Throws
    /// `InputError` where the shipped library is missing.
    ConductorEditor(QWidget* parent, const ConductorParts& parts, std::function<void()> take_over);

    /// Comes up, to look at and choose from the conductors as they are now.
    void open_anew();

    void recaption(LangId lang) { captions_.show(lang); }
    /// Asks before changes of a conductor are lost that are not kept; false where they shall not
    /// be.
    [[nodiscard]] bool may_be_left();
    void reject() override;

private:
    struct ButtonRow;
    enum class Mode : std::uint8_t { Looking, Adding, Changing };

    void read_library();
    /// The conductors, and the damaged lines of the user's file before them.
    void show_library();
    void tell_damage() const;
    void fit_columns();
    void find(const QString& typed);
    [[nodiscard]] QWidget* make_list();
    void make_buttons(QHBoxLayout& line);
    [[nodiscard]] std::optional<LibraryConductor> selected() const;
    void select(const LibraryConductor& conductor);
    void show_selected();
    void enter(Mode mode);

    void add();
    void copy();
    void change();
    void remove();
    void keep();
    void discard();
    void choose();
    void choose_and_take_over();
    [[nodiscard]] bool write_record();
    [[nodiscard]] bool confirmed(LibraryConductor& conductor) const;
    [[nodiscard]] bool carried_out(const std::function<void()>& act, const BoxText& failed) const;
    Answer tell(const BoxText& text, std::initializer_list<std::string_view> values = {}) const;

    ConductorParts parts_;
    Captions captions_;
    std::function<void()> take_over_;
    std::optional<ConductorLibrary> library_;
    ConductorTable table_;
    FoundConductors found_;
    QLineEdit* find_;
    QTableView* view_;
    QLabel* count_;
    ConductorSheet* sheet_;
    std::vector<std::pair<QPushButton*, const ButtonRow*>> buttons_;
    Mode mode_ = Mode::Looking;
    std::optional<LibraryConductor> before_;  // what is being changed, as it was
};

}  // namespace zel
