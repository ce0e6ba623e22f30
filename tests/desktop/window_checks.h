#pragma once

#include <string>
#include <vector>

class QWidget;

// What every window must hold to, whatever it shows. Each function tells what does not.

namespace zel {

/// Keys of menus, tabs, buttons and labels in sight that lead to more than one place. `shared` is a
/// key that may.
[[nodiscard]] std::vector<std::string> shared_keys(const QWidget& window,
                                                   const std::string& shared = {});

/// Texts in sight that have less room than they need.
[[nodiscard]] std::vector<std::string> cut_texts(const QWidget& window);

/// Texts in sight that hardly stand out from what they are written on, as they are painted.
[[nodiscard]] std::vector<std::string> faint_texts(QWidget& window);

/// Pages in sight that go on beyond the edge at their right.
[[nodiscard]] std::vector<std::string> scrolled_sideways(const QWidget& window);

/// Controls of which a screen reader is not told the name, the unit behind them, their mark, or a
/// state that they have.
[[nodiscard]] std::vector<std::string> untold_controls(const QWidget& window);

/// Whether any of `part` is.
[[nodiscard]] bool is_in_sight(const QWidget& part);

}  // namespace zel
