#pragma once

#include "desktop/frame/file_chooser.h"
#include "platform/text/text.h"

class QFileDialog;

namespace zel {

/// Asks in a window above the active one.
class QtFileChooser : public FileChooser {
public:
    /// The captions follow `lang` as it changes; it must outlive the chooser.
    void follow(const LangId& lang) { lang_ = &lang; }

    std::optional<std::string> file_to_open(const std::string& present) override;
    std::optional<std::string> file_to_save(const std::string& present) override;
    std::optional<std::string> path_to_select(const PathQuestion& question) override;

private:
    std::optional<std::string> ask(QFileDialog& window, const std::string& present);
    void recaption(QFileDialog& window) const;

    const LangId* lang_ = nullptr;
};

}  // namespace zel
