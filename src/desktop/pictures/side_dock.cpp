#include "desktop/pictures/side_dock.h"

#include <QAction>
#include <QCloseEvent>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QTabBar>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/input_page.h"
#include "desktop/frame/reading_width.h"

namespace zel {
namespace {

constexpr Text menu_caption = {"&Fenster", "Wind&ow"};

// Pixels.
constexpr int least_width = 400;
constexpr int enough_height = 750;  // of a window, for a dock below pages that scroll
constexpr int room_to_spare = 40;   // of a page beside its content
constexpr QSize usual_size(560, 640);

/// Inputs stand in all their columns; of other pages nothing goes on beyond the edge.
int width_of(const AreaPage& page) {
    const QWidget& content = *page.widget();
    return dynamic_cast<const InputPage*>(&page) != nullptr ? content.sizeHint().width()
                                                            : content.minimumSizeHint().width();
}

/// What the pages of a form need, and no more than they read well with.
int room_for_pages(const AreaFrame& form) {
    int most = 0;
    for (const AreaPage* page : form.pages()) most = std::max(most, width_of(*page));
    return std::min(most + room_to_spare, reading_width(form) - room_to_spare);
}

int height_of(const QWidget& content) {
    const QLayout* layout = content.layout();
    return layout != nullptr && layout->hasHeightForWidth()
               ? layout->totalMinimumHeightForWidth(content.width())
               : content.minimumSizeHint().height();
}

}  // namespace

SideDock::SideDock(AreaFrame& form, const DockFacts& facts, QWidget* content, Captions& captions)
    : QDockWidget(&form), form_(form), area_(facts.area), entry_(new QAction(this)) {
    setObjectName(facts.name);
    captions.window_title(static_cast<QWidget*>(this), facts.title);
    captions.text(entry_, facts.entry);
    entry_->setObjectName(QString("show_") + facts.name);
    entry_->setShortcut(QKeySequence(facts.shortcut));
    entry_->setCheckable(true);
    if (!is_below()) content->setMinimumWidth(least_width);
    setWidget(content);
    setAllowedAreas(is_below() ? Qt::TopDockWidgetArea | Qt::BottomDockWidgetArea
                               : Qt::LeftDockWidgetArea | Qt::RightDockWidgetArea);
    form.addDockWidget(area_, this);
    hide();
    on(entry_, &QAction::triggered, [this](bool shown) { switched(shown); });
    on(this, &QDockWidget::topLevelChanged, [this](bool floating) {
        if (!floating && !has_room()) setFloating(true);
    });
    form.installEventFilter(this);
}

/// Whether another dock takes width on the other side of the pages.
bool SideDock::shares_with_other_side() {
    const auto docks = form_.findChildren<QDockWidget*>();
    const Qt::DockWidgetArea own = form_.dockWidgetArea(this);
    return std::ranges::any_of(docks, [this, own](QDockWidget* dock) {
        const Qt::DockWidgetArea area = form_.dockWidgetArea(dock);
        return dock != this && !dock->isHidden() && !dock->isFloating() &&
               (area == Qt::LeftDockWidgetArea || area == Qt::RightDockWidgetArea) && area != own;
    });
}

bool SideDock::has_room() {
    if (is_below()) return form_.height() >= enough_height || fits_below();
    const int docks = shares_with_other_side() ? 2 : 1;
    return form_.width() >= room_for_pages(form_) + docks * least_width;
}

/// Whether the present page is seen whole above the dock.
bool SideDock::fits_below() {
    const AreaPage& page = *form_.pages().at(static_cast<std::size_t>(form_.page()));
    const int around =
        form_.height() - page.height() - (isVisible() && !isFloating() ? height() : 0);
    return form_.height() >= around + height_of(*page.widget()) + minimumSizeHint().height();
}

/// Pages are not wider than they read well.
int SideDock::room_beside_page() {
    const int room =
        form_.width() - std::max(room_for_pages(form_), reading_width(form_) - room_to_spare);
    return std::max(least_width, shares_with_other_side() ? room / 2 : room);
}

void SideDock::share_width() {
    if (!is_below()) form_.resizeDocks({this}, {room_beside_page()}, Qt::Horizontal);
}

void SideDock::open_by_itself(bool opens) {
    opens_by_itself_ = opens;
    follow_room();
}

void SideDock::switched(bool shown) {
    if (shown && !has_room() && !isFloating()) {
        setFloating(true);
        const QSize wanted = is_below() ? QSize(form_.width(), 0) : usual_size;
        resize(wanted.expandedTo(minimumSizeHint()).boundedTo(form_.size()));
        const QRect room = form_.geometry();
        move(room.right() - width(), is_below() ? room.bottom() - height() : room.top() + 60);
    }
    setVisible(shown);
    set_chosen(shown);
    if (!shown) return;
    raise();
    if (isFloating()) activateWindow();
    if (!isFloating()) share_width();
}

void SideDock::belong_here(bool belongs) {
    belongs_here_ = belongs;
    entry_->setEnabled(belongs);
    follow_room();
}

/// A dock that was opened in a wide window is away while the window is too narrow for it.
void SideDock::follow_room() {
    // A tab bar of docks that has nothing to show keeps its focus, out of sight.
    for (QTabBar* bar : form_.findChildren<QTabBar*>(QString(), Qt::FindDirectChildrenOnly))
        bar->setFocusPolicy(Qt::NoFocus);
    const QVariant chosen = property(WindowMemory::dock_chosen);
    const bool wanted = chosen.isValid() ? chosen.toBool() : opens_by_itself_;
    entry_->setChecked(wanted && (isFloating() || has_room()));
    const bool shown = belongs_here_ && entry_->isChecked();
    const bool appears = shown && isHidden();
    setVisible(shown);
    if (shown && !isFloating() && (appears || width() > room_beside_page())) share_width();
}

/// A window that comes up may have docks that were remembered on a wider screen.
bool SideDock::eventFilter(QObject* of, QEvent* event) {
    if (of == &form_ && (event->type() == QEvent::Resize || event->type() == QEvent::Show))
        guarded(*this, [this] { follow_room(); });
    return QDockWidget::eventFilter(of, event);
}

void SideDock::closeEvent(QCloseEvent* event) {
    set_chosen(false);
    QDockWidget::closeEvent(event);
}

/// What the user has said now, or in another run of the program.
bool SideDock::event(QEvent* event) {
    if (event->type() == QEvent::DynamicPropertyChange && is_chosen())
        guarded(*this, [this] { follow_room(); });
    return QDockWidget::event(event);
}

void add_view_menu(AreaFrame& form, Captions& captions, const std::vector<SideDock*>& docks) {
    auto* menu = captions.title(new QMenu(&form), menu_caption);
    for (SideDock* dock : docks) menu->addAction(&dock->entry());
    form.menuBar()->insertMenu(form.language_menu().menuAction(), menu);
}

}  // namespace zel
