#pragma once

#include <cstdint>

#include "steady/case/calc_case.h"
#include "steady/constants.h"
#include "steady/heat_balance.h"

// The heat capacity of one metre of conductor.

namespace zel {

/// What the heat capacity reads, lengths in mm. For a tube `DWireAlu` is the wall thickness.
struct ConductorMass {
    double D_mm = 0;          // outer diameter
    double NAlu = 0;          // wires of the conductor layers
    double RhoAlu = 0;        // kg/m³
    double DWireAlu = 0;      // mm
    double CAlu20 = 0;        // J/(kg·K) at 20 °C
    double BetaAlu = 0;       // 1/(1000 K), temperature coefficient of the specific heat
    double NCore = 0;         // wires of the core
    double RhoCore = 0;       // kg/m³
    double DWireCore_mm = 0;  // mm
    double CCore20 = 0;       // J/(kg·K) at 20 °C
    double BetaCore = 0;      // 1/(1000 K)
    std::int16_t ConductorType = 0;
    double Theta = 0;  // °C, the temperature at which to evaluate
};

/// The record of the conductor of `c`; `Theta` is left at 0.
[[nodiscard]] ConductorMass conductor_mass(const CalcCase& c);

/// A heat capacity in J/(K·m). It stands only where the type of the conductor is known.
struct HeatCapacity {
    double value = 0;
    bool unknown_type = false;
};

/// The heat capacity of one conductor at many temperatures: its masses are worked out once.
class ConductorHeat {
public:
    /// By TB 207 or the busbar method; `Theta` of the record is not read.
    ConductorHeat(const ConductorMass& record, HeatTermMethod method,
                  HeatCapacityOption cigre_TKW_merker);

    [[nodiscard]] HeatCapacity at(double Theta) const {
        const double rise = Theta - reference_temperature;
        switch (law_) {
            case Law::OneMaterial: return {m_ * ((rise * beta_ + 1) * c20_)};
            case Law::TwoMaterials:
                return {m_ * ((rise * beta_ + 1) * c20_) +
                        m_core_ * ((rise * beta_core_ + 1) * c20_core_)};
            case Law::Constant: return {m_ * c20_ + m_core_ * c20_core_};
            case Law::UnknownType: return {0, true};
            case Law::NoMethod: break;
        }
        return {0};
    }

private:
    enum class Law : std::uint8_t { NoMethod, UnknownType, OneMaterial, TwoMaterials, Constant };
    Law law_ = Law::NoMethod;
    double m_ = 0, m_core_ = 0;        // kg/m
    double beta_ = 0, beta_core_ = 0;  // 1/K
    double c20_ = 0, c20_core_ = 0;    // J/(kg·K)
};

/// The heat capacity by TB 207 (types 1, 2 and 4) or of a tube by the busbar method, whatever its
/// type; 0 where no method is selected.
[[nodiscard]] HeatCapacity TS_F02_CigreTB207_MC_Theta(const ConductorMass& record,
                                                      HeatTermMethod method,
                                                      HeatCapacityOption cigre_TKW_merker);

/// The heat capacity by TB 601: types 1, 2 and 4.
[[nodiscard]] HeatCapacity TS_F02_CigreTB601_MC_Theta(const ConductorMass& record,
                                                      HeatCapacityOption cigre_TKW_merker);

}  // namespace zel
