#include "forms/case_forms.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

constexpr MethodSet nobody = 0;
constexpr MethodSet TB601 = methods(Method::TB601);
constexpr MethodSet Kirn = methods(Method::Kirn);
constexpr MethodSet line_conductors =
    methods(Method::TB601, Method::TB207, Method::Webs, Method::Kirn);
constexpr MethodSet wire_layers = methods(Method::TB601, Method::TB207);
constexpr MethodSet wire_diameter = methods(Method::TB601, Method::TB207, Method::TBB);
// The heat capacity of wires and tube, which the transients of these methods read.
constexpr MethodSet capacity = methods(Method::TB601, Method::TB207, Method::TBB);
constexpr MethodSet capacity_of_core = wire_layers;
constexpr MethodSet resistivity = methods(Method::TB601, Method::TBB, Method::Webs);

constexpr FormRow designation[] = {
    {"Bezeichnung1_db", &CalcCase::Bezeichnung1_db, {"Bezeichnung 1 :", "Designation 1 :"}},
    {"Bezeichnung2_db", &CalcCase::Bezeichnung2_db, {"Bezeichnung 2 :", "Designation 2 :"}},
    {"Anmerkung_db", &CalcCase::Anmerkung_db, {"Bemerkung :", "Remark :"}},
    {"Norm_db", &CalcCase::Norm_db, {"Norm :", "Standard :"}},
    {"Normjahr_db",
     &CalcCase::Normjahr_db,
     {"Gültig ab (Jahr) :", "Valid since (year) :"},
     "",
     every_method,
     {},
     nullptr,
     false,
     "0000"},
    {"Normmonat_db",
     &CalcCase::Normmonat_db,
     {"Monat :", "Month :"},
     "",
     every_method,
     {},
     nullptr,
     false,
     "00"},
};

constexpr FormRow kind[] = {
    {"conductor_type_db",
     &CalcCase::conductor_type_db,
     {"Leiterart :", "Conductor type :"},
     "",
     every_method,
     {},
     conductor_types,
     true},
    {"conductor_shape_db",
     &CalcCase::conductor_shape_db,
     {"Leiteroberfläche :", "Conductor shape :"},
     "",
     every_method,
     {},
     conductor_shapes,
     true},
};

constexpr FormRow geometry[] = {
    {"Seilquerschnitt_db",
     &CalcCase::Seilquerschnitt_db,
     {"Gesamtquerschnitt :", "Total cross-section :"},
     "mm²",
     nobody},
    {"Seildurchmesser_db",
     &CalcCase::Seildurchmesser_db,
     {"Leiterdurchmesser :", "Conductor diameter :"},
     "mm"},
    {"Dauerstrombelastbarkeit_db",
     &CalcCase::Dauerstrombelastbarkeit_db,
     {"Dauerstrombelastbarkeit :", "Rated continuous current :"},
     "A",
     Kirn},
    {"Seiltemperatur_max_db",
     &CalcCase::Seiltemperatur_max_db,
     {"Max. Leitertemperatur :", "Max. conductor temperature :"},
     "°C",
     nobody},
};

constexpr FormRow resistance[] = {
    {"DCR_20_db",
     &CalcCase::DCR_20_db,
     {"DC-Widerstand bei 20 °C :", "DC resistance at 20 °C :"},
     "Ω/km",
     line_conductors},
    {"ACR_Frequenz_Remox_db",
     &CalcCase::ACR_Frequenz_Remox_db,
     {"Frequenz AC-Widerstände :", "Frequency AC resistances :"},
     "Hz",
     nobody},
    {"ACDC_R_Option_Merker_db",
     &CalcCase::ACDC_R_Option_Merker_db,
     {"Rechnen mit Widerstand :", "Calculate with resistance :"},
     "",
     TB601,
     {},
     resistance_options},
    {"GMR_Merker_db",
     &CalcCase::GMR_Merker_db,
     {"Ersatzradius :", "Equivalent radius :"},
     "",
     TB601,
     {},
     radius_options},
    {"Text41",
     &CalcCase::GMR_db,
     {"Geom. Ersatzradius GMR :", "Geometric mean radius :"},
     "mm",
     TB601},
};

