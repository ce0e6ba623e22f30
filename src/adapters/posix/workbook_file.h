#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace zel {

/// A file that is read now to be replaced later, and must not change in between.
class WorkbookFile {
public:
    /// Throws `WorkbookError` with the path and the reason: `Missing`, `Denied` where the file
    /// cannot be read or not be replaced, `Locked` where another program holds it open (a lock on
    /// it, or the mark of a spreadsheet program beside it), `Damaged` above 1 GiB.
    explicit WorkbookFile(std::string path);

    [[nodiscard]] const std::string& path() const { return path_; }

    /// The content, read in one go.
    [[nodiscard]] std::string read();

    /// Replaces the file by `write_text_file`. Throws `WorkbookError` where it was changed since it
    /// was read, or is locked by now, and `OutputError`.
    void replace(std::string_view bytes) const;

private:
    struct Stamp {
        std::uint64_t device = 0;
        std::uint64_t number = 0;
        std::int64_t size = 0;
        std::int64_t seconds = 0;
        std::int64_t nanoseconds = 0;

        friend bool operator==(const Stamp&, const Stamp&) = default;
    };

    [[nodiscard]] Stamp stamp() const;
    void require_unlocked() const;

    std::string path_;
    Stamp read_;
};

}  // namespace zel
