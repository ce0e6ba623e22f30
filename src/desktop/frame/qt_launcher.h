#pragma once

#include "platform/system.h"

namespace zel {

/// Starts programs and opens documents as the desktop of the user does.
class QtLauncher : public Launcher {
public:
    [[nodiscard]] bool open_document(const std::string& path) override;
    [[nodiscard]] bool start_program(const std::string& path) override;
};

}  // namespace zel
