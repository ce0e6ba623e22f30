#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "persistence/library_conductor.h"
#include "persistence/material_table.h"

// Conductors as a table of comma-separated values: the form of the shipped library and of the
// user's own one.

namespace zel {

/// The conductors of a table whose first row names its columns: fields of a record and
/// `offer_fields` by their names, `conductor_material`, `core_material`, `mass_kg_per_km`,
/// `rated_strength_kN`, `confirmed` and `source`. Numbers have a point there, and `separator` in
/// their texts. Figures that a row leaves out are those of its materials, and then
/// `add_usual_offers`.
///
/// Throws `InputError` naming `file`, line, column and limit: for an unknown column, a row without
/// designation, kind or shape, a text that is no number, a length, area or resistance below 0, an
/// unknown material, what does not fit into a record, two rows with the same two designations, and
/// figures that contradict each other in a row that is not `confirmed`.
[[nodiscard]] std::vector<LibraryConductor> read_conductors(std::string_view text,
                                                            const std::string& file,
                                                            std::span<const Material> materials,
                                                            DecimalSeparator separator);

/// The table of `conductors`, which `read_conductors` reads back to the same figures, to the last
/// bit.
[[nodiscard]] std::string conductor_table(std::span<const LibraryConductor> conductors);

}  // namespace zel
