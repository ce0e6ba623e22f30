#include "steady/case/case_fields.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <variant>

namespace zel {
namespace {

// The columns of a stored calculation, without its reserve columns.
constexpr const char* columns = R"(
Projekt_db Datum_db Bearbeiter_db Abteilung_db rechnung_cigre601_merker_db
rechnung_cigre207_merker_db rechnung_webs_merker_db rechnung_kirn_merker_db rechnung_TBB_merker_db
Hoehe_ueber_NN_db Winkel_S_S_db geogr_Breite_db geo_laeng_db geo_laeng_zeit_db Tag_db Monat_db
Stunden_db Minuten_db Windgeschwindigkeit_db Winkel_W_S_db Umgebungstemperatur_db
Umgebungstemperaturmerker_db Umgebtemp_merker1_db Umgebtemp_merker2_db Bodentemp_db Bodenart_db
Globalstrahlung_db Globalstrahlung_Merker_db Bewoelkungsgrad_db Feldlaenge_db Netzfrequenz_db
Hoehendifferenz_db Emissionsverhaeltnis_db Absorptionsverhaeltnis_db Anzahl_Teilleiter_db
Stromstaerke_db Stromstaerke_Merker_db Stromstaerkebuendel_Merker_db Leitertemp_db
Leitertemp_Merker_db Bezeichnung1_db Bezeichnung2_db Norm_db Normjahr_db Normmonat_db
conductor_type_db conductor_shape_db Seilquerschnitt_db Seildurchmesser_db GMR_db GMR_Merker_db
ACDC_R_Option_Merker_db DCR_20_db ACR_Frequenz_Remox_db ACR1_db TACR1_db ACR2_db TACR2_db ACR3_db
TACR3_db ACR4_db TACR4_db ACR5_db TACR5_db ACR6_db TACR6_db DrahtzahlLeiter_db
DrahtdurchmesserLeiter_db DrahtlagenzahlLeiter_db Mantelquerschnitt_db Dichte_Leiterwerkstoff1_db
c_leiter20_db beta_leiter20_db DC_Resist_Leiter_db T_Koeff_DC_Resist_Leiter_linear_db
T_Koeff_DC_Resist_Leiter_quadrat_db DrahtzahlTraeger_db DrahtdurchmesserTraeger_db
KerndurchmesserTraeger_db KernquerschnittTraeger_db Dichte_traegerwerkstoff1_db c_traeger20_db
beta_traeger20_db DC_Resist_traeger_db T_Koeff_DC_Resist_traeger_linear_db
T_Koeff_DC_Resist_traeger_quadrat_db Dauerstrombelastbarkeit_db Seiltemperatur_max_db Anmerkung_db
KniepunktTemperatur_db radialthermalconductivity_unter_KPT_db
radialthermalconductivity_ueber_KPT_db Temp_min_db Temp_max_db Schrittweite_Temp_db Strom_min_db
Strom_max_db Schrittweite_Strom_db Wind1_db Wind2_db Wind3_db Wind4_db Wind5_db Wind6_db
Messwert_Strom_db Messwert_Temperatur_db Gravi_merker1_db Formel_merker1_db wzsz_merker_db
Z1_merker_db Z1_Strom_db Z1_TEMP_db Z1_min_db Z1_sec_db Z2_merker_db Z2_Strom_db Z2_TEMP_db
Z2_min_db Z2_sec_db Z3_merker_db Z3_Strom_db Z3_TEMP_db Z3_min_db Z3_sec_db Z4_merker_db
Z4_Strom_db Z4_TEMP_db Z4_min_db Z4_sec_db Z5_merker_db Z5_Strom_db Z5_TEMP_db Z5_min_db Z5_sec_db
Z6_merker_db Z6_Strom_db Z6_TEMP_db Z6_min_db Z6_sec_db)";

/// Where the field `name` of `c` lies; null where there is none.
const void* place(CalcCase& c, std::string_view name) {
    const auto field = find_field(c, name);
    if (!field) return nullptr;
    return std::visit([](auto* member) -> const void* { return member; }, *field);
}

TEST(CaseFields, are_found_by_the_name_of_each_column) {
    CalcCase c;
    std::set<const void*> places;
    std::istringstream names(columns);
    for (std::string name; names >> name; places.insert(place(c, name)))
        EXPECT_NE(place(c, name), nullptr) << name;
    places.insert(place(c, "Stromstaerke_Buendel"));
    EXPECT_EQ(places.size(), 140U);
    EXPECT_EQ(place(c, "Windgeschwindigkeit_db"), &c.Windgeschwindigkeit_db);
    EXPECT_EQ(place(c, "Leitertemp_Merker_db"), &c.Leitertemp_Merker_db);
    EXPECT_EQ(place(c, "Z1_merker_db"), &c.Z[0].merker);
    EXPECT_EQ(place(c, "Z2_Strom_db"), &c.Z[1].Strom);
    EXPECT_EQ(place(c, "Z3_TEMP_db"), &c.Z[2].TEMP);
    EXPECT_EQ(place(c, "Z5_min_db"), &c.Z[4].min);
    EXPECT_EQ(place(c, "Z6_sec_db"), &c.Z[5].sec);
}

TEST(CaseFields, stand_once_each) {
    std::set<std::string_view> names;
    for (const CaseField& field : case_fields()) {
        EXPECT_TRUE(names.insert(field.name).second) << field.name;
        EXPECT_EQ(find_case_field(field.name), &field);
        const auto* entry = std::get_if<Entry CalcCase::*>(&field.key);
        EXPECT_TRUE(entry == nullptr || name_of(*entry) == field.name) << field.name;
    }
    // The columns but those of the six changes of state, and the current of the bundle.
    EXPECT_EQ(names.size(), 110U);
}

TEST(CaseFields, are_not_found_by_any_other_name) {
    CalcCase c;
    for (const char* name :
         {"", "Windgeschwindigkeit", "windgeschwindigkeit_db", "Windgeschwindigkeit_db ",
          "Reserve_139_Text", "Z_Strom_db", "Zn_Strom_db", "Z0_Strom_db", "Z7_Strom_db",
          "Z1_strom_db", "Z1_", "Z1", "Z1_Strom", "Z11_Strom_db"})
        EXPECT_FALSE(find_field(c, name)) << name;
    EXPECT_EQ(find_case_field("Z1_Strom_db"), nullptr);
}

TEST(CaseFields, hold_whole_numbers_for_calendar_and_clock) {
    std::set<std::string_view> whole;
    for (const CaseField& field : case_fields()) {
        if (field.whole) whole.insert(field.name);
        const auto* entry = std::get_if<Entry CalcCase::*>(&field.key);
        EXPECT_EQ(entry != nullptr && holds_whole_numbers(*entry), field.whole) << field.name;
    }
    EXPECT_EQ(whole,
              (std::set<std::string_view>{"Tag_db", "Monat_db", "Stunden_db", "Minuten_db"}));
    EXPECT_FALSE(holds_whole_numbers(nullptr));
}

TEST(CaseFields, without_text_are_as_new_once_forgotten) {
    CalcCase c;
    c.GMR_db = {"", 8.7};
    c.Messwert_Strom_db = {"", 620};
    c.Windgeschwindigkeit_db = {"0,6", 0.6};
    forget_emptied(c);
    EXPECT_EQ(c.GMR_db, Entry{});
    EXPECT_EQ(c.Messwert_Strom_db, (Entry{"", empty_mark}));
    EXPECT_EQ(c.Windgeschwindigkeit_db, (Entry{"0,6", 0.6}));
}

TEST(CaseFields, tell_what_comes_with_the_record_of_a_conductor) {
    for (const char* name : {"Seildurchmesser_db", "DCR_20_db", "conductor_type_db", "ACR6_db"})
        EXPECT_TRUE(find_case_field(name)->of_record) << name;
    for (const char* name : {"Windgeschwindigkeit_db", "GMR_db", "KniepunktTemperatur_db"})
        EXPECT_FALSE(find_case_field(name)->of_record) << name;
}

}  // namespace
}  // namespace zel
