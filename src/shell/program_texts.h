#pragma once

#include <string>
#include <string_view>

#include "platform/message_box.h"
#include "platform/system.h"

// What the program and its files call themselves, where these lie, and the question before it ends.

namespace zel {

inline constexpr std::string_view program_date = "12.08.2026";
inline constexpr Text short_name = {"VOR V.8.2", "ZEL V.8.2"};
inline constexpr Text version = {"Version 8.2", "Version 8.2"};
inline constexpr Text long_title = {
    "Stromstärke- / Temperaturberechnung von Seilen und Stromschienen",
    "Current and temperature calculations of overhead conductors and busbars"};
inline constexpr Text long_title_2 = {
    "Stromstärke- /Temperaturberechnung von Seilen und Stromschienen",
    "Current and temperature calculations of overhead conductors and busbars"};

// The second program area: thermal short-circuit strength.
inline constexpr Text short_circuit_title = {
    "Thermische Kurzschlußfestigkeit nach IEC 865-1",
    "Short-circuit current - Thermal effect on bare conductors and equipment"};
inline constexpr Text short_circuit_name = {"QUV V.3.0", "JOL V.3.0"};
/// From the first switch of the language on, also back again, the area bears this lower number.
inline constexpr Text short_circuit_name_after_switch = {"QUV V.2.0", "JOL V.2.0"};

inline constexpr std::string_view companion_folder_name = "R-MOX V.6.1";
inline constexpr std::string_view shared_settings_name = "flb_8261.ini";
inline constexpr std::string_view data_folder_name = "ZEL V.8.2";
inline constexpr std::string_view user_settings_name = "zel/settings.ini";

/// Where the program's files lie.
struct ProgramPaths {
    std::string companion_folder;      // of the conductor application, and of the shared settings
    std::string shared_settings_file;  // "flb_8261.ini"
    std::string data_folder;           // databases
    std::string user_settings_file;    // what belongs to the user alone: the languages
};

[[nodiscard]] ProgramPaths program_paths(const SystemFacts& system);

/// `path` cut back to, and including, its last separator; empty where it has none.
[[nodiscard]] std::string folder_of(const std::string& path);

/// Asked by `mBeenden` and by closing the start window; No is the default.
inline constexpr BoxText exit_question = {
    Icon::Question,
    short_name,
    {"Wollen Sie das Programm wirklich abbrechen bzw. beenden? ",
     "Do you really want to close the application ?"},
    Buttons::YesNo,
    Answer::No};

}  // namespace zel
