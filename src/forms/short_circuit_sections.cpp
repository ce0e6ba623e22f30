#include <map>
#include <string>

#include "forms/short_circuit_form.h"
#include "short_circuit/conductor_materials.h"
#include "short_circuit/input_check.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel::forms {
namespace {

using C = ShortCircuitCase;

constexpr Choice limiter_entries[] = {
    {0, {""}}, {without_limiter, {"nein", "no"}}, {with_limiter, {"ja ", "yes"}}};
constexpr Choice vicinity_entries[] = {
    {0, {""}},
    {generator_near, {"generatornah ", "near the generator"}},
    {generator_far, {"generatorfern", "far from the generator"}}};
constexpr Choice flow_entries[] = {{0, {""}}, {1, {"1 "}}, {2, {"2"}}, {3, {"3 "}}};
constexpr Choice object_entries[] = {
    {0, {""}},
    {bare_conductor, {"blanker Leiter", "bare conductor"}},
    {equipment, {"elektrisches Betriebsmittel ", "electrical equipment"}}};

std::span<const Choice> material_entries() {
    static const auto entries = [] {
        std::vector<Choice> made;
        for (const ConductorMaterial& material : conductor_materials())
            made.push_back({static_cast<std::int16_t>(made.size()), material.name});
        return made;
    }();
    return entries;
}

/// What the messages, which are German, call a field: the hint of its input in English.
std::string_view name_in_messages(const FieldInfo& field) {
    static const auto names = [] {
        std::map<std::string_view, std::string> made;
        for (const ShortCircuitField& each : short_circuit_fields())
            made[each.name] = fill("In messages: {0}", {bare_label_of(each).de});
        return made;
    }();
    return names.at(field.name);
}

Row row(const char* control, const ShortCircuitKey& key) {
    const FieldInfo& field = field_of(key);
    return {.control = control, .field = &field, .hint = {"", name_in_messages(field)}};
}

Row list(const char* control, const ShortCircuitKey& key, std::span<const Choice> choices) {
    Row made = row(control, key);
    made.choices = choices;
    return made;
}

/// What a conductor's record brought; its control bears the name of the field.
Row shown(const ShortCircuitKey& key) { return row(name_of(key).data(), key); }

std::vector<Row> project() {
    return {
        row("Text4", &C::Projekt_ks),
        row("Text21", &C::Bearbeiter_ks),
        row("Text22", &C::Datum_ks),
        row("Text20", &C::Abteilung_ks),
    };
}

std::vector<Row> current() {
    return {
        row("Text3", &C::Frequenz_ks),
        list("Combo1", &C::Strombegrenzschalter_ks, limiter_entries),
        list("Combo2", &C::generatornah, vicinity_entries),
        row("Text25", &C::IK2),
        row("Text24", &C::IK),
        row("Text26", &C::Kappa),
        list("Combo3", &C::Anzahl_KS_fluesse, flow_entries),
        row("Text27", &C::Tk1),
        row("Text1", &C::Tk2),
        row("Text2", &C::Tk3),
        row("Text15", &C::Ith),
        row("Text16", &C::T_k),
    };
}

std::vector<Row> object() {
    return {
        list("Combo5", &C::Leiter_Bmittel, object_entries),
        row("Text6", &C::Tkr),
        row("Text7", &C::Ithr),
        row("Text11", &C::theta_b),
        row("Text14", &C::theta_e),
    };
}

std::vector<Row> record() {
    return {
        shown(&C::werkstoff_ks),
        shown(&C::Nennquerschnitt_ks),
        shown(&C::Norm_ks),
        shown(&C::Normjahr_ks),
        shown(&C::Normmonat_ks),
        shown(&C::Seilquerschnitt_ks),
        shown(&C::Mantelquerschnitt_ks),
    };
}

std::vector<Row> material() {
    Row section = row("Text5", &C::A_Leiter);
    section.note = {
        "= Gesamtquerschnitt bei Seilen aus einem Material bzw. Mantelquerschnitt bei Verbundseilen",
        "= total section of conductors of one material, section of the sheath of composite conductors"};
    Row kinds = list("Combo4", &C::Leitermaterial_ks, material_entries());
    kinds.caption_above = true;
    return {
        section,
        kinds,
        row("Text8", &C::waermekapaz),
        row("Text9", &C::kappa20_ks),
        row("Text10", &C::Tk20_ks),
        row("Text12", &C::Dichte_rho),
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
             {"Die nachfolgenden Daten werden zur Ermittlung der Kurzschlußstromfestigkeit verwendet:",
              "The following data is used to find the short-circuit strength:"}},
    };
    return sections;
}

}  // namespace zel::forms