constexpr FormRow conductor_material[] = {
    {"DrahtzahlLeiter_db",
     &CalcCase::DrahtzahlLeiter_db,
     {"Drahtanzahl :", "Number of wires :"},
     "",
     wire_layers,
     {},
     nullptr,
     false,
     "##0"},
    {"DrahtdurchmesserLeiter_db",
     &CalcCase::DrahtdurchmesserLeiter_db,
     {"Drahtdurchmesser :", "Wire diameter :"},
     "mm",
     wire_diameter,
     {"bei einer Kreisring-Stromschiene die Wandstärke", "the wall thickness of a tubular busbar"}},
    {"DrahtlagenzahlLeiter_db",
     &CalcCase::DrahtlagenzahlLeiter_db,
     {"Drahtlagenanzahl :", "Number of layers :"},
     "",
     wire_layers,
     {},
     nullptr,
     false,
     "##0"},
    {"Mantelquerschnitt_db",
     &CalcCase::Mantelquerschnitt_db,
     {"Leiterquerschnitt :", "Conductor cross-section :"},
     "mm²",
     wire_layers},
    {"Dichte_Leiterwerkstoff1_db",
     &CalcCase::Dichte_Leiterwerkstoff1_db,
     {"Materialdichte :", "Density :"},
     "kg/m³",
     capacity},
    {"c_leiter20_db",
     &CalcCase::c_leiter20_db,
     {"Spez. Wärmekapazität :", "Specific heat at 20 °C :"},
     "J/(kg·K)",
     capacity},
    {"beta_leiter20_db",
     &CalcCase::beta_leiter20_db,
     {"T-Koeff. Wärmekapazität :", "Temp. coeff. specific heat :"},
     "1/1000 K",
     capacity},
    {"DC_Resist_Leiter_db",
     &CalcCase::DC_Resist_Leiter_db,
     {"DC-Resistivität bei 20 °C :", "DC resistivity at 20 °C :"},
     "Ω·mm²/km",
     resistivity},
    {"T_Koeff_DC_Resist_Leiter_linear_db",
     &CalcCase::T_Koeff_DC_Resist_Leiter_linear_db,
     {"T-Koeffizient, linear :", "Temp. coeff., linear :"},
     "1/1000 K"},
    {"T_Koeff_DC_Resist_Leiter_quadrat_db",
     &CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db,
     {"T-Koeffizient, quadratisch :", "Temp. coeff., quadratic :"},
     "10⁻⁷/K²",
     TB601},
};

