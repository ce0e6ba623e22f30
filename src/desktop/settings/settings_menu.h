#pragma once

#include <vector>

#include "desktop/frame/captions.h"
#include "desktop/frame/file_chooser.h"
#include "desktop/frame/live_settings.h"
#include "forms/select_path.h"
#include "shell/session.h"
#include "shell/startup.h"

class QAction;
class QMainWindow;
class QMenu;

namespace zel {

/// The windows that have a settings menu.
enum class MenuWindow : unsigned { FormMain = 1, Form1 = 2, KS_Form1 = 4 };

/// What the settings menus and their forms work with.
struct SettingsParts {
    const Session& session;
    LiveSettings& settings;
    FileChooser& chooser;
};

/// The menu of the settings in a window: each choice takes effect and is stored at once, and the
/// marks show the present settings.
class SettingsMenu {
public:
    /// The menu stands before `next`, or last where that is null.
    SettingsMenu(QMainWindow& window, MenuWindow kind, const SettingsParts& parts,
                 Captions& captions, QMenu* next = nullptr);

    /// Marks as the settings are now.
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
    void add_language_dialog();

    QMainWindow& window_;
    SettingsParts parts_;
    Captions& captions_;
    QMenu* menu_;
    std::vector<Choice> choices_;
    QAction* language_dialog_ = nullptr;
};

}  // namespace zel
