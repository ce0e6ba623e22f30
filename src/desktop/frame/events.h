#pragma once

#include <QObject>
#include <functional>
#include <type_traits>

// The way in of events: what they call for runs here, and no exception goes back to the library.

namespace zel {

/// Runs `act` for an event of `where`. What it throws is told in the form and control of `where`;
/// where the program must end, its event loop does.
void guarded(const QObject& where, const std::function<void()>& act);

/// Calls `act` with `values` where it takes them, otherwise without.
template <class Act, class... Values>
void call(const Act& act, const Values&... values) {
    if constexpr (std::is_invocable_v<const Act&, const Values&...>)
        act(values...);
    else
        act();
}

/// Each `signal` of `sender` calls `act`, with the values of the signal where it takes them. `act`
/// must not be needed any more when `sender` is destroyed.
template <class Sender, class Signal, class Act>
void on(Sender* sender, Signal signal, Act act) {
    QObject::connect(sender, signal, sender, [sender, act](auto... values) -> void {
        guarded(*sender, [&] { call(act, values...); });
    });
}

/// Runs `act` once the events that wait already are done, unless `where` is gone by then.
void later(QObject& where, const std::function<void()>& act);

}  // namespace zel
