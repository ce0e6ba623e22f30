#pragma once

#include <span>
#include <string_view>

#include "platform/text/text.h"

// What a build consists of.

namespace zel {

/// The number of the release, such as "1.2.3". The version in the names of the program and of its
/// folders is another one and does not change with it.
[[nodiscard]] std::string_view release_number();

/// A library that the program is linked with.
struct LinkedLibrary {
    std::string_view name;
    std::string_view version;  // that the program was built with; may be empty
    std::string_view licence;
    Text purpose;
    std::string_view package{};  // as the build finds it; empty where another library brings it
};

/// All of them, whichever of the programs has them.
[[nodiscard]] std::span<const LinkedLibrary> linked_libraries();

}  // namespace zel
