#pragma once

#include <QProgressDialog>

#include "desktop/frame/desktop_state.h"
#include "tb601_transient/transient/transient_run.h"

namespace zel {

/// Shows how far a long run is, with a button to cancel it. It comes up only where the run takes
/// longer than a moment. While it is there no other window takes input or can be closed, so that
/// nothing changes under the run.
class RunProgress {
public:
    RunProgress(QWidget* parent, const DesktopState& state);

    /// Shows the progress and lets the windows live on; false where the user cancels.
    [[nodiscard]] bool goes_on(const TransientProgress& at);

private:
    LangId lang_;
    QProgressDialog dialog_;
};

}  // namespace zel
