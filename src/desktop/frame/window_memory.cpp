#include "desktop/frame/window_memory.h"

#include <QApplication>
#include <QDockWidget>
#include <QHeaderView>
#include <QMainWindow>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QTableView>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr std::string_view section = "Windows";
constexpr const char* known = "known_to_memory";

QString joined(const QList<int>& numbers) {
    QStringList texts;
    for (const int number : numbers) texts.append(QString::number(number));
    return texts.join(',');
}

QList<int> numbers_of(const QString& text) {
    QList<int> numbers;
    for (const QString& part : text.split(',', Qt::SkipEmptyParts)) numbers.append(part.toInt());
    return numbers;
}

bool is_remembered(const QWidget& window) {
    return window.isWindow() && !window.objectName().isEmpty() &&
           (window.windowType() == Qt::Window || window.windowType() == Qt::Dialog) &&
           qobject_cast<const QMessageBox*>(&window) == nullptr;
}

QString columns_key(const QWidget& window, const QTableView& view) {
    return window.objectName() + "." + view.objectName() + ".columns";
}

/// Only what the user pulls with the mouse is his choice.
void notice_user(QHeaderView& header) {
    if (header.property(known).toBool()) return;
    header.setProperty(known, true);
    on(&header, &QHeaderView::sectionResized, [&header] {
        if (QApplication::mouseButtons() != Qt::NoButton)
            header.setProperty(WindowMemory::widths_by_user, true);
    });
}

/// The docks that the user has opened (1) or closed (0): "pictures_dock=1,..."
QString chosen_docks(const QMainWindow& window) {
    QStringList chosen;
    for (const QDockWidget* dock : window.findChildren<QDockWidget*>())
        if (const QVariant open = dock->property(WindowMemory::dock_chosen); open.isValid())
            chosen.append(dock->objectName() + (open.toBool() ? "=1" : "=0"));
    return chosen.join(',');
}

}  // namespace

WindowMemory::WindowMemory(SettingsStore& store) : store_(store) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool WindowMemory::eventFilter(QObject* of, QEvent* event) {
    if (event->spontaneous() || (event->type() != QEvent::Show && event->type() != QEvent::Hide))
        return false;
    auto* window = qobject_cast<QWidget*>(of);
    if (window == nullptr || !is_remembered(*window)) return false;
    guarded(*window, [&] { event->type() == QEvent::Show ? restore(*window) : keep(*window); });
    return false;
}

QRect WindowMemory::on_screens(QRect place, const QList<QRect>& screens) {
    QRect room = screens.first();
    int most = 0;
    for (const QRect& screen : screens) {
        const QRect shared = screen & place;
        const int area = shared.isEmpty() ? 0 : shared.width() * shared.height();
        if (area <= most) continue;
        most = area;
        room = screen;
    }
    place.setSize(place.size().boundedTo(room.size()));
    place.moveLeft(std::clamp(place.left(), room.left(), room.right() + 1 - place.width()));
    place.moveTop(std::clamp(place.top(), room.top(), room.bottom() + 1 - place.height()));
    return place;
}

void WindowMemory::restore(QWidget& window) const {
    const QList<int> place = numbers_of(read(window.objectName() + ".place"));
    if (place.size() == 4 && !window.isMaximized()) {
        // Places are those of the content: at this moment the window has no frame yet.
        const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
        QList<QRect> screens;
        for (const QScreen* screen : QApplication::screens())
            screens.append(screen->availableGeometry().adjusted(0, title, 0, 0));
        window.setGeometry(on_screens({place[0], place[1], place[2], place[3]}, screens));
    }
    restore_columns(window);
    if (auto* main = qobject_cast<QMainWindow*>(&window)) restore_docks(*main);
}

/// Once: afterwards the docks stay as they are.
void WindowMemory::restore_docks(QMainWindow& window) const {
    if (window.property(known).toBool()) return;
    window.setProperty(known, true);
    const QString chosen = read(window.objectName() + ".chosen_docks");
    if (chosen.isEmpty()) return;
    const QByteArray state = read(window.objectName() + ".docks").toLatin1();
    window.restoreState(QByteArray::fromBase64(state));
    for (const QString& dock : chosen.split(','))
        if (auto* found = window.findChild<QDockWidget*>(dock.section('=', 0, 0)))
            found->setProperty(dock_chosen, dock.endsWith("=1"));
}

void WindowMemory::restore_columns(QWidget& window) const {
    for (const QTableView* view : window.findChildren<QTableView*>()) {
        if (view->objectName().isEmpty()) continue;
        QHeaderView& header = *view->horizontalHeader();
        notice_user(header);
        const QList<int> widths = numbers_of(read(columns_key(window, *view)));
        if (widths.size() != header.count()) continue;
        for (int column = 0; column < header.count(); ++column)
            header.resizeSection(column, widths[column]);
        header.setProperty(widths_by_user, true);
    }
}

void WindowMemory::keep(const QWidget& window) const {
    const QRect place = window.isMaximized() ? window.normalGeometry() : window.geometry();
    if (place.isValid() && !window.isMinimized())
        write(window.objectName() + ".place",
              joined({place.x(), place.y(), place.width(), place.height()}));
    for (const QTableView* view : window.findChildren<QTableView*>()) {
        const QHeaderView& header = *view->horizontalHeader();
        if (view->objectName().isEmpty() || !header.property(widths_by_user).toBool()) continue;
        QList<int> widths;
        for (int column = 0; column < header.count(); ++column)
            widths.append(header.sectionSize(column));
        write(columns_key(window, *view), joined(widths));
    }
    const auto* main = qobject_cast<const QMainWindow*>(&window);
    if (main == nullptr) return;
    const QString chosen = chosen_docks(*main);
    if (chosen.isEmpty()) return;
    write(window.objectName() + ".chosen_docks", chosen);
    write(window.objectName() + ".docks", main->saveState().toBase64());
}

QString WindowMemory::read(const QString& key) const {
    return qt(store_.read(section, key.toStdString()).value_or(std::string()));
}

void WindowMemory::write(const QString& key, const QString& value) const {
    if (read(key) == value) return;
    try {
        store_.write(section, key.toStdString(), value.toStdString());
    } catch (const OutputError&) {
        // The next start shows the window where it is without a memory.
    }
}

}  // namespace zel
