#include "adapters/posix/system_facts.h"

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>

namespace zel {
namespace {

std::string home_folder(const Environment& environment) {
    const auto home = environment("HOME");
    if (home && home->starts_with('/')) return *home;
    const passwd* user = ::getpwuid(::geteuid());
    return user != nullptr && user->pw_dir != nullptr ? user->pw_dir : "/";
}

/// A relative path in such a variable has no meaning and is passed over.
std::string folder(const Environment& environment, const char* variable, const char* below_home) {
    auto path = environment(variable);
    if (!path || !path->starts_with('/')) path = home_folder(environment) + below_home;
    while (path->size() > 1 && path->ends_with('/')) path->pop_back();
    return *path;
}

}  // namespace

SystemFacts system_facts(const Environment& environment) {
    return {"10", "0", "0", folder(environment, "XDG_DATA_HOME", "/.local/share"),
            folder(environment, "XDG_CONFIG_HOME", "/.config")};
}

SystemFacts system_facts() {
    return system_facts([](const char* name) -> std::optional<std::string> {
        const char* value = std::getenv(name);
        if (value == nullptr) return std::nullopt;
        return value;
    });
}

}  // namespace zel
