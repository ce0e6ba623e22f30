#pragma once

#include <string>
#include <variant>
#include <vector>

namespace zel {

/// One value of a file of named values, with the kind it has there.
using FlatValue = std::variant<bool, double, std::string>;

struct FlatMember {
    std::string key;
    FlatValue value;

    friend bool operator==(const FlatMember&, const FlatMember&) = default;
};

/// The named values of a file, in its order; no key stands twice.
using FlatObject = std::vector<FlatMember>;

}  // namespace zel
