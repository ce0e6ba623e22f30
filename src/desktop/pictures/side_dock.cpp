#include "desktop/pictures/side_dock.h"

#include <QAction>
#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>

#include "desktop/frame/events.h"

namespace zel {
namespace {

constexpr Text menu_caption = {"&Fenster", "Wind&ow"};

// Pixels: the content of a page is not wider than its part of it.
constexpr int room_for_page = 1260;
constexpr int least_width = 400;
constexpr QSize usual_size(560, 640);

}  // namespace

SideDock::SideDock(AreaFrame& form, const DockFacts& facts, QWidget* content, Captions& captions)
    : QDockWidget(&form), form_(form), entry_(new QAction(this)) {
    setObjectName(facts.name);
    captions.window_title(static_cast<QWidget*>(this), facts.title);
    captions.text(entry_, facts.entry);
    entry_->setObjectName(QString("show_") + facts.name);
    entry_->setShortcut(QKeySequence(facts.shortcut));
    entry_->setCheckable(true);
    content->setMinimumWidth(least_width);
    setWidget(content);
    setAllowedAreas(Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    form.addDockWidget(Qt::RightDockWidgetArea, this);
    hide();
    on(entry_, &QAction::triggered, [this](bool shown) { switched(shown); });
    on(this, &QDockWidget::visibilityChanged, [this] { entry_->setChecked(!isHidden()); });
    form.installEventFilter(this);
}

bool SideDock::has_room() const { return form_.width() >= room_for_page + least_width; }

void SideDock::open_by_itself(bool opens) {
    opens_by_itself_ = opens;
    follow_width();
}

void SideDock::switched(bool shown) {
    set_chosen();
    if (shown && !has_room() && !isFloating()) {
        setFloating(true);
        resize(usual_size.boundedTo(form_.size()));
        move(form_.geometry().right() - width(), form_.geometry().top() + 60);
    }
    setVisible(shown);
    if (!shown) return;
    raise();
    if (isFloating()) activateWindow();
    if (!isFloating()) form_.resizeDocks({this}, {form_.width() - room_for_page}, Qt::Horizontal);
}

void SideDock::follow_width() {
    if (is_chosen() || !opens_by_itself_) return;
    const bool shown = has_room();
    if (shown == !isHidden()) return;
    setVisible(shown);
    entry_->setChecked(shown);
    if (shown) form_.resizeDocks({this}, {form_.width() - room_for_page}, Qt::Horizontal);
}

bool SideDock::eventFilter(QObject* of, QEvent* event) {
    if (of == &form_ && event->type() == QEvent::Resize) guarded(*this, [this] { follow_width(); });
    return QDockWidget::eventFilter(of, event);
}

void SideDock::closeEvent(QCloseEvent* event) {
    set_chosen();
    entry_->setChecked(false);
    QDockWidget::closeEvent(event);
}

void add_view_menu(AreaFrame& form, Captions& captions, const std::vector<SideDock*>& docks) {
    auto* menu = captions.title(new QMenu(&form), menu_caption);
    for (SideDock* dock : docks) menu->addAction(&dock->entry());
    form.menuBar()->insertMenu(form.language_menu().menuAction(), menu);
}

}  // namespace zel
