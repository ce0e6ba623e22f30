#pragma once

#include "platform/text/text.h"

class QWidget;

namespace zel {

/// Shows what the program is, its version, and what it is built with under which licences.
void show_about(QWidget* parent, LangId lang);

}  // namespace zel
