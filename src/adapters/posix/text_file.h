#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "adapters/posix/descriptor.h"

namespace zel {

/// Whether something stands at `path`.
[[nodiscard]] bool file_exists(const std::string& path);

/// The content of the file at `path`, or of standard input where `path` is "-".
/// Throws `InputError` with path and reason where it cannot be read, or is larger than 16 MiB.
[[nodiscard]] std::string read_text_file(const std::string& path);

/// A file of any size, or standard input where its path is "-", read piece by piece.
/// Throws `InputError` with path and reason where it cannot be read.
class FilePieces {
public:
    explicit FilePieces(std::string path);

    /// The next bytes, at most a quarter of a mebibyte; empty at the end.
    [[nodiscard]] std::string next();
    /// Whether it can be read anew from its beginning. What comes through a pipe cannot.
    [[nodiscard]] bool is_file() const { return size_ != no_file; }
    /// Bytes of a file.
    [[nodiscard]] std::uint64_t size() const { return is_file() ? size_ : 0; }

private:
    static constexpr std::uint64_t no_file = UINT64_MAX;

    std::string path_;
    std::unique_ptr<Descriptor> file_;
    std::uint64_t size_ = no_file;
};

/// A file that comes into being piece by piece beside the one at its path, and takes its place
/// whole or not at all: it is written beside it, put on the disk, and renamed. A link is followed,
/// and a file that is replaced keeps its mode and, where that can be, its owner, its group and its
/// extended attributes, which what is written beside it has from the first byte on. Other hard
/// links to it keep the former content. Clears what runs that were killed have left beside the
/// file. Each call throws `OutputError` with path, reason and remedy; the former file is then
/// unchanged.
class NewFile {
public:
    enum class Over : std::uint8_t { Any, Nothing };

    /// Over `Nothing` it never takes the place of a file: it throws where there is one by then.
    explicit NewFile(const std::string& path, Over over = Over::Any);
    /// What has not been put in place is gone.
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Where it is until it is put in place, for who writes it by other means.
    [[nodiscard]] const std::string& path() const;
    void write(std::string_view text);
    void put_in_place();

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

/// Makes `text` the content of the file at `path`, as a `NewFile`. In a folder that takes no new
/// files a file that is there is written in its place: where that breaks off, the former content is
/// put back; a program that is killed meanwhile leaves a part.
void write_text_file(const std::string& path, std::string_view text);

}  // namespace zel
