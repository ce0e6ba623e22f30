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
    FIELD(Projekt_ks).called("Kennung :").of_length(100),
    FIELD(Bearbeiter_ks).called("Bearbeiter : ").of_length(100),
    FIELD(Datum_ks).called("Datum :").of_length(20),
    FIELD(Abteilung_ks).called("Firma/Abteilung :").of_length(100),
    FIELD(Frequenz_ks).called("Frequenz des Stromkreises :", "", "Hz").single(),
    FIELD(Strombegrenzschalter_ks).called("Strombegrenzende Schaltgeräte :").list_to(2),
    FIELD(generatornah).called("Kurzschluß generatornah / generatorfern :").list_to(2),
    FIELD(IK2).called("Anfangskurzschlußwechselstrom Ik\" :", "", "kA").single(),
    FIELD(IK).called("Dauerkurzschlußwechselstrom Ik :", "", "kA").single(),
    FIELD(Kappa).called("Faktor kappa :").single(),
    FIELD(Anzahl_KS_fluesse).called("Anzahl der Kurzschlußstromflüsse :").list_to(3),
    FIELD(Tk1).called("Dauer des 1. Stromflusses T_k1 :", "", "s").single(),
    FIELD(Tk2).called("Dauer des 2. Stromflusses T_k2 :", "", "s").single(),
    FIELD(Tk3).called("Dauer des 3. Stromflusses T_k3 :", "", "s").single(),
    FIELD(Ith).called("thermisch gleichwertiger Kurzzeitstrom I_th :", "", "kA").single(),
    FIELD(T_k).called("Dauer des Kurzschlußstromes T_k :", "", "s").single(),
    FIELD(Leiter_Bmittel).called("blanker Leiter / elektrisches Betriebsmittel :").list_to(2),
    FIELD(Tkr).called("Bemessungs-Kurzzeit T_kr :", "", "s").single(),
    FIELD(Ithr).called("Bemessungs-Kurzzeitstrom I_thr :", "", "kA").single(),
    FIELD(theta_b).called("Temperatur bei Kurzschlußbeginn theta_b :", "", "°C").single(),
    FIELD(theta_e).called("- bei Kurzschlußende theta_e :", "", "°C").single(),
    FIELD(A_Leiter).called("Leitermaterialquerschnitt:", "", "qmm").shown_by("####0.0###").single(),
    FIELD(Leitermaterial_ks)
        .called("Auswahl Leitermaterialen mit vordefinierte Materialparametern:")
        .list_to(7),
    FIELD(waermekapaz)
        .called("spez. Wärmekapazität:", "", "J / (Kg * K)")
        .shown_by("####0")
        .single(),
    FIELD(kappa20_ks)
        .called("spez. Leitfähigkeit bei 20 °C:", "", "m / (Ohm * mm^2)")
        .shown_by("####0.0#")
        .single(),
    FIELD(Tk20_ks)
        .called("Temperaturkoeffizient für 20 °C:", "", "1 / K")
        .shown_by("#0.0###")
        .single(),
    FIELD(Dichte_rho).called("Dichte:", "", "kg / m^3").shown_by("#####0").single(),
    FIELD(werkstoff_ks).called("Werkstoff:").of_length(50).from_record(),
    FIELD(Nennquerschnitt_ks).called("Nennquerschnitt:").of_length(50).from_record(),
    FIELD(Norm_ks).called("Norm:").of_length(100).from_record(),
    FIELD(Normjahr_ks).called("gültig ab (Jahr):").shown_by("0000").from_record(),
    FIELD(Normmonat_ks).called("Monat:").shown_by("00").from_record(),
    FIELD(Seilquerschnitt_ks)
        .called("Gesamtquerschnitt:", "", "qmm")
        .shown_by("####0.0###")
        .from_record(),
    FIELD(Mantelquerschnitt_ks)
        .called("Mantelquerschnitt:", "", "qmm")
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

const ShortCircuitField& field_of(const ShortCircuitKey& key) {
    const auto* const found =
        std::find_if(std::begin(fields), std::end(fields),
                     [&](const ShortCircuitField& field) { return field.key == key; });
    if (found == std::end(fields)) throw std::logic_error("a member of the case has no row");
    return *found;
}

}  // namespace zel
