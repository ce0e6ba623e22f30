#pragma once

#include <vector>

#include "platform/launcher.h"

namespace zel {

/// Starts nothing and records what it was asked for.
class RecordingLauncher : public Launcher {
public:
    bool open_document(const std::string& path) override {
        opened.push_back(path);
        return works;
    }
    bool start_program(const std::string& path) override {
        started.push_back(path);
        return works;
    }

    std::vector<std::string> opened, started;
    bool works = true;
};

}  // namespace zel
