#include "steady/case/case_fields.h"

#include <algorithm>

namespace zel {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): a field's name and its member stand once.
#define FIELD(name) \
    { #name, &CalcCase::name, false, false }
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage)
#define WHOLE(name) \
    { #name, &CalcCase::name, false, true }
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage)
#define RECORD(name) \
    { #name, &CalcCase::name, true, false }

std::vector<CaseField> make_fields() {
    return {
        FIELD(Projekt_db),
        FIELD(Datum_db),
        FIELD(Bearbeiter_db),
        FIELD(Abteilung_db),
        FIELD(rechnung_cigre601_merker_db),
        FIELD(rechnung_cigre207_merker_db),
        FIELD(rechnung_webs_merker_db),
        FIELD(rechnung_kirn_merker_db),
        FIELD(rechnung_TBB_merker_db),
        FIELD(Hoehe_ueber_NN_db),
        FIELD(Winkel_S_S_db),
        FIELD(geogr_Breite_db),
        FIELD(geo_laeng_db),
        FIELD(geo_laeng_zeit_db),
        WHOLE(Tag_db),
        WHOLE(Monat_db),
        WHOLE(Stunden_db),
        WHOLE(Minuten_db),
        FIELD(Windgeschwindigkeit_db),
        FIELD(Winkel_W_S_db),
        FIELD(Umgebungstemperatur_db),
        FIELD(Umgebungstemperaturmerker_db),
        FIELD(Umgebtemp_merker1_db),
        FIELD(Umgebtemp_merker2_db),
        FIELD(Bodentemp_db),
        FIELD(Bodenart_db),
        FIELD(Globalstrahlung_db),
        FIELD(Globalstrahlung_Merker_db),
        FIELD(Bewoelkungsgrad_db),
        FIELD(Feldlaenge_db),
        FIELD(Netzfrequenz_db),
        FIELD(Hoehendifferenz_db),
        FIELD(Emissionsverhaeltnis_db),
        FIELD(Absorptionsverhaeltnis_db),
        FIELD(Anzahl_Teilleiter_db),
        FIELD(Stromstaerke_db),
        FIELD(Stromstaerke_Merker_db),
        FIELD(Stromstaerke_Buendel),
        FIELD(Stromstaerkebuendel_Merker_db),
        FIELD(Leitertemp_db),
        FIELD(Leitertemp_Merker_db),
        RECORD(Bezeichnung1_db),
        RECORD(Bezeichnung2_db),
        RECORD(Norm_db),
        RECORD(Normjahr_db),
        RECORD(Normmonat_db),
        RECORD(conductor_type_db),
        RECORD(conductor_shape_db),
        RECORD(Seilquerschnitt_db),
        RECORD(Seildurchmesser_db),
        FIELD(GMR_db),
        FIELD(GMR_Merker_db),
        FIELD(ACDC_R_Option_Merker_db),
        RECORD(DCR_20_db),
        RECORD(ACR_Frequenz_Remox_db),
        RECORD(ACR1_db),
        RECORD(TACR1_db),
        RECORD(ACR2_db),
        RECORD(TACR2_db),
        RECORD(ACR3_db),
        RECORD(TACR3_db),
        RECORD(ACR4_db),
        RECORD(TACR4_db),
        RECORD(ACR5_db),
        RECORD(TACR5_db),
        RECORD(ACR6_db),
        RECORD(TACR6_db),
        RECORD(DrahtzahlLeiter_db),
        RECORD(DrahtdurchmesserLeiter_db),
        RECORD(DrahtlagenzahlLeiter_db),
        RECORD(Mantelquerschnitt_db),
        RECORD(Dichte_Leiterwerkstoff1_db),
        RECORD(c_leiter20_db),
        RECORD(beta_leiter20_db),
        RECORD(DC_Resist_Leiter_db),
        RECORD(T_Koeff_DC_Resist_Leiter_linear_db),
        RECORD(T_Koeff_DC_Resist_Leiter_quadrat_db),
        RECORD(DrahtzahlTraeger_db),
        RECORD(DrahtdurchmesserTraeger_db),
        RECORD(KerndurchmesserTraeger_db),
        RECORD(KernquerschnittTraeger_db),
        RECORD(Dichte_traegerwerkstoff1_db),
        RECORD(c_traeger20_db),
        RECORD(beta_traeger20_db),
        RECORD(DC_Resist_traeger_db),
        RECORD(T_Koeff_DC_Resist_traeger_linear_db),
        RECORD(T_Koeff_DC_Resist_traeger_quadrat_db),
        RECORD(Dauerstrombelastbarkeit_db),
        RECORD(Seiltemperatur_max_db),
        RECORD(Anmerkung_db),
        FIELD(KniepunktTemperatur_db),
        FIELD(radialthermalconductivity_unter_KPT_db),
        FIELD(radialthermalconductivity_ueber_KPT_db),
        FIELD(Temp_min_db),
        FIELD(Temp_max_db),
        FIELD(Schrittweite_Temp_db),
        FIELD(Strom_min_db),
        FIELD(Strom_max_db),
        FIELD(Schrittweite_Strom_db),
        FIELD(Wind1_db),
        FIELD(Wind2_db),
        FIELD(Wind3_db),
        FIELD(Wind4_db),
        FIELD(Wind5_db),
        FIELD(Wind6_db),
        FIELD(Messwert_Strom_db),
        FIELD(Messwert_Temperatur_db),
        FIELD(Gravi_merker1_db),
        FIELD(Formel_merker1_db),
        FIELD(wzsz_merker_db),
    };
}

#undef FIELD
#undef WHOLE
#undef RECORD

struct NamedCell {
    std::string_view name;
    StateCell cell;
};

constexpr NamedCell named_cells[] = {
    {"Strom_db", &StateChange::Strom},
    {"TEMP_db", &StateChange::TEMP},
    {"min_db", &StateChange::min},
    {"sec_db", &StateChange::sec},
};
constexpr std::string_view kind_name = "merker_db";

/// What follows "Zn_" in `name`, and the row (0 to 5).
struct StateName {
    std::size_t row;
    std::string_view field;
};

std::optional<StateName> state_name(std::string_view name) {
    if (name.size() < 4 || name[0] != 'Z' || name[1] < '1' || name[1] > '6' || name[2] != '_')
        return std::nullopt;
    return StateName{static_cast<std::size_t>(name[1] - '1'), name.substr(3)};
}

std::optional<FieldRef> find_state_field(CalcCase& c, std::string_view name) {
    if (const auto place = find_state_cell(name)) return &(c.Z[place->row].*place->cell);
    const auto kind = state_name(name);
    if (kind && kind->field == kind_name) return &c.Z[kind->row].merker;
    return std::nullopt;
}

}  // namespace

