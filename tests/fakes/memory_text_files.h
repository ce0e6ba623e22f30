#pragma once

#include <map>

#include "platform/errors.h"
#include "platform/text_files.h"

namespace zel {

/// Keeps files in memory; a path that begins with "/locked/" cannot be written.
class MemoryTextFiles : public TextFiles {
public:
    [[nodiscard]] std::optional<std::string> read(const std::string& path) const override {
        const auto found = files.find(path);
        if (found == files.end()) return std::nullopt;
        return found->second;
    }
    void update(const std::string& path,
                const std::function<std::string(const std::string&)>& edit) override {
        if (path.starts_with("/locked/")) throw OutputError(path + ": Permission denied");
        files[path] = edit(files[path]);
    }

    std::map<std::string, std::string> files;
};

}  // namespace zel
