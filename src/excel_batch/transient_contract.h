#pragma once

#include <string_view>

#include "excel_batch/cell_limits.h"
#include "platform/text/text.h"

// Where a transient workbook has what is no field of the case.

namespace zel::excel_batch {

/// Below it in `fixed_input` stands the conductor.
inline constexpr int first_conductor_row = 21;

/// The preloads in percent of the PATL, down to the first empty cell.
inline constexpr int first_percent_row = 64;
inline constexpr int most_percent_values = 21;
inline constexpr Text percent_limits_title = {"PATL EingabeProzent", "PATL EingabeProzent"};
extern const Limits percent_limits;

/// The time of the TATL, s.
inline constexpr int time_column = 11;
inline constexpr Text time_label = {"TATL-Zeitdauer", "TATL-time"};
extern const Limits time_limits;          // as the array form tells them
extern const Limits time_limits_by_cell;  // and the form cell by cell

/// The angle of a row is that of the wind to the conductor.
inline constexpr Text wind_to_conductor = {"Winkel Wind zu Leiter", "Angle wind to conductor"};

/// The PATL of a row; the TATL of each percent value stand to the right of it.
inline constexpr int patl_column = 13;
inline constexpr int header_row = 2;

inline constexpr std::string_view patl_mask = "####0";
inline constexpr std::string_view tatl_mask = "######0";

}  // namespace zel::excel_batch
