#pragma once

#include <functional>

#include "shell/program_settings.h"

namespace zel {

/// The settings as all windows share them.
struct LiveSettings {
    Settings& store;
    std::function<void()> changed = [] {};  // called by whoever changes a setting

    [[nodiscard]] const ProgramSettings& now() const { return store.now(); }

    /// Changes a setting, which takes effect in all windows and is stored at once.
    void change(NumberMember setting, std::int16_t value) {
        store.set(setting, value);
        changed();
    }
};

}  // namespace zel
