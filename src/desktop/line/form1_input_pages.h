#pragma once

#include "desktop/frame/input_page.h"
#include "desktop/frame/live_settings.h"
#include "desktop/line/line_case.h"

class QCheckBox;
class QGroupBox;
class QPushButton;
class QToolButton;

namespace zel {

class FieldMark;

/// Page 0: project, geography, surroundings, line, what is given, and the methods.
class GeneralPage : public InputPage {
public:
    GeneralPage(const FormParts& parts, LineCase& line, const LiveSettings& settings);

    void load() override;
    void load_anew() override;
    /// Also the list of the mode, and the choice of methods.
    [[nodiscard]] QWidget* input(const FieldInfo& field) const override;
    void show_marks() override;
    /// The button that adds the case to the table at hand.
    [[nodiscard]] QPushButton& Command2() { return *keep_; }
    /// Shows the fields of measured values where the settings want them.
    void show_measured();

private:
    [[nodiscard]] QComboBox* make_mode_list();
    [[nodiscard]] QGroupBox* make_methods();
    [[nodiscard]] QToolButton* make_age_button();
    void ask_age();
    void show_choices();

    LineCase& line_;
    const LiveSettings& settings_;
    QWidget* measured_ = nullptr;  // the panel
    QComboBox* mode_;
    QPushButton* keep_;
    std::vector<QCheckBox*> method_boxes_;
    FieldMark* mode_mark_;
    FieldMark* methods_mark_ = nullptr;
};

/// Page 1: the conductor. `Command3` opens the conductor database, `Command4` takes over what was
/// chosen there.
class ConductorPage : public InputPage {
public:
    explicit ConductorPage(const FormParts& parts);

    [[nodiscard]] QPushButton& Command3() { return *open_database_; }
    [[nodiscard]] QPushButton& Command4() { return *take_over_; }

private:
    QPushButton* open_database_;
    QPushButton* take_over_;
};

}  // namespace zel
