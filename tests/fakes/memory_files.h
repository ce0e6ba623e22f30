#pragma once

#include <map>
#include <set>

#include "platform/files.h"
#include "platform/input_error.h"
#include "platform/output_error.h"

namespace zel {

/// Keeps files in memory; a path that begins with "/locked/" cannot be written.
class MemoryFiles : public Files {
public:
    bool exists(const std::string& path) override { return files.contains(path); }
    std::string read(const std::string& path) override {
        const auto found = files.find(path);
        if (found == files.end()) throw InputError(path + ": No such file or directory");
        return found->second;
    }
    void write(const std::string& path, std::string_view bytes) override {
        if (path.starts_with("/locked/")) throw OutputError(path + ": Permission denied");
        files[path] = bytes;
    }
    void make_folder(const std::string& path) override { folders.insert(path); }

    std::map<std::string, std::string> files;
    std::set<std::string> folders;
};

}  // namespace zel
