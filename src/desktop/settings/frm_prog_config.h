#pragma once

#include <QDialog>
#include <utility>
#include <vector>

#include "desktop/frame/live_settings.h"
#include "forms/config_options.h"
#include "shell/session.h"

class QGroupBox;
class QRadioButton;

namespace zel {

/// `frm_prog_config`: one group of options for each setting of the calculations and of what is
/// shown. A choice takes effect and is stored at once.
class FrmProgConfig : public QDialog {
public:
    FrmProgConfig(QWidget* parent, const Session& session, LiveSettings& settings);

private:
    [[nodiscard]] QGroupBox* make_group(const ConfigGroup& group);
    void choose(const ConfigOption& option);
    void show_present();
    void set_standard();

    const Session& session_;
    LiveSettings& settings_;
    std::vector<std::pair<const ConfigOption*, QRadioButton*>> options_;
};

}  // namespace zel
