#pragma once

#include <string>

#include "platform/errors.h"

namespace zel {

/// Why `action` is refused; empty where it is not.
template <class Action>
[[nodiscard]] std::string refusal_of(Action action) {
    try {
        (void)action();
    } catch (const InputError& error) {
        return error.what();
    } catch (const OutputError& error) {
        return error.what();
    }
    return {};
}

}  // namespace zel
