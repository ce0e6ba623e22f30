#pragma once

#include <span>
#include <string>
#include <utility>
#include <vector>

#include "desktop/frame/captions.h"
#include "platform/system.h"
#include "shell/session.h"

class QMenuBar;

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
/// One that is missing, or that the system has no program for, is told. Below them stands what the
/// program is and what it is built with.
class HelpMenu {
public:
    HelpMenu(const Session& session, Launcher& launcher, std::vector<std::string> folders)
        : session_(session), launcher_(launcher), folders_(std::move(folders)) {}

    /// F1 opens the document of the entry `first_help`.
    void add_to(QMenuBar& bar, Captions& captions, std::string_view first_help);

private:
    void open(const HelpDocument& document);

    const Session& session_;
    Launcher& launcher_;
    std::vector<std::string> folders_;
};

}  // namespace zel
