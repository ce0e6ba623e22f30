#include "desktop/frame/recent_menu.h"

#include <QAction>
#include <QMenu>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"

namespace zel {
namespace {

constexpr Text none = {"(noch keine)", "(none yet)"};
constexpr Text missing = {"{0} (Datei fehlt)", "{0} (file is missing)"};

/// Of a path that is too long for a menu the end is what tells it from others.
std::string shown(const std::string& path) {
    constexpr std::size_t most = 70;
    return path.size() <= most ? path : "..." + qt(path).right(most).toStdString();
}

}  // namespace

void keep_filled(QMenu& menu, const RecentParts& parts, const Session& session) {
    menu.setToolTipsVisible(true);
    on(&menu, &QMenu::aboutToShow, [&menu, parts, &session] {
        menu.clear();
        int number = 1;
        for (const std::string& path : parts.files.all()) {
            const bool there = parts.disk.exists(path);
            const std::string text =
                there ? shown(path) : fill(missing.in(session.lang), {shown(path)});
            QAction* entry =
                menu.addAction(QString("&%1  ").arg(number++) + qt(text).replace("&", "&&"));
            entry->setObjectName("recent_file");
            entry->setToolTip(qt(path));
            entry->setEnabled(there);
            on(entry, &QAction::triggered, [open = parts.open, path] { open(path); });
        }
        if (menu.isEmpty()) menu.addAction(qt(none, session.lang))->setEnabled(false);
    });
}

}  // namespace zel
