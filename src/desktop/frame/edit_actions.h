#pragma once

#include "desktop/frame/captions.h"

class QMenu;

namespace zel {

/// Undo, Cut, Copy and Paste, which act on the input that has the focus as their keys do.
void add_edit_actions(QMenu& menu, Captions& captions);

}  // namespace zel
