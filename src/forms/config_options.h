#pragma once

#include <span>

#include "platform/message_box.h"
#include "shell/program_settings.h"

// The option groups of `frm_prog_config`.

namespace zel {

struct ConfigOption {
    enum Effect : std::uint8_t {
        Kept,        // changes the setting, also in its store
        ForThisRun,  // changes it after a message, for this run alone
        ShowsTests,  // makes room for the test buttons of `frm_excel_IO`
    };

    const char* control;
    Text caption;
    NumberMember setting;
    std::int16_t value;
    Effect effect = Kept;
};

struct ConfigGroup {
    Text caption;
    std::span<const ConfigOption> options;
    Text line{};  // above the options
};

/// In the order of the form.
[[nodiscard]] std::span<const ConfigGroup> config_groups();

/// Shown before an option that holds for this run alone.
[[nodiscard]] const BoxText& for_this_run_only();

/// Heights of `frm_excel_IO` in twips: as it opens, and with room for the test buttons.
inline constexpr int excel_height = 10700;
inline constexpr int excel_height_with_tests = 9500;

}  // namespace zel
