#pragma once

#include <map>

#include "platform/errors.h"
#include "platform/files.h"

namespace zel {

/// Keeps files in memory; a path that begins with "/locked/" cannot be written.
class MemoryFiles : public Files {
public:
    bool exists(const std::string& path) override { return files.contains(path); }
    std::string content(const std::string& path) override {
        const auto found = files.find(path);
        if (found == files.end()) throw InputError(path + ": No such file or directory");
        return found->second;
    }
    void write(const std::string& path, std::string_view bytes) override {
        if (path.starts_with("/locked/")) throw OutputError(path + ": Permission denied");
        files[path] = bytes;
    }
    std::optional<std::string> read(const std::string& path) const override {
        const auto found = files.find(path);
        return found == files.end() ? std::nullopt : std::optional(found->second);
    }
    void update(const std::string& path,
                const std::function<std::string(const std::string&)>& edit) override {
        write(path, edit(read(path).value_or(std::string())));
    }

    std::map<std::string, std::string> files;
};

}  // namespace zel