const std::vector<CaseField>& case_fields() {
    static const std::vector<CaseField> fields = make_fields();
    return fields;
}

std::vector<std::string> all_field_names() {
    std::vector<std::string> names;
    for (const CaseField& field : case_fields()) names.emplace_back(field.name);
    for (std::size_t row = 0; row < state_change_count; ++row) {
        names.push_back(name_of(row, nullptr));
        for (const NamedCell& named : named_cells) names.push_back(name_of(row, named.cell));
    }
    return names;
}

const CaseField* find_case_field(std::string_view name) {
    const auto& fields = case_fields();
    const auto row = std::find_if(fields.begin(), fields.end(),
                                  [&](const CaseField& field) { return field.name == name; });
    return row == fields.end() ? nullptr : &*row;
}

bool holds_whole_numbers(Entry CalcCase::*key) {
    const auto& fields = case_fields();
    return std::any_of(fields.begin(), fields.end(), [key](const CaseField& field) {
        return field.whole && field.key == FieldKey(key);
    });
}

void forget_emptied(CalcCase& c) {
    const CalcCase fresh;
    for (const CaseField& field : case_fields()) {
        const auto* key = std::get_if<Entry CalcCase::*>(&field.key);
        if (key != nullptr && !(c.**key).given()) (c.**key).value = (fresh.**key).value;
    }
}

std::optional<FieldRef> find_field(CalcCase& c, std::string_view name) {
    const CaseField* row = find_case_field(name);
    if (row == nullptr) return find_state_field(c, name);
    return std::visit([&](auto member) -> FieldRef { return &(c.*member); }, row->key);
}

std::optional<StateCellPlace> find_state_cell(std::string_view name) {
    const auto place = state_name(name);
    if (!place) return std::nullopt;
    for (const NamedCell& cell : named_cells)
        if (cell.name == place->field) return StateCellPlace{place->row, cell.cell};
    return std::nullopt;
}

std::string name_of(std::size_t row, StateCell cell) {
    std::string_view field = kind_name;
    for (const NamedCell& named : named_cells)
        if (named.cell == cell) field = named.name;
    return "Z" + std::to_string(row + 1) + "_" + std::string(field);
}

std::string_view name_of(const FieldKey& key) {
    for (const CaseField& row : case_fields())
        if (row.key == key) return row.name;
    return {};
}

}  // namespace zel
