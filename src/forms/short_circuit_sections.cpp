#include "forms/short_circuit_form.h"
#include "short_circuit/conductor_materials.h"
#include "short_circuit/input_check.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel::forms {
namespace {

using C = ShortCircuitCase;

constexpr Choice limiter_entries[] = {
    {0, {""}}, {without_limiter, {"nein"}}, {with_limiter, {"ja "}}};
constexpr Choice vicinity_entries[] = {
    {0, {""}}, {generator_near, {"generatornah "}}, {generator_far, {"generatorfern"}}};
constexpr Choice flow_entries[] = {{0, {""}}, {1, {"1 "}}, {2, {"2"}}, {3, {"3 "}}};
constexpr Choice object_entries[] = {
    {0, {""}}, {bare_conductor, {"blanker Leiter"}}, {equipment, {"elektrisches Betriebsmittel "}}};

std::span<const Choice> material_entries() {
    static const auto entries = [] {
        std::vector<Choice> made;
        for (const ConductorMaterial& material : conductor_materials())
            made.push_back({static_cast<std::int16_t>(made.size()), {material.name}});
        return made;
    }();
    return entries;
}

Row row(const char* control, const ShortCircuitKey& key, std::string_view english) {
    return {.control = control, .field = &field_of(key), .hint = {"", english}};
}

Row list(const char* control, const ShortCircuitKey& key, std::span<const Choice> choices,
         std::string_view english) {
    Row made = row(control, key, english);
    made.choices = choices;
    return made;
}

/// What a conductor's record brought; its control bears the name of the field.
Row shown(const ShortCircuitKey& key, std::string_view english) {
    return row(name_of(key).data(), key, english);
}

std::vector<Row> project() {
    return {
        row("Text4", &C::Projekt_ks, "Identification"),
        row("Text21", &C::Bearbeiter_ks, "Operator"),
        row("Text22", &C::Datum_ks, "Date"),
        row("Text20", &C::Abteilung_ks, "Company/department"),
    };
}

std::vector<Row> current() {
    return {
        row("Text3", &C::Frequenz_ks, "Frequency of the circuit"),
        list("Combo1", &C::Strombegrenzschalter_ks, limiter_entries,
             "Current-limiting switchgear: nein = no, ja = yes"),
        list("Combo2", &C::generatornah, vicinity_entries,
             "Short circuit near the generator (generatornah) or far from it (generatorfern)"),
        row("Text25", &C::IK2, "Initial symmetrical short-circuit current Ik''"),
        row("Text24", &C::IK, "Steady-state short-circuit current Ik"),
        row("Text26", &C::Kappa, "Factor kappa of the peak short-circuit current"),
        list("Combo3", &C::Anzahl_KS_fluesse, flow_entries,
             "Number of short-circuit current flows"),
        row("Text27", &C::Tk1, "Duration of the 1st flow"),
        row("Text1", &C::Tk2, "Duration of the 2nd flow"),
        row("Text2", &C::Tk3, "Duration of the 3rd flow"),
        row("Text15", &C::Ith,
            "Thermally equivalent short-time current, with current-limiting switchgear"),
        row("Text16", &C::T_k,
            "Duration of the short-circuit current, with current-limiting switchgear"),
    };
}

std::vector<Row> object() {
    return {
        list(
            "Combo5", &C::Leiter_Bmittel, object_entries,
            "Bare conductor (blanker Leiter) or electrical equipment (elektrisches Betriebsmittel)"),
        row("Text6", &C::Tkr, "Rated short time"),
        row("Text7", &C::Ithr, "Rated short-time current of the equipment"),
        row("Text11", &C::theta_b, "Conductor temperature at the start of the short circuit"),
        row("Text14", &C::theta_e, "Conductor temperature at the end of the short circuit"),
    };
}

std::vector<Row> record() {
    return {
        shown(&C::werkstoff_ks, "Material"),
        shown(&C::Nennquerschnitt_ks, "Nominal section"),
        shown(&C::Norm_ks, "Standard"),
        shown(&C::Normjahr_ks, "Valid since (year)"),
        shown(&C::Normmonat_ks, "Month"),
        shown(&C::Seilquerschnitt_ks, "Total section"),
        shown(&C::Mantelquerschnitt_ks, "Section of the sheath"),
    };
}

std::vector<Row> material() {
    Row section = row(
        "Text5", &C::A_Leiter,
        "Section of the conductor material: the total section of a conductor of one material, the section of the sheath otherwise");
    section.note = {
        "= Gesamtquerschnitt bei Seilen aus einem Material bzw. Mantelquerschnitt bei Verbundseilen"};
    Row kinds = list(
        "Combo4", &C::Leitermaterial_ks, material_entries(),
        "Conductor materials with their values: copper; aluminium and its alloys; steel; aluminium-clad steel");
    kinds.caption_above = true;
    return {
        section,
        kinds,
        row("Text8", &C::waermekapaz, "Specific heat capacity"),
        row("Text9", &C::kappa20_ks, "Conductivity at 20 °C"),
        row("Text10", &C::Tk20_ks, "Temperature coefficient at 20 °C"),
        row("Text12", &C::Dichte_rho, "Density"),
    };
}

}  // namespace

std::span<const Section> short_circuit_sections() {
    static const std::vector<Section> sections = {
        {short_circuit::input_page, {"Angaben zum Projekt", "Project"}, project()},
        {short_circuit::input_page, {"Kurzschlußstrom", "Short-circuit current"}, current()},
        {short_circuit::input_page,
         {"Leiter oder Betriebsmittel", "Conductor or equipment"},
         object()},
        {.page = short_circuit::conductor_page,
         .caption = {"Leiter aus der Seildatenbank", "Conductor of the database"},
         .rows = record(),
         .typed = false},
        {.page = short_circuit::conductor_page,
         .caption = {"Leitermaterial", "Conductor material"},
         .rows = material(),
         .note =
             {"Die nachfolgenden Daten werden zur Ermittlung der Kurzschlußstromfestigkeit verwendet:"}},
    };
    return sections;
}

}  // namespace zel::forms
