#pragma once

#include <map>
#include <vector>

#include "platform/case_store.h"
#include "platform/errors.h"
#include "platform/files.h"
#include "platform/settings_store.h"
#include "platform/text/text.h"

// Files, cases and settings in memory.

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

/// Keeps cases in memory; a path that begins with "/locked/" cannot be written.
class MemoryCaseStore : public CaseStore {
public:
    bool has(const std::string& path) override { return files.contains(path); }
    FlatObject load(const std::string& path) override {
        const auto found = files.find(path);
        if (found == files.end()) throw InputError(path + ": No such file or directory");
        return found->second;
    }
    std::string text_of(const FlatObject& values) const override {
        std::string text;
        for (const FlatMember& member : values) text += member.key + "\n";
        return text;
    }
    void save(const std::string& path, const FlatObject& values) override {
        if (path.starts_with("/locked/")) throw OutputError(path + ": Permission denied");
        files[path] = values;
    }

    std::map<std::string, FlatObject> files;
};

/// A settings store in memory that keeps every write in its order. While `locked` none succeeds.
class MemorySettings : public SettingsStore {
public:
    struct Value {
        std::string section, key, value;
        friend bool operator==(const Value&, const Value&) = default;
    };

    [[nodiscard]] std::optional<std::string> read(std::string_view section,
                                                  std::string_view key) const override {
        for (const Value& v : values)
            if (same_name(v.section, section) && same_name(v.key, key)) return v.value;
        return std::nullopt;
    }
    void write(std::string_view section, std::string_view key, std::string_view value) override {
        if (locked) throw OutputError("settings: Permission denied");
        written.push_back({std::string(section), std::string(key), std::string(value)});
        for (Value& v : values)
            if (same_name(v.section, section) && same_name(v.key, key)) {
                v.value = value;
                return;
            }
        values.push_back(written.back());
    }

    std::vector<Value> values;
    std::vector<Value> written;
    bool locked = false;
};

}  // namespace zel
