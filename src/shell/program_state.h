#pragma once

#include <cstdint>
#include <string>

#include "shell/program_texts.h"

namespace zel {

/// The state of a run of the program that no store keeps, beside case and settings.
struct ProgramState {
    std::string major_version;  // of the operating system
    std::string minor_version;
    std::string build_number;

    std::string companion_program_folder;  // with the separator at its end; empty where not known
    std::string calculation_folder;        // of the calculation database

    Text short_circuit_short_name = short_circuit_name;
    bool Druck_direkt = false;          // reports go straight to the printer
    bool Schnellzugriff_offen = false;  // the quick-access table is open
    std::int32_t display_colour = 0xFFFFFF;

    std::int16_t batch_kind = 0;
    bool Excel_Modus = false;  // a batch is running
    bool Excel_Stop = false;   // the user wants it to stop
    bool Excel_Stop_2 = false;

    std::string printer;  // the chosen one, where it exists

    /// The copies of texts that a switch of the interface language makes anew.
    void language_switched() { short_circuit_short_name = short_circuit_name_after_switch; }
};

}  // namespace zel
