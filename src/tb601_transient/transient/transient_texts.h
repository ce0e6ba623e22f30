#pragma once

#include <array>
#include <chrono>
#include <string>

#include "platform/text/number_text.h"
#include "steady/case/transient_row.h"

// What is written of a transient.

namespace zel {

/// What the result page writes into one row. Only what was found has a text: the given quantities
/// stand there as they were typed.
struct TransientRowTexts {
    std::string Strom;  // of the bundle
    std::string Temp;
    std::string Min;
    std::string Sec;
    std::string total;  // "t 0-1 = 5 min 0 sec": the time from the start to the end of this row
};

/// `TS_ShowResults`: the texts of the rows up to the first failed one; that row and those after it
/// are empty.
[[nodiscard]] std::array<TransientRowTexts, state_change_count> TS_ShowResults(
    const Zustand16& rows, int Anzahl_Teilleiter, DecimalSeparator separator);

/// The time between two moments, "0 h 05 min 07 sec", rounded to whole seconds. 0 where `later` is
/// the earlier one.
[[nodiscard]] std::string Zeit_format(std::chrono::system_clock::time_point later,
                                      std::chrono::system_clock::time_point earlier);

}  // namespace zel
