#pragma once

#include <functional>

#include "shell/program_settings.h"

namespace zel {

/// The settings as all windows share them.
struct LiveSettings {
    Settings& store;
    std::function<void()> changed = [] {};  // called by whoever changes a setting

    [[nodiscard]] const ProgramSettings& now() const { return store.now(); }

    /// Of lists in the language of reports, which have German and English texts only.
    [[nodiscard]] LangId language_of_lists() const {
        return now().LangId_print == 1 ? LangId::German : LangId::English;
    }

    /// Changes a setting, which takes effect in all windows and is stored at once.
    void change(NumberMember setting, std::int16_t value) {
        store.set(setting, value);
        changed();
    }
};

}  // namespace zel
