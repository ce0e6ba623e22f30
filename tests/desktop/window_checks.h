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

/// Controls that can take the focus and have no name for a screen reader.
[[nodiscard]] std::vector<std::string> nameless_controls(const QWidget& window);

}  // namespace zel
