#pragma once

#include <functional>

#include "desktop/frame/captions.h"

class QMenu;
class QMenuBar;

namespace zel {

/// The menu by which a window offers the languages of the interface; its marks show the present
/// one. `switch_to` is called with the one that the user chooses.
QMenu* add_language_menu(QMenuBar& bar, Captions& captions,
                         const std::function<void(LangId)>& switch_to);

/// What the windows have from their library (file dialogs, menus of text boxes, names of keys) is
/// in `lang` from now on. Without the package of its German texts it stays English.
void set_qt_language(LangId lang);

}  // namespace zel
