#pragma once

#include "platform/text/text.h"

namespace zel {

/// What the windows have from their library (file dialogs, menus of text boxes, names of keys) is
/// in `lang` from now on. Without the package of its German texts it stays English.
void set_qt_language(LangId lang);

}  // namespace zel
