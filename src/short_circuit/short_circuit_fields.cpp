#include "short_circuit/short_circuit_fields.h"

#include <algorithm>
#include <iterator>

namespace zel {
namespace {

using C = ShortCircuitCase;

constexpr KsField fields[] = {
    {"Projekt_ks", &C::Projekt_ks, KsSort::Text},
    {"Bearbeiter_ks", &C::Bearbeiter_ks, KsSort::Text},
    {"Datum_ks", &C::Datum_ks, KsSort::Text},
    {"Abteilung_ks", &C::Abteilung_ks, KsSort::Text},
    {"Frequenz_ks", &C::Frequenz_ks, KsSort::Box},
    {"Strombegrenzschalter_ks", &C::Strombegrenzschalter_ks, KsSort::List, 2},
    {"generatornah", &C::generatornah, KsSort::List, 2},
    {"IK2", &C::IK2, KsSort::Box},
    {"IK", &C::IK, KsSort::Box},
    {"Kappa", &C::Kappa, KsSort::Box},
    {"Anzahl_KS_fluesse", &C::Anzahl_KS_fluesse, KsSort::List, 3},
    {"Tk1", &C::Tk1, KsSort::Box},
    {"Tk2", &C::Tk2, KsSort::Box},
    {"Tk3", &C::Tk3, KsSort::Box},
    {"Ith", &C::Ith, KsSort::Box},
    {"T_k", &C::T_k, KsSort::Box},
    {"Leiter_Bmittel", &C::Leiter_Bmittel, KsSort::List, 2},
    {"Tkr", &C::Tkr, KsSort::Box},
    {"Ithr", &C::Ithr, KsSort::Box},
    {"theta_b", &C::theta_b, KsSort::Box},
    {"theta_e", &C::theta_e, KsSort::Box},
    {"A_Leiter", &C::A_Leiter, KsSort::Box},
    {"Leitermaterial_ks", &C::Leitermaterial_ks, KsSort::List, 7},
    {"waermekapaz", &C::waermekapaz, KsSort::Box},
    {"kappa20_ks", &C::kappa20_ks, KsSort::Box},
    {"Tk20_ks", &C::Tk20_ks, KsSort::Box},
    {"Dichte_rho", &C::Dichte_rho, KsSort::Box},
    {"werkstoff_ks", &C::werkstoff_ks, KsSort::Record},
    {"Nennquerschnitt_ks", &C::Nennquerschnitt_ks, KsSort::Record},
    {"Norm_ks", &C::Norm_ks, KsSort::Record},
    {"Normjahr_ks", &C::Normjahr_ks, KsSort::Record},
    {"Normmonat_ks", &C::Normmonat_ks, KsSort::Record},
    {"Seilquerschnitt_ks", &C::Seilquerschnitt_ks, KsSort::Record},
    {"Mantelquerschnitt_ks", &C::Mantelquerschnitt_ks, KsSort::Record},
};

char lower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; }

}  // namespace

std::span<const KsField> short_circuit_fields() { return fields; }

const KsField* find_short_circuit_field(std::string_view name) {
    const auto* const found =
        std::find_if(std::begin(fields), std::end(fields), [&](const KsField& field) {
            return std::equal(field.name.begin(), field.name.end(), name.begin(), name.end(),
                              [](char a, char b) { return lower(a) == lower(b); });
        });
    return found == std::end(fields) ? nullptr : found;
}

std::string_view name_of(KsKey key) {
    const auto* const found = std::find_if(std::begin(fields), std::end(fields),
                                           [&](const KsField& field) { return field.key == key; });
    return found == std::end(fields) ? std::string_view{} : found->name;
}

}  // namespace zel
