#pragma once

#include <string>
#include <string_view>

#include "platform/text/locale.h"
#include "workflow/run/steady_run.h"

namespace zel {

/// The labels of the folded angle and of the wind across the conductor.
inline constexpr Text angle_label = {"Winkel-Wind-Leiter:", "Angle wind conductor:"};
inline constexpr Text perpendicular_wind_label = {"Wind _I_ Leiter:", "Wind _I_ conductor:"};

/// The wind display: the part of the wind across the conductor, m/s, and the texts of it and of the
/// folded angle.
void S_Windanzeige(SteadyRunResult& result, DecimalSeparator separator);

/// What the kind of result sets for tables and printing, without a run.
[[nodiscard]] ResultTexts kind_texts(bool current_given, bool ambient_table, LangId lang);

/// Writes all texts of a valid run from its numbers. So a result can be told again in another
/// language without being computed again.
void write_texts(SteadyRunResult& result, const Locale& locale);

/// The result of a method as its line shows it: "1360 A", "80.0 °C" or " Error".
[[nodiscard]] std::string result_text(const SteadyResult& outcome, const RunBasis& basis,
                                      DecimalSeparator separator);

/// The balance line of a solution: the four heat terms of one sub-conductor in W/m.
[[nodiscard]] std::string balance_line(std::string_view head, const HeatTerms& terms,
                                       DecimalSeparator separator);

/// What the result page shows of a valid run, as plain text: for a terminal and the clipboard.
[[nodiscard]] std::string result_text(const SteadyRunResult& result, LangId lang);

}  // namespace zel
