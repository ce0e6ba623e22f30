#include "short_circuit/conductor_materials.h"

#include <iterator>

namespace zel {
namespace {

// name, c in J/(kg·K), alpha20 in 1/K, conductivity at 20 °C in m/(ohm·mm²), density in kg/m³
constexpr ConductorMaterial materials[] = {
    {{" Benutzerdefinierte Werteeingabe oder aus Seildatenbank eingelesen",
      "Values typed or read from the conductor database"},
     "",
     "",
     "",
     ""},
    {{" Kupfer", "Copper"}, "390", "0,0039", "56", "8900"},
    {{" Aluminium, Aluminiumlegierung (AlMgSi),Al/St, AlMgSi/St",
      "Aluminium, aluminium alloy (AlMgSi), Al/St, AlMgSi/St"},
     "910",
     "0,004",
     "34,8",
     "2700"},
    {{" Stahl", "Steel"}, "480", "0,0045", "7,25", "7850"},
    {{" Aluminium ummantelter Stahl 20 SA", "Aluminium-clad steel 20 SA"},
     "518",
     "0,0036",
     "11,79",
     "6590"},
    {{" Aluminium ummantelter Stahl 27 SA", "Aluminium-clad steel 27 SA"},
     "551",
     "0,0036",
     "15,66",
     "5910"},
    {{" Aluminium ummantelter Stahl 30 SA", "Aluminium-clad steel 30 SA"},
     "566",
     "0,0038",
     "17,4",
     "5610"},
    {{" Aluminium ummantelter Stahl 40 SA", "Aluminium-clad steel 40 SA"},
     "630",
     "0,004",
     "23,2",
     "4640"},
};

}  // namespace

std::span<const ConductorMaterial> conductor_materials() { return materials; }

Text material_of_record(std::int16_t index) {
    constexpr Text names[] = {{},
                              {" Kupfer", "Copper"},
                              {"Aluminium, Aluminiumlegierung (AlMgSi), Aluminium/Stahl",
                               "Aluminium, aluminium alloy (AlMgSi), aluminium/steel"},
                              {" Stahl", "Steel"}};
    const auto row = static_cast<std::size_t>(index);
    return row < std::size(names) ? names[row] : Text{};
}

}  // namespace zel
