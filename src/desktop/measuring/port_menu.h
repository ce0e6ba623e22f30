#pragma once

#include <array>
#include <functional>

#include "desktop/frame/captions.h"
#include "desktop/frame/live_settings.h"
#include "measuring/measuring_ports.h"
#include "shell/session.h"

class QAction;
class QMenuBar;

namespace zel {

/// The menu of the measuring window that puts the instruments on their ports, or simulates them.
class PortMenu {
public:
    PortMenu(QMenuBar& bar, Captions& captions, const Session& session, LiveSettings& settings);

    /// Marks the ports as the settings have them now, and closes those of the other instrument.
    void refresh();
    /// While a cycle runs nothing can be changed.
    void allow(bool allowed);
    [[nodiscard]] bool simulated() const;

private:
    struct Item {
        std::size_t owner;
        std::int16_t port;
        QAction* action;
    };

    const Session& session_;
    LiveSettings& settings_;
    std::vector<Item> items_;
    QAction* simulated_;
    bool allowed_ = true;
};

}  // namespace zel
