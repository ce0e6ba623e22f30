#include "forms/line_form.h"
#include "workflow/run/page_change.h"

namespace zel::forms {
namespace {

using C = CalcCase;

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

/// A row whose control bears the name of its field.
Row row(const FieldKey& key, MethodSet read_by = every_method, Text hint = {}) {
    const FieldInfo& field = field_of(key);
    return {.control = field.name.data(), .field = &field, .read_by = read_by, .hint = hint};
}

/// One with a control of the window's chain.
Row row(const char* control, const FieldKey& key, Text hint = {}) {
    return {.control = control, .field = &field_of(key), .read_by = TB601, .hint = hint};
}

Row list(const FieldKey& key, std::span<const Choice> choices) {
    Row made = row(key, TB601);
    made.choices = choices;
    return made;
}

/// A list whose texts have the language of the reports.
Row list_of_reports(const FieldKey& key, std::span<const Choice> choices) {
    Row made = row(key);
    made.choices = choices;
    made.in_report_language = true;
    return made;
}

std::vector<Row> conductor_material() {
    return {
        row(&C::DrahtzahlLeiter_db, wire_layers),
        row(&C::DrahtdurchmesserLeiter_db, wire_diameter,
            {"bei einer Kreisring-Stromschiene die Wandstärke",
             "the wall thickness of a tubular busbar"}),
        row(&C::DrahtlagenzahlLeiter_db, wire_layers),
        row(&C::Mantelquerschnitt_db, wire_layers),
        row(&C::Dichte_Leiterwerkstoff1_db, capacity),
        row(&C::c_leiter20_db, capacity),
        row(&C::beta_leiter20_db, capacity),
        row(&C::DC_Resist_Leiter_db, resistivity),
        row(&C::T_Koeff_DC_Resist_Leiter_linear_db),
        row(&C::T_Koeff_DC_Resist_Leiter_quadrat_db, TB601),
    };
}

std::vector<Row> core() {
    return {
        row(&C::DrahtzahlTraeger_db, capacity_of_core),
        row(&C::DrahtdurchmesserTraeger_db, capacity_of_core),
        row(&C::KerndurchmesserTraeger_db, TB601),
        row(&C::KernquerschnittTraeger_db, nobody),
        row(&C::Dichte_traegerwerkstoff1_db, capacity_of_core),
        row(&C::c_traeger20_db, capacity_of_core),
        row(&C::beta_traeger20_db, capacity_of_core),
        row(&C::DC_Resist_traeger_db, nobody),
        row(&C::T_Koeff_DC_Resist_traeger_linear_db, nobody),
        row(&C::T_Koeff_DC_Resist_traeger_quadrat_db, nobody),
    };
}

std::vector<Row> ac_pairs() {
    std::vector<Row> rows;
    for (const FieldKey& key : std::initializer_list<FieldKey>{
             &C::ACR1_db, &C::TACR1_db, &C::ACR2_db, &C::TACR2_db, &C::ACR3_db, &C::TACR3_db,
             &C::ACR4_db, &C::TACR4_db, &C::ACR5_db, &C::TACR5_db, &C::ACR6_db, &C::TACR6_db})
        rows.push_back(row(key, TB601));
    return rows;
}

}  // namespace

const std::vector<Section>& conductor_sections() {
    static const std::vector<Section> sections = {
        {conductor_page,
         {"Bezeichnung", "Designation"},
         {row(&C::Bezeichnung1_db), row(&C::Bezeichnung2_db), row(&C::Anmerkung_db),
          row(&C::Norm_db), row(&C::Normjahr_db), row(&C::Normmonat_db)},
         3},
        {conductor_page,
         {"Leiterart und Oberfläche", "Type and shape"},
         {list_of_reports(&C::conductor_type_db, type_table),
          list_of_reports(&C::conductor_shape_db, shape_table)}},
        {conductor_page,
         {"Abmessungen und Belastbarkeit", "Dimensions and capacity"},
         {row(&C::Seilquerschnitt_db, nobody), row(&C::Seildurchmesser_db),
          row(&C::Dauerstrombelastbarkeit_db, Kirn), row(&C::Seiltemperatur_max_db, nobody)}},
        {conductor_page,
         {"Widerstand", "Resistance"},
         {row(&C::DCR_20_db, line_conductors), row(&C::ACR_Frequenz_Remox_db, nobody),
          list(&C::ACDC_R_Option_Merker_db, resistance_table),
          list(&C::GMR_Merker_db, radius_table), row("Text41", &C::GMR_db)}},
        {conductor_page,
         {"Radiale Wärmeleitfähigkeit", "Radial thermal conductivity"},
         {row("Text23", &C::radialthermalconductivity_unter_KPT_db,
              {"Gilt auch für monometallische Leiter.",
               "This is also the value of a monometallic conductor."}),
          row("Text7", &C::KniepunktTemperatur_db),
          row("Text40", &C::radialthermalconductivity_ueber_KPT_db)}},
        {conductor_page, {"Leiterwerkstoff", "Conductor material"}, conductor_material()},
        {conductor_page, {"Kern (Trägerwerkstoff)", "Core"}, core()},
        {conductor_page,
         {"Wertepaare der AC-Widerstände (aufsteigend)", "Pairs of AC resistances (ascending)"},
         ac_pairs(),
         4},
    };
    return sections;
}

}  // namespace zel::forms
