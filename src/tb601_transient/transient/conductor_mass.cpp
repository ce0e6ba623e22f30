#include "tb601_transient/transient/conductor_mass.h"

namespace zel {
namespace {

double square(double x) { return x * x; }

/// kg/m of `count` wires of `d` mm.
double mass_of_wires(double d, double rho, double count) {
    return square(thousandth(d)) * (rho * count) / 4 * pi;
}

/// kg/m of a tube of outer diameter and wall thickness in mm.
double mass_of_tube(double D, double wall, double rho) {
    return square(thousandth(D)) * rho / 4 * pi - square(thousandth(D - 2 * wall)) * rho / 4 * pi;
}

}  // namespace

ConductorMass conductor_mass(const CalcCase& c) {
    return {c.Seildurchmesser_db.value,
            static_cast<double>(c.DrahtzahlLeiter_db),
            c.Dichte_Leiterwerkstoff1_db.value,
            c.DrahtdurchmesserLeiter_db.value,
            c.c_leiter20_db.value,
            c.beta_leiter20_db.value,
            static_cast<double>(c.DrahtzahlTraeger_db),
            c.Dichte_traegerwerkstoff1_db.value,
            c.DrahtdurchmesserTraeger_db.value,
            c.c_traeger20_db.value,
            c.beta_traeger20_db.value,
            c.conductor_type_db,
            0};
}

ConductorHeat::ConductorHeat(const ConductorMass& record, HeatTermMethod method,
                             HeatCapacityOption cigre_TKW_merker)
    : beta_(1e-3 * record.BetaAlu),
      beta_core_(1e-3 * record.BetaCore),
      c20_(record.CAlu20),
      c20_core_(record.CCore20) {
    if (method == HeatTermMethod::None) return;
    if (method == HeatTermMethod::TBB) {
        law_ = Law::OneMaterial;
        m_ = mass_of_tube(record.D_mm, record.DWireAlu, record.RhoAlu);
        return;
    }
    m_ = mass_of_wires(record.DWireAlu, record.RhoAlu, record.NAlu);
    m_core_ = mass_of_wires(record.DWireCore_mm, record.RhoCore, record.NCore);
    switch (record.ConductorType) {
        case homogeneous_conductor: law_ = Law::OneMaterial; break;
        case steel_cored_conductor:
        case composite_core_conductor:
            law_ = cigre_TKW_merker == HeatCapacityOption::At20Degrees ? Law::Constant
                                                                       : Law::TwoMaterials;
            break;
        default: law_ = Law::UnknownType;
    }
}

HeatCapacity TS_F02_CigreTB207_MC_Theta(const ConductorMass& record, HeatTermMethod method,
                                        HeatCapacityOption cigre_TKW_merker) {
    return ConductorHeat(record, method, cigre_TKW_merker).at(record.Theta);
}

HeatCapacity TS_F02_CigreTB601_MC_Theta(const ConductorMass& record,
                                        HeatCapacityOption cigre_TKW_merker) {
    return TS_F02_CigreTB207_MC_Theta(record, HeatTermMethod::TB207, cigre_TKW_merker);
}

}  // namespace zel
