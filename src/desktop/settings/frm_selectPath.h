#pragma once

#include <QDialog>

#include "desktop/settings/settings_menu.h"

class QLabel;

namespace zel {

/// `frm_selectPath`: shows one of the paths of the program and lets the user set it. A path that
/// was chosen counts and is stored at once; the form stays open until it is closed.
class FrmSelectPath : public QDialog {
public:
    FrmSelectPath(QWidget* parent, const SettingsParts& parts, const PathRole& role);

private:
    void select();

    SettingsParts parts_;
    const PathRole& role_;
    QLabel* path_;
};

}  // namespace zel
