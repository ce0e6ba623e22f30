#include "tb601_transient/tb601/tb601_params.h"

#include "platform/rounding.h"
#include "steady/constants.h"

namespace zel {
namespace {

void fill_formula(TB601Params& p, const CalcCase& c) {
    p.R20 = thousandth(c.DCR_20_db.value);
    p.Rho20 = 1e-9 * c.DC_Resist_Leiter_db.value;
    p.Alpha = thousandth(narrowed_to_single(c.T_Koeff_DC_Resist_Leiter_linear_db.value));
    p.Beta = 1e-7 * c.T_Koeff_DC_Resist_Leiter_quadrat_db.value;
}

void fill_table(ResistanceTable& table, const CalcCase& c) {
    const auto point = [](const Entry& ACR, const Entry& TACR) -> ResistancePoint {
        return {static_cast<float>(thousandth(ACR.value)), static_cast<float>(TACR.value)};
    };
    table = {point(c.ACR1_db, c.TACR1_db), point(c.ACR2_db, c.TACR2_db),
             point(c.ACR3_db, c.TACR3_db), point(c.ACR4_db, c.TACR4_db),
             point(c.ACR5_db, c.TACR5_db), point(c.ACR6_db, c.TACR6_db)};
}

}  // namespace

void fill(TB601Records& records, const CalcCase& c, double delta) {
    TB601Params& p = records.params;
    p.RunMarker = 1;
    p.Ta = c.Umgebungstemperatur_db.value;
    p.V = c.Windgeschwindigkeit_db.value;
    p.Delta = delta;
    p.Y = c.Hoehe_ueber_NN_db.value;
    p.Ig = c.Globalstrahlung_db.value;
    p.G = gravity(c.Gravi_merker1_db);
    p.Eps = c.Emissionsverhaeltnis_db.value;
    p.AlphaS = c.Absorptionsverhaeltnis_db.value;
    p.F = c.Netzfrequenz_db.value;
    p.ConductorType = c.conductor_type_db;
    p.ConductorShape = c.conductor_shape_db;
    p.GMR = static_cast<float>(thousandth(c.GMR_db.value));
    p.GMRMerker = c.GMR_Merker_db;
    p.AluLayers = c.DrahtlagenzahlLeiter_db;
    p.AreaOuter = c.Mantelquerschnitt_db.value;
    p.D = thousandth(c.Seildurchmesser_db.value);
    p.DCore = thousandth(c.KerndurchmesserTraeger_db.value);
    p.AreaCore = thousandth(c.KernquerschnittTraeger_db.value);
    p.DWire = thousandth(c.DrahtdurchmesserLeiter_db.value);
    p.DWireCore = thousandth(c.DrahtdurchmesserTraeger_db.value);
    p.ROption = c.ACDC_R_Option_Merker_db;
    if (p.ROption == resistance_by_formula) fill_formula(p, c);
    if (p.ROption == resistance_by_table) fill_table(records.state.table, c);
    p.Tknee = c.KniepunktTemperatur_db.value;
    p.Lambda1 = c.radialthermalconductivity_unter_KPT_db.value;
    p.Lambda2 = c.radialthermalconductivity_ueber_KPT_db.value;
}

}  // namespace zel
