#include "shell/program_texts.h"

namespace zel {

ProgramPaths program_paths(const SystemFacts& system) {
    const auto below = [](const std::string& folder, std::string_view name) {
        return folder + "/" + std::string(name);
    };
    ProgramPaths paths;
    paths.companion_folder = below(system.data_folder, companion_folder_name);
    paths.shared_settings_file = below(paths.companion_folder, shared_settings_name);
    paths.data_folder = below(system.data_folder, data_folder_name);
    paths.user_settings_file = below(system.config_folder, user_settings_name);
    return paths;
}

std::string folder_of(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

}  // namespace zel
