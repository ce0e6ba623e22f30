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

/// Where cases are kept as named values, each under a path.
class CaseStore {
public:
    virtual ~CaseStore() = default;

    [[nodiscard]] virtual bool has(const std::string& path) = 0;

    /// Throws `InputError` with path and reason where nothing can be read there.
    [[nodiscard]] virtual FlatObject load(const std::string& path) = 0;

    /// What `save` would write, as a text.
    [[nodiscard]] virtual std::string text_of(const FlatObject& values) const = 0;

    /// Replaces what stands at `path`, whole or not at all. Throws `OutputError` with path and
    /// reason.
    virtual void save(const std::string& path, const FlatObject& values) = 0;
};

}  // namespace zel
