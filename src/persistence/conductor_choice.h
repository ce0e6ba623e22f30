#pragma once

#include <optional>
#include <string>

#include "persistence/conductor_library.h"

// A conductor that a user names: one of the library, or one of an exchange record.

namespace zel {

/// A conductor as an exchange record gives it. One of the library has its 32-bit figures too, so
/// that it rates the same whether it is named or picked first.
struct ChosenConductor {
    ConductorData data;
    std::optional<LibraryConductor> known;  // the conductor of the library that it is
};

/// The conductor of `record_or_name`: of the record in the file with that path, or else of
/// `library`. Throws `InputError` where the file holds no conductor, and where the library has none
/// of that name, or more than one.
[[nodiscard]] ChosenConductor choose_conductor(const ConductorLibrary& library, Files& files,
                                               const std::string& record_or_name,
                                               DecimalSeparator separator);

/// Puts `chosen` into `c`, and what a record does not hold where `c` has no input of its own; gives
/// the box that tells this.
std::optional<Box> take(const ChosenConductor& chosen, CalcCase& c, const Locale& locale);

}  // namespace zel
