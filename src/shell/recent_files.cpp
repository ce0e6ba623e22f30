#include "shell/recent_files.h"

#include <filesystem>

#include "platform/errors.h"

namespace zel {
namespace {

constexpr std::string_view section = "Recent";

std::string key_of(std::size_t place) { return "File" + std::to_string(place + 1); }

}  // namespace

std::vector<std::string> RecentFiles::all() const {
    std::vector<std::string> paths;
    for (std::size_t place = 0; place < most; ++place)
        if (const auto path = store_.read(section, key_of(place)); path && !path->empty())
            paths.push_back(*path);
    return paths;
}

void RecentFiles::add(const std::string& given) {
    const std::string path = std::filesystem::absolute(given).lexically_normal().string();
    std::vector<std::string> paths = all();
    if (!paths.empty() && paths.front() == path) return;
    std::erase(paths, path);
    paths.insert(paths.begin(), path);
    if (paths.size() > most) paths.resize(most);
    try {
        for (std::size_t place = 0; place < paths.size(); ++place)
            store_.write(section, key_of(place), paths[place]);
    } catch (const OutputError&) {
        // The list is a help, and the case is where the user wants it.
    }
}

}  // namespace zel
