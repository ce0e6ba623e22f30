#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/number_text.h"
#include "steady/case/calc_case.h"

// The materials of wires and tubes, which conductors of the library name instead of repeating their
// figures.

namespace zel {

/// A figure of a material, and the fields that it fills of a conductor and of a core.
struct MaterialFigure {
    std::string_view column;
    Entry ConductorData::*of_conductor;
    Entry ConductorData::*of_core;
};

inline constexpr MaterialFigure material_figures[] = {
    {"density_kg_per_m3", &ConductorData::Dichte_Leiterwerkstoff1_db,
     &ConductorData::Dichte_traegerwerkstoff1_db},
    {"c20_J_per_kg_K", &ConductorData::c_leiter20_db, &ConductorData::c_traeger20_db},
    {"c20_coefficient_per_1000_K", &ConductorData::beta_leiter20_db,
     &ConductorData::beta_traeger20_db},
    {"resistivity20_ohm_mm2_per_km", &ConductorData::DC_Resist_Leiter_db,
     &ConductorData::DC_Resist_traeger_db},
    {"resistivity_coefficient_per_1000_K", &ConductorData::T_Koeff_DC_Resist_Leiter_linear_db,
     &ConductorData::T_Koeff_DC_Resist_traeger_linear_db},
    {"resistivity_square_coefficient_1e_7_per_K2",
     &ConductorData::T_Koeff_DC_Resist_Leiter_quadrat_db,
     &ConductorData::T_Koeff_DC_Resist_traeger_quadrat_db},
};

struct Material {
    std::string name;
    std::array<Entry, std::size(material_figures)> figures;  // empty where the table has none
    std::string source;
};

/// The materials of a table of comma-separated values, whose first row names its columns:
/// `material`, those of `material_figures`, `source`. Numbers have a point there and the separator
/// `separator` in their texts. Throws `InputError` naming `file`, line, column and limit.
[[nodiscard]] std::vector<Material> read_materials(std::string_view text, const std::string& file,
                                                   DecimalSeparator separator);

/// Fills the fields of the conductor wires that have no input.
void complete_conductor(ConductorData& conductor, const Material& material);

/// Fills the fields of the core that have no input.
void complete_core(ConductorData& conductor, const Material& material);

}  // namespace zel
