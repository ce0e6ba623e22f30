#include "forms/ks_forms.h"

#include <algorithm>
#include <vector>

#include "short_circuit/conductor_materials.h"
#include "short_circuit/input_check.h"
#include "short_circuit/short_circuit_form.h"

namespace zel {
namespace {

using C = ShortCircuitCase;
using Entries = std::span<const std::string_view>;

Entries limiter_entries() {
    static constexpr std::string_view entries[] = {"", "nein", "ja "};
    return entries;
}
Entries vicinity_entries() {
    static constexpr std::string_view entries[] = {"", "generatornah ", "generatorfern"};
    return entries;
}
Entries flow_entries() {
    static constexpr std::string_view entries[] = {"", "1 ", "2", "3 "};
    return entries;
}
Entries object_entries() {
    static constexpr std::string_view entries[] = {"", "blanker Leiter",
                                                   "elektrisches Betriebsmittel "};
    return entries;
}
Entries material_entries() {
    static const std::vector<std::string_view> entries = [] {
        std::vector<std::string_view> names;
        for (const ConductorMaterial& material : conductor_materials())
            names.push_back(material.name);
        return names;
    }();
    return entries;
}

constexpr KsFormRow project[] = {
    {"Text4", &C::Projekt_ks, "Kennung :", "", "Identification"},
    {"Text21", &C::Bearbeiter_ks, "Bearbeiter : ", "", "Operator"},
    {"Text22", &C::Datum_ks, "Datum :", "", "Date"},
    {"Text20", &C::Abteilung_ks, "Firma/Abteilung :", "", "Company/department"},
};

constexpr KsFormRow current[] = {
    {"Text3", &C::Frequenz_ks, "Frequenz des Stromkreises :", "Hz", "Frequency of the circuit"},
    {"Combo1", &C::Strombegrenzschalter_ks, "Strombegrenzende Schaltgeräte :", "",
     "Current-limiting switchgear: nein = no, ja = yes", limiter_entries},
    {"Combo2", &C::generatornah, "Kurzschluß generatornah / generatorfern :", "",
     "Short circuit near the generator (generatornah) or far from it (generatorfern)",
     vicinity_entries},
    {"Text25", &C::IK2, "Anfangskurzschlußwechselstrom Ik\" :", "kA",
     "Initial symmetrical short-circuit current Ik''"},
    {"Text24", &C::IK, "Dauerkurzschlußwechselstrom Ik :", "kA",
     "Steady-state short-circuit current Ik"},
    {"Text26", &C::Kappa, "Faktor kappa :", "", "Factor kappa of the peak short-circuit current"},
    {"Combo3", &C::Anzahl_KS_fluesse, "Anzahl der Kurzschlußstromflüsse :", "",
     "Number of short-circuit current flows", flow_entries},
    {"Text27", &C::Tk1, "Dauer des 1. Stromflusses T_k1 :", "s", "Duration of the 1st flow"},
    {"Text1", &C::Tk2, "Dauer des 2. Stromflusses T_k2 :", "s", "Duration of the 2nd flow"},
    {"Text2", &C::Tk3, "Dauer des 3. Stromflusses T_k3 :", "s", "Duration of the 3rd flow"},
    {"Text15", &C::Ith, "thermisch gleichwertiger Kurzzeitstrom I_th :", "kA",
     "Thermally equivalent short-time current, with current-limiting switchgear"},
    {"Text16", &C::T_k, "Dauer des Kurzschlußstromes T_k :", "s",
     "Duration of the short-circuit current, with current-limiting switchgear"},
};

constexpr KsFormRow object[] = {
    {"Combo5", &C::Leiter_Bmittel, "blanker Leiter / elektrisches Betriebsmittel :", "",
     "Bare conductor (blanker Leiter) or electrical equipment (elektrisches Betriebsmittel)",
     object_entries},
    {"Text6", &C::Tkr, "Bemessungs-Kurzzeit T_kr :", "s", "Rated short time"},
    {"Text7", &C::Ithr, "Bemessungs-Kurzzeitstrom I_thr :", "kA",
     "Rated short-time current of the equipment"},
    {"Text11", &C::theta_b, "Temperatur bei Kurzschlußbeginn theta_b :", "°C",
     "Conductor temperature at the start of the short circuit"},
    {"Text14", &C::theta_e, "- bei Kurzschlußende theta_e :", "°C",
     "Conductor temperature at the end of the short circuit"},
};

constexpr KsFormRow record[] = {
    {"werkstoff_ks", &C::werkstoff_ks, "Werkstoff:", "", "Material"},
    {"Nennquerschnitt_ks", &C::Nennquerschnitt_ks, "Nennquerschnitt:", "", "Nominal section"},
    {"Norm_ks", &C::Norm_ks, "Norm:", "", "Standard"},
    {"Normjahr_ks", &C::Normjahr_ks, "gültig ab (Jahr):", "", "Valid since (year)"},
    {"Normmonat_ks", &C::Normmonat_ks, "Monat:", "", "Month"},
    {"Seilquerschnitt_ks", &C::Seilquerschnitt_ks, "Gesamtquerschnitt:", "qmm", "Total section"},
    {"Mantelquerschnitt_ks", &C::Mantelquerschnitt_ks, "Mantelquerschnitt:", "qmm",
     "Section of the sheath"},
};

constexpr KsFormRow material[] = {
    {"Text5", &C::A_Leiter, "Leitermaterialquerschnitt:", "qmm",
     "Section of the conductor material: the total section of a conductor of one material, the section of the sheath otherwise",
     nullptr,
     "= Gesamtquerschnitt bei Seilen aus einem Material bzw. Mantelquerschnitt bei Verbundseilen"},
    {"Combo4",
     &C::Leitermaterial_ks,
     "Auswahl Leitermaterialen mit vordefinierte Materialparametern:",
     "",
     "Conductor materials with their values: copper; aluminium and its alloys; steel; aluminium-clad steel",
     material_entries,
     {},
     true},
    {"Text8", &C::waermekapaz, "spez. Wärmekapazität:", "J / (Kg * K)", "Specific heat capacity"},
    {"Text9", &C::kappa20_ks, "spez. Leitfähigkeit bei 20 °C:", "m / (Ohm * mm^2)",
     "Conductivity at 20 °C"},
    {"Text10", &C::Tk20_ks, "Temperaturkoeffizient für 20 °C:", "1 / K",
     "Temperature coefficient at 20 °C"},
    {"Text12", &C::Dichte_rho, "Dichte:", "kg / m^3", "Density"},
};

constexpr KsFormSection sections[] = {
    {ks_input_page, {"Angaben zum Projekt", "Project"}, project},
    {ks_input_page, {"Kurzschlußstrom", "Short-circuit current"}, current},
    {ks_input_page, {"Leiter oder Betriebsmittel", "Conductor or equipment"}, object},
    {ks_conductor_page,
     {"Leiter aus der Seildatenbank", "Conductor of the database"},
     record,
     false},
    {ks_conductor_page,
     {"Leitermaterial", "Conductor material"},
     material,
     true,
     "Die nachfolgenden Daten werden zur Ermittlung der Kurzschlußstromfestigkeit verwendet:"},
};

}  // namespace

std::span<const KsFormSection> ks_form_sections() { return sections; }

std::string ks_caption_of(KsKey field) {
    for (const KsFormSection& section : sections)
        for (const KsFormRow& row : section.rows)
            if (row.field == field) return without_outer_blanks(row.caption);
    return {};
}

std::string ks_shown_text(const ShortCircuitCase& c, const KsFormRow& row,
                          DecimalSeparator separator) {
    if (const auto* box = std::get_if<KsBox>(&row.field)) return (c.**box).text;
    if (row.entries != nullptr) {
        const std::int16_t index = c.*std::get<KsList>(row.field);
        return index == 0 ? std::string()
                          : std::string(row.entries()[static_cast<std::size_t>(index)]);
    }
    return label_text(c, row.field, separator);
}

}  // namespace zel
