#pragma once

// The currents from which a search for the current of a transient starts, by the section of the
// conducting layers and the duration. They have to bracket the current sought.

namespace zel {

/// The middle and the high point of the search, in A or as multiples of a current. The low point
/// is chosen by the search.
struct StartCurrents {
    double middle = 0;
    double high = 0;
};

/// `TS_InitialCurrents`: in A, for a section in mm² and a duration in s.
[[nodiscard]] StartCurrents TS_InitialCurrents(double section, double duration);

/// For the Excel batch: multiples of the steady current at the temperature to reach.
[[nodiscard]] StartCurrents excel_start_factors(double section, double duration);

}  // namespace zel
