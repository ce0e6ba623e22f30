#include "desktop/measuring/port_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>

#include "desktop/frame/events.h"

namespace zel {
namespace {

constexpr Text menu_caption = {"&Schnittstelle", "&Port"};
constexpr Text simulated_caption = {"Meßgeräte &simulieren", "&Simulate the instruments"};

}  // namespace

PortMenu::PortMenu(QMenuBar& bar, Captions& captions, const Session& session,
                   LiveSettings& settings)
    : session_(session), settings_(settings) {
    QMenu* menu = captions.title(bar.addMenu(QString()), menu_caption);
    for (const std::size_t owner : {measuring::anemometer_owner, measuring::radiation_owner}) {
        const measuring::PortOwner& row = measuring::port_owner(owner);
        QMenu* ports = captions.title(menu->addMenu(QString()), row.caption);
        ports->setObjectName(row.submenu);
        for (std::int16_t port = 1; port <= measuring::port_count; ++port) {
            QAction* action =
                captions.text(ports->addAction(QString()), measuring::port_caption(port));
            action->setObjectName(qt(row.item) + QString::number(port));
            action->setCheckable(true);
            on(action, &QAction::triggered, [this, owner, port] {
                refresh();  // a click alone marks nothing
                measuring::assign_port(owner, port, settings_.store, session_.dialogs,
                                       session_.lang);
                refresh();
            });
            items_.push_back({owner, port, action});
        }
    }
    menu->addSeparator();
    simulated_ = captions.text(menu->addAction(QString()), simulated_caption);
    simulated_->setObjectName("simulated");
    simulated_->setCheckable(true);
    refresh();
}

void PortMenu::refresh() {
    for (const Item& item : items_) {
        const auto state = measuring::port_item(item.owner, item.port, settings_.now());
        item.action->setChecked(state.marked);
        item.action->setEnabled(state.open && allowed_);
    }
    simulated_->setEnabled(allowed_);
}

void PortMenu::allow(bool allowed) {
    allowed_ = allowed;
    refresh();
}

bool PortMenu::simulated() const { return simulated_->isChecked(); }

}  // namespace zel
