#pragma once

#include <QDialog>

#include "desktop/frame/desktop_state.h"
#include "forms/select_path.h"

class QLabel;

namespace zel {

/// `frm_selectPath`: shows one of the paths of the program and lets the user set it. A path that
/// was chosen counts and is stored at once; the form stays open until it is closed.
class FrmSelectPath : public QDialog {
public:
    FrmSelectPath(QWidget* parent, DesktopState& state, const PathRole& role);

private:
    void select();

    DesktopState& state_;
    const PathRole& role_;
    QLabel* path_;
};

}  // namespace zel
