#pragma once

#include <optional>
#include <string>

#include "adapters/posix/posix_files.h"
#include "persistence/conductor_choice.h"
#include "persistence/conductor_library.h"
#include "program/console.h"

namespace zel {

/// The library. What of the user's own file cannot be used is told on standard error. Throws
/// `InputError` where the shipped library is refused.
[[nodiscard]] ConductorLibrary open_library(Files& files, const Locale& locale);

/// The conductor of `record_or_name`: of the record in the file with that path, or else of the
/// library. Throws `InputError` where the file holds no conductor, and where the library has none
/// of that name, or more than one.
[[nodiscard]] ChosenConductor choose_conductor(const std::string& record_or_name,
                                               const Locale& locale);

/// Puts the conductor of `record_or_name` into `c`, and what a record does not hold where `c` has
/// no input of its own; that is told on `console` unless the options are silent.
void take_conductor(CalcCase& c, const std::string& record_or_name, const CommonOptions& options,
                    Console& console);

/// The same, and the box that tells why nothing was taken over where the conductor is of the wrong
/// kind for the methods of `c`.
[[nodiscard]] std::optional<Box> take_fitting_conductor(CalcCase& c,
                                                        const std::string& record_or_name,
                                                        const CommonOptions& options,
                                                        Console& console);

}  // namespace zel
