#include "short_circuit/short_circuit_fields.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>

namespace zel {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): a field's name and its member stand once.
#define FIELD(name) \
    ShortCircuitField { #name, &ShortCircuitCase::name }

constexpr ShortCircuitField fields[] = {
    FIELD(Projekt_ks).alias("project").called("Kennung :", "Identification :").of_length(100),
    FIELD(Bearbeiter_ks).alias("operator").called("Bearbeiter : ", "Operator :").of_length(100),
    FIELD(Datum_ks).alias("date").called("Datum :", "Date :").of_length(20),
    FIELD(Abteilung_ks)
        .alias("department")
        .called("Firma/Abteilung :", "Company/department :")
        .of_length(100),
    FIELD(Frequenz_ks)
        .alias("frequency")
        .called("Frequenz des Stromkreises :", "Frequency of the circuit :", "Hz")
        .single(),
    FIELD(Strombegrenzschalter_ks)
        .alias("current_limiting")
        .called("Strombegrenzende Schaltgeräte :", "Current-limiting switchgear :")
        .list_to(2),
    FIELD(generatornah)
        .alias("near_generator")
        .called("Kurzschluß generatornah / generatorfern :",
                "Short circuit near / far from generator :")
        .list_to(2),
    FIELD(IK2)
        .alias("initial_current")
        .called("Anfangskurzschlußwechselstrom Ik\" :",
                "Initial symm. short-circuit current Ik\" :", "kA")
        .single(),
    FIELD(IK)
        .alias("steady_state_current")
        .called("Dauerkurzschlußwechselstrom Ik :", "Steady-state short-circuit current Ik :", "kA")
        .single(),
    FIELD(Kappa).alias("kappa").called("Faktor kappa :", "Factor kappa :").single(),
    FIELD(Anzahl_KS_fluesse)
        .alias("flows")
        .called("Anzahl der Kurzschlußstromflüsse :", "Number of short-circuit current flows :")
        .list_to(3),
    FIELD(Tk1)
        .alias("flow_1_duration")
        .called("Dauer des 1. Stromflusses T_k1 :", "Duration of the 1st flow T_k1 :", "s")
        .single(),
    FIELD(Tk2)
        .alias("flow_2_duration")
        .called("Dauer des 2. Stromflusses T_k2 :", "Duration of the 2nd flow T_k2 :", "s")
        .single(),
    FIELD(Tk3)
        .alias("flow_3_duration")
        .called("Dauer des 3. Stromflusses T_k3 :", "Duration of the 3rd flow T_k3 :", "s")
        .single(),
    FIELD(Ith)
        .alias("thermal_equivalent_current")
        .called("thermisch gleichwertiger Kurzzeitstrom I_th :",
                "Thermal equivalent short-time current I_th :", "kA")
        .single(),
    FIELD(T_k)
        .alias("duration")
        .called(
            "Dauer des Kurzschlußstromes T_k :", "Duration of the short-circuit current T_k :", "s")
        .single(),
    FIELD(Leiter_Bmittel)
        .alias("equipment")
        .called("blanker Leiter / elektrisches Betriebsmittel :",
                "Bare conductor / electrical equipment :")
        .list_to(2),
    FIELD(Tkr)
        .alias("rated_short_time")
        .called("Bemessungs-Kurzzeit T_kr :", "Rated short time T_kr :", "s")
        .single(),
    FIELD(Ithr)
        .alias("rated_withstand_current")
        .called(
            "Bemessungs-Kurzzeitstrom I_thr :", "Rated short-time withstand current I_thr :", "kA")
        .single(),
    FIELD(theta_b)
        .alias("start_temperature")
        .called("Temperatur bei Kurzschlußbeginn theta_b :",
                "Temperature at start of short circuit theta_b :", "°C")
        .single(),
    FIELD(theta_e)
        .alias("end_temperature")
        .called("- bei Kurzschlußende theta_e :", "- at end of short circuit theta_e :", "°C")
        .single(),
    FIELD(A_Leiter)
        .alias("conductor_section")
        .called("Leitermaterialquerschnitt:", "Section of the conductor material:", "qmm")
        .unit_in_english("mm²")
        .shown_by("####0.0###")
        .single(),
    FIELD(Leitermaterial_ks)
        .alias("material")
        .called("Auswahl Leitermaterialen mit vordefinierte Materialparametern:",
                "Conductor materials with predefined parameters:")
        .list_to(7),
    FIELD(waermekapaz)
        .alias("specific_heat")
        .called("spez. Wärmekapazität:", "Specific heat capacity:", "J / (Kg * K)")
        .shown_by("####0")
        .single(),
    FIELD(kappa20_ks)
        .alias("conductivity")
        .called("spez. Leitfähigkeit bei 20 °C:", "Conductivity at 20 °C:", "m / (Ohm * mm^2)")
        .shown_by("####0.0#")
        .single(),
    FIELD(Tk20_ks)
        .alias("resistance_coefficient")
        .called("Temperaturkoeffizient für 20 °C:", "Temperature coefficient at 20 °C:", "1 / K")
        .shown_by("#0.0###")
        .single(),
    FIELD(Dichte_rho)
        .alias("density")
        .called("Dichte:", "Density:", "kg / m^3")
        .shown_by("#####0")
        .single(),
    FIELD(werkstoff_ks)
        .alias("material_name")
        .called("Werkstoff:", "Material:")
        .of_length(50)
        .from_record(),
    FIELD(Nennquerschnitt_ks)
        .alias("nominal_section")
        .called("Nennquerschnitt:", "Nominal section:")
        .of_length(50)
        .from_record(),
    FIELD(Norm_ks).alias("standard").called("Norm:", "Standard:").of_length(100).from_record(),
    FIELD(Normjahr_ks)
        .alias("standard_year")
        .called("gültig ab (Jahr):", "Valid since (year):")
        .shown_by("0000")
        .from_record(),
    FIELD(Normmonat_ks)
        .alias("standard_month")
        .called("Monat:", "Month:")
        .shown_by("00")
        .from_record(),
    FIELD(Seilquerschnitt_ks)
        .alias("total_section")
        .called("Gesamtquerschnitt:", "Total section:", "qmm")
        .unit_in_english("mm²")
        .shown_by("####0.0###")
        .from_record(),
    FIELD(Mantelquerschnitt_ks)
        .alias("sheath_section")
        .called("Mantelquerschnitt:", "Section of the sheath:", "qmm")
        .unit_in_english("mm²")
        .shown_by("####0.0###")
        .from_record(),
};

#undef FIELD

}  // namespace

std::span<const ShortCircuitField> short_circuit_fields() { return fields; }

std::vector<FieldOf> fields_of(ShortCircuitCase& c) {
    std::vector<FieldOf> all;
    for (const ShortCircuitField& field : fields)
        all.push_back({std::string(field.name), &field, field.of(c)});
    return all;
}

const ShortCircuitField* find_short_circuit_field(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(fields), std::end(fields),
                     [&](const ShortCircuitField& field) { return same_name(field.name, name); });
    return found == std::end(fields) ? nullptr : found;
}

const ShortCircuitField* find_short_circuit_by_any_name(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(fields), std::end(fields),
                     [&](const ShortCircuitField& field) { return field.english_name == name; });
    return found == std::end(fields) ? find_short_circuit_field(name) : found;
}

const ShortCircuitField& field_of(const ShortCircuitKey& key) {
    const auto* const found =
        std::find_if(std::begin(fields), std::end(fields),
                     [&](const ShortCircuitField& field) { return field.key == key; });
    if (found == std::end(fields)) throw std::logic_error("a member of the case has no row");
    return *found;
}

}  // namespace zel
