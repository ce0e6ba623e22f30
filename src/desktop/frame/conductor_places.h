#pragma once

#include "persistence/conductor_library.h"

namespace zel {

/// Where the windows find the conductors of the library, and read and write the exchange file.
struct ConductorPlaces {
    Files* files = nullptr;
    LibraryPlaces library{};
};

}  // namespace zel
