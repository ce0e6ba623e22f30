#pragma once

#include <string_view>

#include "tb601_transient/transient/transient_models.h"
#include "tb601_transient/transient/transient_stepping.h"

// What tells the transient of one method from that of the other.

namespace zel {

template <class Model>
struct MethodRules {
    std::string_view procedure;
    std::string_view heat_capacity_procedure;
    WalkRule walk;      // of a row whose temperature is sought
    SearchRule search;  // of a row whose current is sought
    Round (*narrow)(Bracket<Model>& bracket, double target, double former);
};

/// TB 207 and the busbar method.
inline constexpr MethodRules<Tb207Model> tb207_rules = {
    "TS_S01_CigreTB207_temp_strom_transient_state",
    "TS_F02_CigreTB207_MC_Theta",
    {0.02, 0.01},
    {{0.02, 0.2, 30000}, 0.1, false},
    [](Bracket<Tb207Model>& bracket, double target, double) {
        return narrow_tb207(bracket, target);
    }};

inline constexpr MethodRules<Tb601Model> tb601_rules = {
    "TS_S01_CigreTB601_temp_strom_transient_state_Programm_aktuell",
    "TS_F02_CigreTB601_MC_Theta",
    {0.01, 0.1},
    {{0.01, 0.2, 30000}, 0.2, true},
    [](Bracket<Tb601Model>& bracket, double target, double former) {
        return narrow_tb601(bracket, target, 0.1, former);
    }};

}  // namespace zel
