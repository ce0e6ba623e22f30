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

bool FileDrops::eventFilter(QObject* of, QEvent* event) {
    const auto type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) return false;
    const auto* part = qobject_cast<QWidget*>(of);
    if (part == nullptr || QApplication::activeModalWidget() != nullptr ||
        std::find(windows_.begin(), windows_.end(), part->window()) == windows_.end())
        return false;
    auto& drop = static_cast<QDropEvent&>(*event);
    const std::string path = file_of(drop);
    if (path.empty()) return false;
    drop.setDropAction(Qt::CopyAction);
    drop.accept();
    // The program that the file comes from waits until the drop is done.
    if (type == QEvent::Drop)
        later(*this, [this, path, window = part->window()] { open_(path, *window); });
    return true;
}

}  // namespace zel
