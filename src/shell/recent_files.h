#pragma once

#include <string>
#include <vector>

#include "platform/settings_store.h"

namespace zel {

/// The case files that were opened or saved last, in both areas, in the user's settings. A write
/// that fails is not reported.
class RecentFiles {
public:
    static constexpr std::size_t most = 8;

    explicit RecentFiles(SettingsStore& store) : store_(store) {}

    /// Their paths, the last one first.
    [[nodiscard]] std::vector<std::string> all() const;
    /// `given` is the last one now; its path is kept from the root on.
    void add(const std::string& given);

private:
    SettingsStore& store_;
};

}  // namespace zel
