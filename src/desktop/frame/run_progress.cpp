#include "desktop/frame/run_progress.h"

#include <algorithm>

#include "desktop/frame/qt_text.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

constexpr int all_steps = 1000;  // of one row
constexpr Text title = {"Berechnung", "Calculation"};
constexpr Text cancel_caption = {"Abbrechen", "Cancel"};

}  // namespace

RunProgress::RunProgress(QWidget* parent, const DesktopState& state)
    : lang_(state.session.lang),
      dialog_(QString(), qt(cancel_caption, lang_), 0, all_steps, parent->window()) {
    dialog_.setObjectName("run_progress");
    dialog_.setWindowTitle(qt(title, lang_));
    dialog_.setWindowModality(Qt::ApplicationModal);
    dialog_.setMinimumDuration(state.patience_ms);
    dialog_.setAutoClose(false);
    dialog_.setAutoReset(false);
    dialog_.setMinimumWidth(360);
    dialog_.setValue(0);
}

bool RunProgress::goes_on(const TransientProgress& at) {
    const auto row = static_cast<std::size_t>(std::clamp(at.row, 1, 6) - 1);
    dialog_.setLabelText(qt(change_of_state_names[row], lang_));
    dialog_.setValue(std::clamp(static_cast<int>(at.done * all_steps), 1, all_steps));
    return !dialog_.wasCanceled();
}

}  // namespace zel
