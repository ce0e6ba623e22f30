#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <variant>

#include "platform/files.h"
#include "platform/message_box.h"
#include "platform/settings_store.h"
#include "platform/text/locale.h"
#include "steady/case/calc_case.h"

// The link to the conductor database: it writes the conductor that the user chose there as one
// record into the exchange file, and this program takes the conductor over from it.

namespace zel {

/// Why a conductor of the kind `conductor_type_db` does not go with the selected methods: the
/// busbar method alone takes a tube only; a conductor method, with the busbar method beside it too,
/// takes none. Without any method it must be no tube either.
[[nodiscard]] std::optional<Box> wrong_kind(const MethodSelection& methods,
                                            std::int16_t conductor_type_db, LangId lang);

/// The conductor of the exchange file, or the box that tells that the file is missing or empty.
/// Throws `InputError` where the file cannot be read or holds no numbers.
[[nodiscard]] std::variant<ConductorData, Box> exchanged_conductor(Files& files,
                                                                   const std::string& exchange_file,
                                                                   const Locale& locale);

/// Takes the conductor of the exchange file over into `c`: all that a record holds. What it does
/// not hold stays as typed. Gives the box that tells why nothing was taken over: there is no
/// conductor, or it is of the wrong kind. Throws as `exchanged_conductor` does.
[[nodiscard]] std::optional<Box> take_over_conductor(CalcCase& c, Files& files,
                                                     const std::string& exchange_file,
                                                     const Locale& locale);

/// Section and keys of the link in the shared settings file.
inline constexpr std::string_view link_section = "Seildatei";
inline constexpr std::string_view program_key = "Seildatenbanknamepluspfad";
inline constexpr std::string_view exchange_key = "Einseil1_dat";

/// Whether the path of a conductor database names this program, here or where it is installed.
[[nodiscard]] bool is_this_program(std::string_view path);

/// Whether the shared settings name no exchange file and no other program that would make one.
[[nodiscard]] bool lacks_companion_files(const SettingsStore& shared_settings);

/// The exchange file in the folder of the conductor database.
[[nodiscard]] std::string exchange_file_in(const std::string& companion_folder);

/// What the conductor database does at its first start: makes an exchange file without a conductor
/// in its folder, and writes its program file and the exchange file into the shared settings. An
/// exchange file that is there stays. Throws `OutputError`.
void create_companion_files(Files& files, const std::string& companion_folder,
                            const std::string& program_file, SettingsStore& shared_settings);

}  // namespace zel
