#include "adapters/posix/posix_files.h"

#include <filesystem>

#include "adapters/posix/text_file.h"
#include "platform/output_error.h"

namespace zel {

namespace fs = std::filesystem;

bool PosixFiles::exists(const std::string& path) { return file_exists(path); }

std::string PosixFiles::read(const std::string& path) { return read_text_file(path); }

void PosixFiles::write(const std::string& path, std::string_view bytes) {
    write_text_file(path, bytes);
}

void PosixFiles::make_folder(const std::string& path) {
    std::error_code failed;
    fs::create_directories(path, failed);
    if (failed) throw OutputError(path + ": " + failed.message());
}

std::string program_folder() {
    std::error_code failed;
    const fs::path program = fs::read_symlink("/proc/self/exe", failed);
    return failed ? std::string() : program.parent_path().string();
}

}  // namespace zel
