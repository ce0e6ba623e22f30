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

/// The conductors of a table, by whether their rows can be used.
struct ConductorRows {
    std::vector<LibraryConductor> sound;
    std::vector<LibraryConductor> damaged;  // each with its `damage`
};

/// The conductors of a table whose first row names its columns: fields of a record and
/// `offer_fields` by their names, `conductor_material`, `core_material`, `mass_kg_per_km`,
/// `rated_strength_kN`, `confirmed` and `source`. Numbers have a point there, and `separator` in
/// their texts. Figures that a row leaves out are those of its materials, and then
/// `add_usual_offers`.
///
/// A row is damaged, with a reason that names `file`, line, column and limit: one that cannot be
/// taken apart or is no UTF-8, without designation, kind or shape, with a text that is no number, a
/// length, area or resistance below 0, an unknown material, what does not fit into a record, the
/// two designations of a row before it, and figures that contradict each other in a row that is not
/// `confirmed`. Throws `InputError` naming `file` where the first row cannot be used.
[[nodiscard]] ConductorRows read_rows(std::string_view text, const std::string& file,
                                      std::span<const Material> materials,
                                      DecimalSeparator separator);

/// The same for a table that has to be sound: throws `InputError` for the first damaged row.
[[nodiscard]] std::vector<LibraryConductor> read_conductors(std::string_view text,
                                                            const std::string& file,
                                                            std::span<const Material> materials,
                                                            DecimalSeparator separator);

/// The table of `conductors`, which `read_conductors` reads back to the same figures, to the last
/// bit. Damaged lines stay as they are.
[[nodiscard]] std::string conductor_table(std::span<const LibraryConductor> conductors);

}  // namespace zel
