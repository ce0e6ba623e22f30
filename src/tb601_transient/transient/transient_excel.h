#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "platform/arithmetic_fault.h"
#include "tb601_transient/tb601/tb601_params.h"
#include "tb601_transient/transient/conductor_mass.h"

// The current that brings a conductor to a temperature in a given time, for one cell of the Excel
// batch, by TB 601.

namespace zel {

/// Position 0 to 21 of a cell's results: a current in A, or 1, 2 or 3 where there is none.
using TransientSlots = std::array<float, 22>;

struct TransientExcelInput {
    float duration = 0;            // s
    double start_temperature = 0;  // °C, `TransientStartTemperature`
    float target = 0;              // °C
    float I1 = 0;                  // A, the steady current at the target temperature
    std::int16_t slot = 0;         // 0 to 21
    ConductorMass mass;
    HeatCapacityOption cigre_TKW_merker = HeatCapacityOption::WithTemperature;
};

/// How the search of a current ended. The numbers are those that stand in the slot of a failure.
enum class TransientExcelEnd : std::uint8_t {
    Found = 0,
    TooManySteps = 1,   // 400 000 steps in one trial
    OutOfBracket = 2,   // the target lies outside what the start currents reach
    TooManyRounds = 3,  // 100 rounds
    Fault = 4,          // arithmetic fault: the slot is left alone, the error text is "Error"
};

struct TransientExcelResult {
    TransientExcelEnd end = TransientExcelEnd::Found;
    ArithmeticFault fault = ArithmeticFault::None;
    std::string_view error_text;  // empty, or "Error"
};

/// Puts the current of one sub-conductor, or the number of the failure, into the slot. Shows no
/// box. A slot outside 0 to 21 throws std::out_of_range, a conductor of unknown type `ProgramEnd`.
TransientExcelResult TS_S01_CigreTB601_temp_strom_transient_state_Excel(
    const TransientExcelInput& input, TB601Records& records, TransientSlots& slots);

}  // namespace zel
