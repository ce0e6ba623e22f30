#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "desktop/frame/desktop_state.h"

class QAction;
class QMenu;
class QMenuBar;
class QWidget;

namespace zel {

/// A document that a menu opens by its name. An empty name means that there is none in that
/// language, the other one is then opened.
struct HelpDocument {
    const char* menu_entry;
    Text caption;
    Text file;
};

[[nodiscard]] std::span<const HelpDocument> help_documents();

/// The menu of the help documents, which lie in the folders `folders`, looked for in this order.
/// One that is missing, or that the system has no program for, is told.
class HelpMenu {
public:
    HelpMenu(QMenuBar& bar, QWidget& window, DesktopState& state, std::vector<std::string> folders);

    void recaption(LangId lang);

private:
    void open(const HelpDocument& document);

    DesktopState& state_;
    std::vector<std::string> folders_;
    QMenu* menu_;
    std::vector<std::pair<QAction*, Text>> captions_;
};

}  // namespace zel
