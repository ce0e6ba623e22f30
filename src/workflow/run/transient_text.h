#pragma once

#include <array>
#include <string>

#include "platform/text/locale.h"
#include "workflow/run/transient.h"

namespace zel {

// What the parts of a transient are called.
inline constexpr std::array<Text, state_change_count> change_of_state_names = {{
    {"Zustandsänderung 1", "1st change-of-state"},
    {"Zustandsänderung 2", "2nd change-of-state"},
    {"Zustandsänderung 3", "3th change-of-state"},
    {"Zustandsänderung 4", "4th change-of-state"},
    {"Zustandsänderung 5", "5th change-of-state"},
    {"Zustandsänderung 6", "6th change-of-state"},
}};
inline constexpr Text new_current_label = {"Stromstärke neu:", "new current load:"};
inline constexpr Text new_temperature_label = {"Temperatur neu:", "new temperature:"};
inline constexpr Text duration_label = {"Zeitdauer:", "duration:"};
inline constexpr Text start_current_label = {"Stromstärke Ausgangszustand:  ",
                                             "initial state current load: "};
inline constexpr Text start_temperature_label = {"Leitertemperatur Ausgangszustand:  ",
                                                 "line-temperature at initial state:  "};

/// The current of the bundle and the temperature from which a transient starts, with their units.
[[nodiscard]] std::string start_current_text(const TransientStart& start, const CalcCase& c,
                                             DecimalSeparator separator);
[[nodiscard]] std::string start_temperature_text(const TransientStart& start,
                                                 DecimalSeparator separator);

/// The start and the rows of a valid run of `c` as plain text, for a terminal and the clipboard.
/// Found values are marked; the rows after a failed one are left out.
[[nodiscard]] std::string transient_text(const TransientResult& result, const CalcCase& c,
                                         const Locale& locale);

}  // namespace zel
