#pragma once

#include <QScrollArea>
#include <vector>

#include "desktop/frame/field_panel.h"

class QCheckBox;
class QPushButton;
class QToolButton;

namespace zel {

/// What both input pages have in common: panels in columns, in a page that scrolls where the window
/// is too small for it.
class InputPage : public QScrollArea {
public:
    InputPage(DesktopState& state, FieldPanel::Refused refused);

    virtual void recaption();
    virtual void load();
    void commit();
    void mark_needed();
    void focus_first();

protected:
    /// The panels of `page`, in the order of the sections.
    void make_panels(int page);
    [[nodiscard]] FieldPanel& panel(std::size_t index) { return *panels_[index]; }
    /// Puts panels one below the other, aligned.
    [[nodiscard]] QWidget* column_of(const std::vector<std::size_t>& indexes);
    /// Shows `content`, no wider than is good for reading.
    void set_content(QWidget* content);
    /// Lets tab lead through the inputs of the panels in this order.
    void tab_through(const std::vector<std::size_t>& indexes);
    [[nodiscard]] DesktopState& state() const { return state_; }

private:
    DesktopState& state_;
    FieldPanel::Refused refused_;
    std::vector<FieldPanel*> panels_;
    std::vector<std::vector<FieldPanel*>> columns_;
};

/// Page 0: project, geography, surroundings, line, what is given, and the methods.
class GeneralPage : public InputPage {
public:
    GeneralPage(DesktopState& state, FieldPanel::Refused refused);

    void recaption() override;
    void load() override;
    /// Shows the fields of measured values where the settings want them.
    void show_measured();

private:
    void make_mode_list();
    [[nodiscard]] QGroupBox* make_methods();
    [[nodiscard]] QToolButton* make_age_button();
    void ask_age();
    void open_given_box();

    QWidget* measured_ = nullptr;
    QComboBox* mode_;
    QToolButton* age_button_;               // emissivity from the conductor's age
    std::vector<QCheckBox*> method_boxes_;  // filled while the group is made
    QGroupBox* methods_;
};

/// Page 1: the conductor. `Command3` opens the conductor database, `Command4` takes over what was
/// chosen there.
class ConductorPage : public InputPage {
public:
    ConductorPage(DesktopState& state, FieldPanel::Refused refused);

    void recaption() override;
    [[nodiscard]] QPushButton& Command3() { return *open_database_; }
    [[nodiscard]] QPushButton& Command4() { return *take_over_; }

private:
    QPushButton* open_database_;
    QPushButton* take_over_;
};

}  // namespace zel
