#pragma once

#include <span>
#include <string_view>

#include "platform/text/text.h"

namespace zel {

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
