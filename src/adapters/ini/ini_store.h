#pragma once

#include "platform/files.h"
#include "platform/settings_store.h"

namespace zel {

/// The profile file at `path`. Every value is read and written in the file as it stands at that
/// moment, so that what other programs change meanwhile counts and stays. A file in UTF-16 is read
/// as empty and not written; one beyond 1 MiB is none of settings, and refused.
class IniStore : public SettingsStore {
public:
    IniStore(TextFiles& files, std::string path) : files_(files), path_(std::move(path)) {}

    /// Throws `InputError` where the file is too large.
    [[nodiscard]] std::optional<std::string> read(std::string_view section,
                                                  std::string_view key) const override;
    void write(std::string_view section, std::string_view key, std::string_view value) override;

private:
    TextFiles& files_;
    std::string path_;
};

}  // namespace zel
