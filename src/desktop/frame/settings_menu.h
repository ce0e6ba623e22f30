#pragma once

#include <utility>
#include <vector>

#include "desktop/frame/desktop_state.h"
#include "forms/select_path.h"

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace zel {

/// The windows that have a settings menu.
enum class MenuWindow : unsigned { FormMain = 1, Form1 = 2, KS_Form1 = 4 };

/// The menu of the settings in a window: each choice takes effect and is stored at once, and the
/// marks show the present settings.
class SettingsMenu {
public:
    SettingsMenu(QMenuBar& bar, QWidget& window, DesktopState& state, MenuWindow kind);

    /// Captions and marks as language and settings are now.
    void refresh();

private:
    struct Choice {
        QAction* action;
        NumberMember setting;
        std::int16_t value;
    };

    QAction* add(QMenu& menu, const char* name, const Text& caption);
    void add_choices(unsigned window);
    void add_forms();
    void flip_language_dialog();

    QWidget& window_;
    DesktopState& state_;
    QMenu* menu_;
    std::vector<std::pair<QMenu*, Text>> submenus_;
    std::vector<std::pair<QAction*, Text>> captions_;
    std::vector<Choice> choices_;
    QAction* language_dialog_ = nullptr;
};

}  // namespace zel
