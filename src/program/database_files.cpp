#include "program/database_files.h"

#include <filesystem>
#include <fstream>

#include "program/places.h"

namespace zel {
namespace {

/// The first bytes of a file; none where it cannot be read, which is told by who opens it.
std::string beginning_of(const std::string& path) {
    std::string bytes(access_beginning, '\0');
    std::error_code failed;
    // What is no file, such as a pipe, might never give them.
    if (!std::filesystem::is_regular_file(path, failed)) return {};
    std::ifstream file(path, std::ios::binary);
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

}  // namespace

DatabaseFiles::DatabaseFiles() : access_(helper_program("zel-access-reader")) {}

std::unique_ptr<Database> DatabaseFiles::open(const std::string& path) {
    return begins_as_access_file(beginning_of(path)) ? access_.open(path) : own_.open(path);
}

std::unique_ptr<Database> DatabaseFiles::create(const std::string& path) {
    return own_.create(path);
}

}  // namespace zel
