#pragma once

#include <QScrollArea>
#include <vector>

#include "desktop/short_circuit/ks_panel.h"

class QHBoxLayout;
class QPushButton;

namespace zel {

/// An input page of the short-circuit form: its panels, in a page that scrolls where the window is
/// too small for it.
class KsInputPage : public QScrollArea {
public:
    /// `page` is the number of the page.
    KsInputPage(int page, KsState& state, const KsPanel::Notify& notify);

    virtual void recaption();
    void load();
    void load_anew();
    void commit();
    void focus_first();
    /// The input of `key`, or null.
    [[nodiscard]] QWidget* input(KsKey key) const;

protected:
    [[nodiscard]] const std::vector<KsPanel*>& panels() const { return panels_; }
    [[nodiscard]] KsState& state() const { return state_; }
    /// Shows the panels in columns, each given by the indexes of its panels.
    void set_columns(const std::vector<std::vector<std::size_t>>& columns);

private:
    KsState& state_;
    std::vector<KsPanel*> panels_;
};

/// Page 0: project, current, and what is judged.
class KsGeneralPage : public KsInputPage {
public:
    KsGeneralPage(KsState& state, const KsPanel::Notify& notify);
};

/// Page 1: the conductor, with the buttons that take it over from the database.
class KsConductorPage : public KsInputPage {
public:
    KsConductorPage(KsState& state, const KsPanel::Notify& notify);

    void recaption() override;
    /// Takes over the conductor that was chosen in the database.
    void take_over();

private:
    [[nodiscard]] QWidget* make_buttons();

    KsPanel::Notify notify_;
    QPushButton* start_;
    QPushButton* take_over_;
};

}  // namespace zel
