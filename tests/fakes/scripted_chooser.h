#pragma once

#include <deque>
#include <vector>

#include "desktop/frame/file_chooser.h"
#include "platform/system.h"

namespace zel {

/// Answers with paths from a queue; with an empty queue the user wants no file.
class ScriptedChooser : public FileChooser {
public:
    std::optional<std::string> file_to_open(const std::string& present) override {
        return next(present);
    }
    std::optional<std::string> file_to_save(const std::string& present) override {
        return next(present);
    }

    std::optional<std::string> path_to_select(const PathQuestion& question) override {
        questions.push_back(question);
        return next(question.folder);
    }

    std::deque<std::string> paths;
    std::deque<std::string> asked;  // where each question started
    std::deque<PathQuestion> questions;

private:
    std::optional<std::string> next(const std::string& present) {
        asked.push_back(present);
        if (paths.empty()) return std::nullopt;
        const std::string path = paths.front();
        paths.pop_front();
        return path;
    }
};

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
