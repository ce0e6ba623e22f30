#pragma once

#include <cstdint>
#include <string_view>

#include "platform/arithmetic_fault.h"
#include "tb601_transient/transient/transient_run.h"

// What a row that ends a transient tells.

namespace zel {

enum class RowCause : std::uint8_t {
    None,
    TargetNotReached,  // time sought: wrong side, or 36 500 steps
    CurrentNotFound,   // current sought: steps of a trial, or a target outside the bracket
    TooManyRounds,     // current sought: 100 rounds
    Fault,             // arithmetic fault
};

/// Why a row failed, with the numbers that its box shows.
struct RowFailure {
    RowCause cause = RowCause::None;
    int row = 0;  // 1 to 6
    int rounds = 0;
    double Temp = 0;                         // °C, the target
    double Temp_it1 = 0;                     // °C, reached by the lowest current
    double I_it1 = 0, I_it2 = 0, I_it3 = 0;  // A
    ArithmeticFault fault = ArithmeticFault::None;
};

/// Tells the failure of a row in a run of `procedure`: a box in message mode 1, silence in mode 2;
/// in any other an open batch workbook is closed and `ProgramEnd` thrown.
void tell(const RowFailure& failure, std::string_view procedure,
          const TransientSurroundings& surroundings);

/// Tells of a conductor whose type has no heat capacity, met in `procedure`. Throws `ProgramEnd`.
[[noreturn]] void tell_unknown_type(std::string_view procedure, const Reporting& reporting);

/// The text with which a conductor of unknown type ends the program.
inline constexpr std::string_view unknown_type_status =
    "TS_F02_cigre_MC_mit_abhaengigkeit_von_T: err01 ";

}  // namespace zel
