#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "platform/text/text.h"

namespace zel {

/// An entry of the material list with the texts that choosing it writes into the boxes. They have a
/// decimal comma, whatever the separator of the session is.
struct ConductorMaterial {
    Text name;  // the German one with its leading blank
    std::string_view waermekapaz;
    std::string_view Tk20_ks;
    std::string_view kappa20_ks;
    std::string_view Dichte_rho;
};

/// The list by its index. Index 0 stands for values that are typed or come from a conductor's
/// record, and has no texts.
[[nodiscard]] std::span<const ConductorMaterial> conductor_materials();

/// What a record that is shown, and a report, call the entry `index`. Only the first three
/// materials have a name there.
[[nodiscard]] Text material_of_record(std::int16_t index);

}  // namespace zel
