#pragma once

#include "platform/files.h"

namespace zel {

/// Files of the machine. While a file is updated, a lock on ".NAME.lock" beside it keeps other
/// updates out, those of other processes too; it stays there, empty.
class SharedFiles : public TextFiles {
public:
    [[nodiscard]] std::optional<std::string> read(const std::string& path) const override;
    void update(const std::string& path,
                const std::function<std::string(const std::string&)>& edit) override;
};

/// Makes the folder at `path` and those above it, where they are missing. Throws `OutputError`.
void make_folder(const std::string& path);

}  // namespace zel
