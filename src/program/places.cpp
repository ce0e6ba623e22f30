#include "program/places.h"

#include <filesystem>

#include "adapters/posix/posix_files.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

/// Empty for a program that stands alone.
fs::path found_installation() { return folder_above(program_folder() + "/zel", "share/zel"); }

/// For a program that stands alone, the folder in which what is shipped would be missed.
fs::path installation_folder() {
    const fs::path found = found_installation();
    return found.empty() ? fs::path(program_folder()).parent_path() : found;
}

}  // namespace

std::string program_of_user() { return installation_folder() / "bin/zel"; }

std::string helper_program(std::string_view name) {
    const fs::path beside = fs::path(program_folder()) / name;
    std::error_code failed;
    const fs::path installation = found_installation();
    if (installation.empty() || fs::exists(beside, failed)) return beside;
    return installation / "libexec/zel" / name;
}

std::string shipped_folder() { return installation_folder() / "share/zel"; }

std::string document_folder() { return installation_folder() / "share/doc/zel"; }

}  // namespace zel
