#pragma once

#include <optional>
#include <string>

#include "adapters/posix/posix_files.h"
#include "persistence/conductor_library.h"
#include "program/console.h"

namespace zel {

/// The library. Throws `InputError` where either of its files is refused.
[[nodiscard]] ConductorLibrary open_library(Files& files, DecimalSeparator separator);

/// A conductor as an exchange record gives it. One of the library has its 32-bit figures too, so
/// that it rates the same whether it is named or picked first.
struct ChosenConductor {
    ConductorData data;
    std::optional<LibraryConductor> known;  // the conductor of the library that it is
};

/// The conductor of `record_or_name`: of the record in the file with that path, or else of the
/// library. Throws `InputError` where the file holds no conductor, and where the library has none
/// of that name, or more than one.
[[nodiscard]] ChosenConductor choose_conductor(const std::string& record_or_name,
                                               DecimalSeparator separator);

/// Puts the conductor of `record_or_name` into `c`, and what a record does not hold where `c` has
/// no input of its own; that is told on `console` unless the options are silent.
void take_conductor(CalcCase& c, const std::string& record_or_name, const CommonOptions& options,
                    Console& console);

}  // namespace zel
