#pragma once

#include <functional>
#include <optional>

#include "platform/message_box.h"
#include "platform/printers.h"
#include "platform/system.h"
#include "platform/text/number_text.h"
#include "shell/program_settings.h"
#include "shell/program_texts.h"

namespace zel {

/// The state of a run of the program that no store keeps, beside case and settings.
struct ProgramState {
    Text short_circuit_short_name = short_circuit_name;

    /// The copies of texts that a switch of the interface language makes anew.
    void language_switched() { short_circuit_short_name = short_circuit_name_after_switch; }
};

/// What the language dialog shows and answers.
struct LanguageChoice {
    LangId lang = LangId::German;
    bool show_dialog = true;  // at the next start too

    friend bool operator==(const LanguageChoice&, const LanguageChoice&) = default;
};

/// What start-up needs of the program around it.
struct StartupPlatform {
    const SystemFacts& system;
    Dialogs& dialogs;
    DecimalSeparator separator = DecimalSeparator::Point;  // of the system
    /// A language that was asked for when the program was called: it holds for this run, the dialog
    /// does not ask, and the store does not change.
    std::optional<LangId> lang{};

    /// Shows `frm_languageselect`; nothing where it was cancelled.
    std::function<std::optional<LanguageChoice>(const LanguageChoice& marked)> ask_language;
    /// Called before the paths are read: the first start of the conductor database makes the shared
    /// settings file.
    std::function<void()> start_companion = [] {};
    Printers* printers = nullptr;  // where the program can print
};

enum class StartEnd : std::uint8_t { Ready, LanguageCancelled, SystemRefused, NoExchangeFile };

/// What start-up leaves behind. Windows may be shown only where it is `Ready`.
struct Started {
    StartEnd end = StartEnd::Ready;
    LangId lang = LangId::German;
    ProgramState state{};
};

/// Everything before the first window, once per run, in this order: language, operating system,
/// paths, settings, state of the run, printer. Reads `settings` anew and tells what is missing.
/// `may_skip_language` lets a user who does not want the language dialog pass by it.
[[nodiscard]] Started S00_Start_Programminitialisierung(Settings& settings,
                                                        const StartupPlatform& platform,
                                                        bool may_skip_language);

/// Whether the program runs on an operating system of this major version: 5 to 11.
[[nodiscard]] bool runs_on(const std::string& major_version);

/// The choice that the language dialog marks, from the store of the user.
[[nodiscard]] LanguageChoice stored_choice(const ProgramSettings& settings);
/// Writes the answer of the language dialog.
void store_choice(Settings& settings, const LanguageChoice& choice);

}  // namespace zel