constexpr FormRow core[] = {
    {"DrahtzahlTraeger_db",
     &CalcCase::DrahtzahlTraeger_db,
     {"Drahtanzahl :", "Number of wires :"},
     "",
     capacity_of_core,
     {},
     nullptr,
     false,
     "##0"},
    {"DrahtdurchmesserTraeger_db",
     &CalcCase::DrahtdurchmesserTraeger_db,
     {"Drahtdurchmesser :", "Wire diameter :"},
     "mm",
     capacity_of_core},
    {"KerndurchmesserTraeger_db",
     &CalcCase::KerndurchmesserTraeger_db,
     {"Kerndurchmesser :", "Core diameter :"},
     "mm",
     TB601},
    {"KernquerschnittTraeger_db",
     &CalcCase::KernquerschnittTraeger_db,
     {"Kernquerschnitt :", "Core cross-section :"},
     "mm²",
     nobody},
    {"Dichte_traegerwerkstoff1_db",
     &CalcCase::Dichte_traegerwerkstoff1_db,
     {"Materialdichte :", "Density :"},
     "kg/m³",
     capacity_of_core},
    {"c_traeger20_db",
     &CalcCase::c_traeger20_db,
     {"Spez. Wärmekapazität :", "Specific heat at 20 °C :"},
     "J/(kg·K)",
     capacity_of_core},
    {"beta_traeger20_db",
     &CalcCase::beta_traeger20_db,
     {"T-Koeff. Wärmekapazität :", "Temp. coeff. specific heat :"},
     "1/1000 K",
     capacity_of_core},
    {"DC_Resist_traeger_db",
     &CalcCase::DC_Resist_traeger_db,
     {"DC-Resistivität bei 20 °C :", "DC resistivity at 20 °C :"},
     "Ω·mm²/km",
     nobody},
    {"T_Koeff_DC_Resist_traeger_linear_db",
     &CalcCase::T_Koeff_DC_Resist_traeger_linear_db,
     {"T-Koeffizient, linear :", "Temp. coeff., linear :"},
     "1/1000 K",
     nobody},
    {"T_Koeff_DC_Resist_traeger_quadrat_db",
     &CalcCase::T_Koeff_DC_Resist_traeger_quadrat_db,
     {"T-Koeffizient, quadratisch :", "Temp. coeff., quadratic :"},
     "10⁻⁷/K²",
     nobody},
};

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): the six pairs differ in their number only.
#define AC_PAIR(n)                                                                               \
    {"ACR" #n "_db",                                                                             \
     &CalcCase::ACR##n##_db,                                                                     \
     {"AC-Widerstand " #n " :", "AC resistance " #n " :"},                                       \
     "Ω/km",                                                                                     \
     TB601},                                                                                     \
    {                                                                                            \
        "TACR" #n "_db", &CalcCase::TACR##n##_db, {"bei T" #n " :", "at T" #n " :"}, "°C", TB601 \
    }

constexpr FormRow ac_pairs[] = {AC_PAIR(1), AC_PAIR(2), AC_PAIR(3),
                                AC_PAIR(4), AC_PAIR(5), AC_PAIR(6)};
#undef AC_PAIR

constexpr FormRow conductivity[] = {
    {"Text23",
     &CalcCase::radialthermalconductivity_unter_KPT_db,
     {"Unterhalb des Kniepunkts :", "Below the knee point :"},
     "W/(m·K)",
     TB601,
     {"Gilt auch für monometallische Leiter.",
      "This is also the value of a monometallic conductor."}},
    {"Text7",
     &CalcCase::KniepunktTemperatur_db,
     {"Kniepunkttemperatur :", "Knee-point temperature :"},
     "°C",
     TB601},
    {"Text40",
     &CalcCase::radialthermalconductivity_ueber_KPT_db,
     {"Oberhalb des Kniepunkts :", "Above the knee point :"},
     "W/(m·K)",
     TB601},
};

constexpr FormSection sections[] = {
    {conductor_page, {"Bezeichnung", "Designation"}, designation, 3},
    {conductor_page, {"Leiterart und Oberfläche", "Type and shape"}, kind},
    {conductor_page, {"Abmessungen und Belastbarkeit", "Dimensions and capacity"}, geometry},
    {conductor_page, {"Widerstand", "Resistance"}, resistance},
    {conductor_page, {"Radiale Wärmeleitfähigkeit", "Radial thermal conductivity"}, conductivity},
    {conductor_page, {"Leiterwerkstoff", "Conductor material"}, conductor_material},
    {conductor_page, {"Kern (Trägerwerkstoff)", "Core"}, core},
    {conductor_page,
     {"Wertepaare der AC-Widerstände (aufsteigend)", "Pairs of AC resistances (ascending)"},
     ac_pairs,
     4},
};

constexpr Choice type_table[] = {
    {0, {"Leiterart nicht definiert", "Conductor type is not defined"}},
    {homogeneous_conductor,
     {"Homogener, mono-metallischer Leiter aus nichtmagnetischem Werkstoff (Bsp. AL1 - AL7 ; AAAC)",
      "Homogenous, monometallic, non ferrous conductor (e.g. AL1 - AL7 ; AAAC)"}},
    {steel_cored_conductor,
     {"Verbundleiter mit Kern aus magnetischen Material / Stahl  (Bsp. ACSR)",
      "Bimetallic steel-cored conductor (e.g. ACSR)"}},
    {tubular_busbar, {"Kreisring-Stromschiene", "Tubular busbar"}},
    {composite_core_conductor,
     {"Verbundleiter mit Kern aus nicht magnetischen Material (Bsp. ACCR ; ACCC)",
      "Composite core conductor with non ferrous core (e.g. ACCR ; ACCC)"}},
};

constexpr Choice shape_table[] = {
    {0, {"Art der Leiteroberfläche nicht definiert", "Conductor shape is not defined"}},
    {1,
     {"Leiterseil mit  Runddrähten in der äußeren Lage",
      "Conductor with round wires in outer strand"}},
    {2,
     {"Stromschiene oder Leiterseil mit glatter Oberfläche in der äußeren Lage (Bsp. "
      "Trapezoid-Drähte)",
      "busbar or conductor with smooth shape in outer strand (e.g. trapezoid wires)"}},
};

constexpr Choice resistance_table[] = {
    {0, {"", ""}},
    {1, {"DC", "DC"}},
    {2, {"AC", "AC"}},
};

constexpr Choice radius_table[] = {
    {0, {"0,7788·D/2", "0.7788·D/2"}},
    {1, {"GMR", "GMR"}},
};

}  // namespace

std::span<const FormSection> conductor_sections() { return sections; }

std::span<const Choice> conductor_types() { return type_table; }

std::span<const Choice> conductor_shapes() { return shape_table; }

std::span<const Choice> resistance_options() { return resistance_table; }

std::span<const Choice> radius_options() { return radius_table; }

}  // namespace zel
