#include "desktop/frame/file_drops.h"

#include <QApplication>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <algorithm>
#include <utility>

#include "desktop/frame/events.h"

namespace zel {
namespace {

/// The one file of a drop; empty where it is none, or several.
std::string file_of(const QDropEvent& drop) {
    const QList<QUrl> urls = drop.mimeData()->urls();
    return urls.size() == 1 ? urls.first().toLocalFile().toStdString() : std::string();
}

}  // namespace

FileDrops::FileDrops(const std::vector<QWidget*>& windows, Open open)
    : windows_(windows), open_(std::move(open)) {
    for (QWidget* window : windows_) window->setAcceptDrops(true);
    // Boxes would take the name of the file for a text.
    QCoreApplication::instance()->installEventFilter(this);
}

/// Among the windows, or null.
QWidget* FileDrops::window_of(const QWidget& part) const {
    QWidget* window = part.window();
    while (std::find(windows_.begin(), windows_.end(), window) == windows_.end()) {
        if (window->parentWidget() == nullptr) return nullptr;
        window = window->parentWidget()->window();
    }
    return window;
}

bool FileDrops::eventFilter(QObject* of, QEvent* event) {
    const auto type = event->type();
    const bool dragged = type == QEvent::DragEnter || type == QEvent::DragMove;
    if (!dragged && type != QEvent::Drop && type != QEvent::Show) return false;
    auto* part = qobject_cast<QWidget*>(of);
    if (part == nullptr) return false;
    if (type == QEvent::Show) {
        if (part->isWindow() && window_of(*part) != nullptr) part->setAcceptDrops(true);
        return false;
    }
    const QWidget* modal = QApplication::activeModalWidget();
    QWidget* window = window_of(*part);
    if (window == nullptr || (modal != nullptr && modal != window)) return false;
    auto& drop = static_cast<QDropEvent&>(*event);
    const std::string path = file_of(drop);
    if (path.empty()) return false;
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    // The program that the file comes from waits until the drop is done.
    if (type == QEvent::Drop) later(*this, [this, path, window] { open_(path, *window); });
    return true;
}

}  // namespace zel
