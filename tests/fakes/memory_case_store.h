#pragma once

#include <map>

#include "platform/case_store.h"
#include "platform/errors.h"

namespace zel {

/// Keeps cases in memory; a path that begins with "/locked/" cannot be written.
class MemoryCaseStore : public CaseStore {
public:
    bool has(const std::string& path) override { return files.contains(path); }
    FlatObject load(const std::string& path) override {
        const auto found = files.find(path);
        if (found == files.end()) throw InputError(path + ": No such file or directory");
        return found->second;
    }
    void save(const std::string& path, const FlatObject& values) override {
        if (path.starts_with("/locked/")) throw OutputError(path + ": Permission denied");
        files[path] = values;
    }

    std::map<std::string, FlatObject> files;
};

}  // namespace zel
