#pragma once

#include <functional>

#include "platform/text/text.h"

class QAction;
class QMenu;
class QMenuBar;

namespace zel {

/// The menu by which a window offers the languages of the interface; its marks show the present
/// one.
class LanguageMenu {
public:
    LanguageMenu(QMenuBar& bar, const std::function<void(LangId)>& switch_to);

    void recaption(LangId lang);

private:
    QMenu* menu_;
    QAction* german_;
    QAction* english_;
};

}  // namespace zel
