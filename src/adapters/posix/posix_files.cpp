#include "adapters/posix/posix_files.h"

#include <filesystem>

#include "adapters/posix/text_file.h"

namespace zel {

bool PosixFiles::exists(const std::string& path) { return file_exists(path); }

std::string PosixFiles::content(const std::string& path) { return read_text_file(path); }

void PosixFiles::write(const std::string& path, std::string_view bytes) {
    write_text_file(path, bytes);
}

std::optional<std::string> PosixFiles::read(const std::string& path) const {
    return shared_.read(path);
}

void PosixFiles::update(const std::string& path,
                        const std::function<std::string(const std::string&)>& edit) {
    shared_.update(path, edit);
}

std::string program_folder() {
    std::error_code failed;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", failed);
    return failed ? std::string() : program.parent_path().string();
}

std::string folder_above(const std::string& file, std::string_view inside) {
    constexpr int farthest = 3;
    std::error_code failed;
    std::filesystem::path folder = std::filesystem::weakly_canonical(file, failed).parent_path();
    for (int i = 0; i < farthest; ++i) {
        folder = folder.parent_path();
        if (std::filesystem::exists(folder / inside, failed)) return folder.string();
    }
    return {};
}

}  // namespace zel
