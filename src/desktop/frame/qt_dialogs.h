#pragma once

#include "platform/message_box.h"
#include "platform/system.h"

namespace zel {

/// Shows boxes as windows above the active one. Lines are plain text; the buttons are named in the
/// language of the interface. A box that others follow has one more button, by which the user
/// leaves those to the list of messages. In a question No is the default and the escape key.
class QtDialogs : public Dialogs {
public:
    /// The buttons follow `lang` as it changes; it must outlive the dialogs.
    void follow(const LangId& lang) { lang_ = &lang; }

    Answer show(const Box& box) override;
    bool show_before_others(const Box& box) override;

private:
    const LangId* lang_ = nullptr;
};

/// Starts programs and opens documents as the desktop of the user does.
class QtLauncher : public Launcher {
public:
    [[nodiscard]] bool open_document(const std::string& path) override;
    [[nodiscard]] bool start_program(const std::string& path) override;
};

}  // namespace zel
