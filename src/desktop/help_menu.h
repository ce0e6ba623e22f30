#pragma once

#include <span>

#include "desktop/frame/captions.h"
#include "desktop/help.h"

class QMenuBar;

namespace zel {

[[nodiscard]] std::span<const HelpDocument> help_documents();

/// Adds the menu of the help to a window: the guide at what fits the window, which F1 opens too,
/// the documents, and what the program is and is built with.
void add_help_menu(QMenuBar& bar, Captions& captions, const Help& help);

}  // namespace zel
