#pragma once

#include <vector>

#include "platform/errors.h"
#include "platform/settings_store.h"

namespace zel {

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
            if (same(v.section, section) && same(v.key, key)) return v.value;
        return std::nullopt;
    }
    void write(std::string_view section, std::string_view key, std::string_view value) override {
        if (locked) throw OutputError("settings: Permission denied");
        written.push_back({std::string(section), std::string(key), std::string(value)});
        for (Value& v : values)
            if (same(v.section, section) && same(v.key, key)) {
                v.value = value;
                return;
            }
        values.push_back(written.back());
    }

    std::vector<Value> values;
    std::vector<Value> written;
    bool locked = false;

private:
    static bool same(std::string_view a, std::string_view b) {
        const auto lower = [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : +c; };
        if (a.size() != b.size()) return false;
        for (std::size_t i = 0; i < a.size(); ++i)
            if (lower(a[i]) != lower(b[i])) return false;
        return true;
    }
};

}  // namespace zel
