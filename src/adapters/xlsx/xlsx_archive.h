#pragma once

#include <deque>
#include <string>
#include <string_view>

struct zip;
struct zip_source;

namespace zel::xlsx {

/// The parts of an xlsx file, a zip archive held in memory. Parts that are not replaced keep their
/// compressed bytes, their order and their dates; those that are have the date 1980-01-01. Throws
/// `WorkbookError` (`Damaged`).
class Archive {
public:
    /// Refuses files of other kinds by what they are, and one whose parts together unpack to more
    /// than 1 GiB, or to more than 64 MiB and 50 times its size, or that has more than 10 000.
    explicit Archive(std::string_view bytes);
    ~Archive();
    Archive(const Archive&) = delete;
    Archive& operator=(const Archive&) = delete;

    [[nodiscard]] bool has(const std::string& part) const;

    /// The content of a part. A part that is missing, broken or without an element for 1 MiB is a
    /// damage.
    [[nodiscard]] std::string read(const std::string& part) const;

    void replace(const std::string& part, std::string content);
    void remove(const std::string& part);

    /// The bytes of the changed archive, which is closed then.
    [[nodiscard]] std::string close();

private:
    void discard();

    std::deque<std::string> replaced_;  // read when the archive is closed
    zip* zip_ = nullptr;
    zip_source* source_ = nullptr;
};

}  // namespace zel::xlsx
