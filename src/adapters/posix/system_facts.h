#pragma once

#include <functional>
#include <optional>

#include "platform/system.h"

namespace zel {

/// The facts of this system. The version is always one that the program runs on: the range that
/// start-up tests belongs to another system. The folders are those of the XDG base directories,
/// `XDG_DATA_HOME` and `XDG_CONFIG_HOME`, where these are absolute paths, and else
/// ~/.local/share and ~/.config.
[[nodiscard]] SystemFacts system_facts();

/// The value of an environment variable, or nothing where it is not set.
using Environment = std::function<std::optional<std::string>(const char* name)>;

/// The same, from the variables that `environment` gives.
[[nodiscard]] SystemFacts system_facts(const Environment& environment);

}  // namespace zel
