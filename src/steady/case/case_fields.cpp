#include "steady/case/case_fields.h"

#include <algorithm>
#include <stdexcept>

namespace zel {
namespace {

// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): a field's name and its member stand once.
#define FIELD(name) \
    CaseField { #name, &CalcCase::name }
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage)
#define RECORD(name) FIELD(name).from_record()
// NOLINTNEXTLINE(cppcoreguidelines-macro-usage): the six pairs differ in their number only.
#define AC_PAIR(n)                                                                               \
    RECORD(ACR##n##_db)                                                                          \
        .alias("ac_resistance_" #n)                                                              \
        .called("AC-Widerstand " #n " :", "AC resistance " #n " :", "Ω/km")                      \
        .shown_by("#0.0####")                                                                    \
        .nothing_as_0(),                                                                         \
        RECORD(TACR##n##_db)                                                                     \
            .alias("ac_resistance_temperature_" #n)                                              \
            .called("bei T" #n " :", "at T" #n " :", "°C")                                       \
            .called_alone("Temperatur zu AC-Widerstand " #n, "Temperature of AC resistance " #n) \
            .shown_by("###0.0")                                                                  \
            .nothing_as_0()

constexpr CaseField fields[] = {
    // Project
    FIELD(Projekt_db).alias("project").called("Projekt :", "Project :").of_length(100),
    FIELD(Datum_db).alias("date").called("Datum :", "Date :").of_length(20),
    FIELD(Bearbeiter_db).alias("operator").called("Bearbeiter :", "Operator :").of_length(100),
    FIELD(Abteilung_db)
        .alias("department")
        .called("Firma / Abteilung :", "Company / department :")
        .of_length(100),
    // Methods
    FIELD(rechnung_cigre601_merker_db).in_column(ColumnType::Single),
    FIELD(rechnung_cigre207_merker_db).in_column(ColumnType::Single),
    FIELD(rechnung_webs_merker_db).in_column(ColumnType::Single),
    FIELD(rechnung_kirn_merker_db).in_column(ColumnType::Single),
    FIELD(rechnung_TBB_merker_db).in_column(ColumnType::Single),
    // Place and time
    FIELD(Hoehe_ueber_NN_db)
        .alias("altitude")
        .called("Höhe über N.N. :", "Altitude above sea level :", "m"),
    FIELD(Winkel_S_S_db)
        .alias("line_azimuth")
        .called("Winkel Leiter zu Nord :", "Conductor angle to north :", "°")
        .called_alone("Winkel Seil zu Nord", "Angle conductor to north"),
    FIELD(geogr_Breite_db).alias("latitude").called("Geographische Breite :", "Latitude :", "°"),
    FIELD(geo_laeng_db)
        .alias("longitude_west")
        .called("Geographische Länge :", "Longitude :", "°")
        .called_alone("Geographische Länge (Ost negativ)", "Longitude (east negative)"),
    FIELD(geo_laeng_zeit_db)
        .alias("zone_longitude_west")
        .called("Länge der Standardzeit :", "Longitude of standard time :", "°")
        .called_alone("Geographische Länge der Ortszeit", "Longitude of local time"),
    FIELD(Tag_db)
        .alias("day")
        .called("Tag :", "Day :")
        .called_alone("Kalendertag", "Calendar day")
        .rounded_to_whole(),
    FIELD(Monat_db)
        .alias("month")
        .called("Monat :", "Month :")
        .called_alone("Kalendermonat", "Calendar month")
        .rounded_to_whole(),
    FIELD(Stunden_db).alias("hour").called("Stunde :", "Hour :", "h").rounded_to_whole(),
    FIELD(Minuten_db).alias("minute").called("Minute :", "Minute :", "min").rounded_to_whole(),
    // Surroundings
    FIELD(Windgeschwindigkeit_db)
        .alias("wind_speed")
        .called("Windgeschwindigkeit :", "Wind speed :", "m/s"),
    FIELD(Winkel_W_S_db)
        .alias("wind_angle_to_north")
        .called("Winkel Wind zu Nord :", "Wind angle to north :", "°")
        .called_alone("Winkel Wind zu Nord", "Angle wind to north"),
    FIELD(Umgebungstemperatur_db)
        .alias("air_temperature")
        .called("Umgebungstemperatur :", "Ambient temperature :", "°C"),
    FIELD(Umgebungstemperaturmerker_db).called("Stufen der :", "Steps of the :"),
    FIELD(Umgebtemp_merker1_db),
    FIELD(Umgebtemp_merker2_db),
    FIELD(Bodentemp_db)
        .alias("ground_temperature")
        .called("Bodentemperatur :", "Ground temperature :", "°C"),
    FIELD(Bodenart_db)
        .alias("albedo")
        .called("Bodenbeschaffenheit (Albedo) :", "Ground reflectivity (albedo) :")
        .called_alone("Bodenbeschaffenheit (Albedo)", "Ground reflectivity / albedo"),
    FIELD(Globalstrahlung_db)
        .alias("global_radiation")
        .called("Globalstrahlung :", "Global radiation :", "W/m²")
        .called_alone("Globalstrahlung", "Solar heating"),
    FIELD(Globalstrahlung_Merker_db),
    FIELD(Bewoelkungsgrad_db)
        .alias("clearness_ratio")
        .called("Bewölkungsgrad :", "Clearness ratio :"),
    // Line
    FIELD(Feldlaenge_db)
        .alias("span_length")
        .called("Spannfeldlänge :", "Span length :", "m")
        .called_alone("Feldlänge", "Span length"),
    FIELD(Netzfrequenz_db).alias("frequency").called("Netzfrequenz :", "Frequency :", "Hz"),
    FIELD(Hoehendifferenz_db)
        .alias("height_difference")
        .called("Höhendifferenz :", "Height difference :", "m")
        .called_alone("Höhendifferenz der Aufhängepunkte",
                      "Difference of altitude of the suspension points"),
    FIELD(Emissionsverhaeltnis_db)
        .alias("emissivity")
        .called("Emissionsverhältnis :", "Emissivity :"),
    FIELD(Absorptionsverhaeltnis_db)
        .alias("absorptivity")
        .called("Absorptionsverhältnis :", "Absorptivity :"),
    FIELD(Anzahl_Teilleiter_db)
        .alias("sub_conductors")
        .called("Anzahl der Teilleiter :", "Number of sub-conductors :")
        .called_alone("Anzahl Teilleiter", "Number of conductors")
        .in_column(ColumnType::Single),
    FIELD(Stromstaerke_db)
        .alias("conductor_current")
        .called("Stromstärke (Teilleiter) :", "Current (sub-conductor) :", "A")
        .called_alone("Stromstärke des Teilleiters", "Current of the single conductor"),
    FIELD(Stromstaerke_Merker_db),
    FIELD(Stromstaerke_Buendel)
        .alias("bundle_current")
        .called("Stromstärke (Bündel) :", "Current (bundle) :", "A")
        .called_alone("Stromstärke des Bündelleiters", "Current of the conductor bundle")
        .in_column(ColumnType::None),
    FIELD(Stromstaerkebuendel_Merker_db).in_column(ColumnType::Single),
    FIELD(Leitertemp_db)
        .alias("conductor_temperature")
        .called("Leitertemperatur :", "Conductor temperature :", "°C"),
    FIELD(Leitertemp_Merker_db),
    // Conductor
    RECORD(Bezeichnung1_db)
        .alias("designation")
        .called("Bezeichnung 1 :", "Designation 1 :")
        .of_length(100),
    RECORD(Bezeichnung2_db)
        .alias("second_designation")
        .called("Bezeichnung 2 :", "Designation 2 :")
        .of_length(100),
    RECORD(Norm_db).alias("standard").called("Norm :", "Standard :").of_length(100),
    RECORD(Normjahr_db)
        .alias("standard_year")
        .called("Gültig ab (Jahr) :", "Valid since (year) :")
        .shown_by("0000"),
    RECORD(Normmonat_db).alias("standard_month").called("Monat :", "Month :").shown_by("00"),
    RECORD(conductor_type_db)
        .alias("conductor_type")
        .called("Leiterart :", "Conductor type :")
        .in_column(ColumnType::Single),
    RECORD(conductor_shape_db)
        .alias("conductor_shape")
        .called("Leiteroberfläche :", "Conductor shape :")
        .in_column(ColumnType::Single),
    RECORD(Seilquerschnitt_db)
        .alias("total_section")
        .called("Gesamtquerschnitt :", "Total cross-section :", "mm²")
        .shown_by("####0.0###"),
    RECORD(Seildurchmesser_db)
        .alias("diameter")
        .called("Leiterdurchmesser :", "Conductor diameter :", "mm")
        .shown_by("###0.0###")
        .called_alone("Seildurchmesser", "Conductor diameter"),
    FIELD(GMR_db)
        .alias("geometric_mean_radius")
        .called("Geom. Ersatzradius GMR :", "Geometric mean radius :", "mm")
        .shown_by("#0.0####")
        .called_alone("Mittlerer geometrischer Radius (GMR)", "Geometric mean radius (GMR)")
        .nothing_as_0(),
    FIELD(GMR_Merker_db)
        .alias("uses_geometric_mean_radius")
        .called("Ersatzradius :", "Equivalent radius :")
        .called_alone("GMR angegeben (1 = ja, 0 = nein)", "GMR is given (1 = yes, 0 = no)")
        .in_column(ColumnType::Single)
        .nothing_as_0(),
    FIELD(ACDC_R_Option_Merker_db)
        .alias("resistance_option")
        .called("Rechnen mit Widerstand :", "Calculate with resistance :")
        .called_alone("Widerstand (1 = DC, 2 = AC-Wertepaare)", "Resistance (1 = DC, 2 = AC pairs)")
        .in_column(ColumnType::Single),
    RECORD(DCR_20_db)
        .alias("dc_resistance")
        .called("DC-Widerstand bei 20 °C :", "DC resistance at 20 °C :", "Ω/km")
        .shown_by("#0.0####")
        .called_alone("DC-Widerstandsbelag bei 20 °C", "DC resistance at 20 °C"),
    RECORD(ACR_Frequenz_Remox_db)
        .alias("ac_resistance_frequency")
        .called("Frequenz AC-Widerstände :", "Frequency AC resistances :", "Hz")
        .shown_by("###0.0")
        .called_alone("Frequenz der AC-Widerstände", "Frequency of the AC resistances")
        .nothing_as_0(),
    AC_PAIR(1),
    AC_PAIR(2),
    AC_PAIR(3),
    AC_PAIR(4),
    AC_PAIR(5),
    AC_PAIR(6),
    // Layers of the conductor
    RECORD(DrahtzahlLeiter_db)
        .alias("wires")
        .called("Drahtanzahl :", "Number of wires :")
        .shown_by("##0")
        .called_alone("Drahtzahl Leiter", "Number of conductor wires")
        .in_column(ColumnType::Single),
    RECORD(DrahtdurchmesserLeiter_db)
        .alias("wire_diameter")
        .called("Drahtdurchmesser :", "Wire diameter :", "mm")
        .shown_by("######0.0###")
        .called_alone("Drahtdurchmesser (Rohr: Wandstärke)",
                      "Wire diameter (tube: wall thickness)"),
    RECORD(DrahtlagenzahlLeiter_db)
        .alias("layers")
        .called("Drahtlagenanzahl :", "Number of layers :")
        .shown_by("##0")
        .called_alone("Drahtlagenzahl", "Number of layers")
        .in_column(ColumnType::Single),
    RECORD(Mantelquerschnitt_db)
        .alias("conductor_section")
        .called("Leiterquerschnitt :", "Conductor cross-section :", "mm²")
        .shown_by("#####0.0###")
        .called_alone("Mantelquerschnitt", "Cross-section of the conductor layers"),
    RECORD(Dichte_Leiterwerkstoff1_db)
        .alias("density")
        .called("Materialdichte :", "Density :", "kg/m³")
        .shown_by("#####0")
        .called_alone("Dichte Leiterwerkstoff", "Density of the conductor material")
        .in_column(ColumnType::Double),
    RECORD(c_leiter20_db)
        .alias("specific_heat")
        .called("Spez. Wärmekapazität :", "Specific heat at 20 °C :", "J/(kg·K)")
        .shown_by("#####0")
        .called_alone("Spezifische Wärmekapazität Leiter bei 20 °C",
                      "Specific heat of the conductor at 20 °C")
        .in_column(ColumnType::Double),
    RECORD(beta_leiter20_db)
        .alias("specific_heat_coefficient")
        .called("T-Koeff. Wärmekapazität :", "Temp. coeff. specific heat :", "1/1000 K")
        .shown_by("####0.0#")
        .called_alone("Temperaturkoeffizient der Wärmekapazität Leiter",
                      "Temperature coefficient of the specific heat, conductor", "1/(1000 K)")
        .in_column(ColumnType::Double),
    RECORD(DC_Resist_Leiter_db)
        .alias("resistivity")
        .called("DC-Resistivität bei 20 °C :", "DC resistivity at 20 °C :", "Ω·mm²/km")
        .shown_by("###0.00#")
        .in_column(ColumnType::Double),
    RECORD(T_Koeff_DC_Resist_Leiter_linear_db)
        .alias("resistance_coefficient")
        .called("T-Koeffizient, linear :", "Temp. coeff., linear :", "1/1000 K")
        .shown_by("##0.00#")
        .called_alone("Linearer Temperaturkoeffizient", "Linear temperature coefficient",
                      "1/(1000 K)")
        .in_column(ColumnType::Double),
    RECORD(T_Koeff_DC_Resist_Leiter_quadrat_db)
        .alias("quadratic_resistance_coefficient")
        .called("T-Koeffizient, quadratisch :", "Temp. coeff., quadratic :", "10⁻⁷/K²")
        .shown_by("###0.00#")
        .called_alone("Quadratischer Temperaturkoeffizient", "Quadratic temperature coefficient")
        .in_column(ColumnType::Double),
    // Core
    RECORD(DrahtzahlTraeger_db)
        .alias("core_wires")
        .called("Drahtanzahl :", "Number of wires :")
        .shown_by("##0")
        .called_alone("Drahtzahl Kern", "Number of core wires")
        .in_column(ColumnType::Single),
    RECORD(DrahtdurchmesserTraeger_db)
        .alias("core_wire_diameter")
        .called("Drahtdurchmesser :", "Wire diameter :", "mm")
        .shown_by("####0.0###")
        .called_alone("Drahtdurchmesser Kern", "Diameter of core wires"),
    RECORD(KerndurchmesserTraeger_db)
        .alias("core_diameter")
        .called("Kerndurchmesser :", "Core diameter :", "mm")
        .shown_by("####0.0###"),
    RECORD(KernquerschnittTraeger_db)
        .alias("core_section")
        .called("Kernquerschnitt :", "Core cross-section :", "mm²")
        .shown_by("####0.0###"),
    RECORD(Dichte_traegerwerkstoff1_db)
        .alias("core_density")
        .called("Materialdichte :", "Density :", "kg/m³")
        .shown_by("#####0")
        .called_alone("Dichte Kernwerkstoff", "Density of the core material")
        .in_column(ColumnType::Double),
    RECORD(c_traeger20_db)
        .alias("core_specific_heat")
        .called("Spez. Wärmekapazität :", "Specific heat at 20 °C :", "J/(kg·K)")
        .shown_by("#####0")
        .called_alone("Spezifische Wärmekapazität Kern bei 20 °C",
                      "Specific heat of the core at 20 °C")
        .in_column(ColumnType::Double),
    RECORD(beta_traeger20_db)
        .alias("core_specific_heat_coefficient")
        .called("T-Koeff. Wärmekapazität :", "Temp. coeff. specific heat :", "1/1000 K")
        .shown_by("####0.0#")
        .called_alone("Temperaturkoeffizient der Wärmekapazität Kern",
                      "Temperature coefficient of the specific heat, core", "1/(1000 K)")
        .in_column(ColumnType::Double),
    RECORD(DC_Resist_traeger_db)
        .alias("core_resistivity")
        .called("DC-Resistivität bei 20 °C :", "DC resistivity at 20 °C :", "Ω·mm²/km")
        .shown_by("###0.00#")
        .called_alone("DC-Resistivität Kern bei 20 °C", "DC resistivity of the core at 20 °C")
        .in_column(ColumnType::Double),
    RECORD(T_Koeff_DC_Resist_traeger_linear_db)
        .alias("core_resistance_coefficient")
        .called("T-Koeffizient, linear :", "Temp. coeff., linear :", "1/1000 K")
        .shown_by("##0.00#")
        .in_column(ColumnType::Double),
    RECORD(T_Koeff_DC_Resist_traeger_quadrat_db)
        .alias("core_quadratic_resistance_coefficient")
        .called("T-Koeffizient, quadratisch :", "Temp. coeff., quadratic :", "10⁻⁷/K²")
        .shown_by("###0.00#")
        .in_column(ColumnType::Double),
    // Limits and remark
    RECORD(Dauerstrombelastbarkeit_db)
        .alias("rated_current")
        .called("Dauerstrombelastbarkeit :", "Rated continuous current :", "A")
        .shown_by("#####0"),
    RECORD(Seiltemperatur_max_db)
        .alias("max_temperature")
        .called("Max. Leitertemperatur :", "Max. conductor temperature :", "°C")
        .shown_by("###0.0"),
    RECORD(Anmerkung_db).alias("remark").called("Bemerkung :", "Remark :").of_length(250),
    // Radial conduction of heat
    FIELD(KniepunktTemperatur_db)
        .alias("knee_point_temperature")
        .called("Kniepunkttemperatur :", "Knee-point temperature :", "°C")
        .called_alone("Kniepunkt-Temperatur", "Knee-point-temperature"),
    FIELD(radialthermalconductivity_unter_KPT_db)
        .alias("radial_conductivity")
        .called("Unterhalb des Kniepunkts :", "Below the knee point :", "W/(m·K)")
        .called_alone("Radiale thermische Leitfähigkeit unter Kniepunkt-Temperatur",
                      "Radial thermal conductivity below knee-point-temperature"),
    FIELD(radialthermalconductivity_ueber_KPT_db)
        .alias("radial_conductivity_above_knee_point")
        .called("Oberhalb des Kniepunkts :", "Above the knee point :", "W/(m·K)")
        .called_alone("Radiale thermische Leitfähigkeit über Kniepunkt-Temperatur",
                      "Radial thermal conductivity above knee-point-temperature"),
    // Parameter table
    FIELD(Temp_min_db).called("Minimum :", "Minimum :", "°C"),
    FIELD(Temp_max_db).called("Maximum :", "Maximum :", "°C"),
    FIELD(Schrittweite_Temp_db).called("Schrittweite :", "Step :", "°C"),
    FIELD(Strom_min_db).called("Minimum :", "Minimum :", "A"),
    FIELD(Strom_max_db).called("Maximum :", "Maximum :", "A"),
    FIELD(Schrittweite_Strom_db).called("Schrittweite :", "Step :", "A"),
    FIELD(Wind1_db).called("Wind 1 :", "Wind 1 :", "m/s"),
    FIELD(Wind2_db).called("Wind 2 :", "Wind 2 :", "m/s"),
    FIELD(Wind3_db).called("Wind 3 :", "Wind 3 :", "m/s"),
    FIELD(Wind4_db).called("Wind 4 :", "Wind 4 :", "m/s"),
    FIELD(Wind5_db).called("Wind 5 :", "Wind 5 :", "m/s"),
    FIELD(Wind6_db).called("Wind 6 :", "Wind 6 :", "m/s"),
    // Measured values
    FIELD(Messwert_Strom_db).called("Messwert Stromstärke :", "Measured current :", "A"),
    FIELD(Messwert_Temperatur_db).called("Messwert Temperatur :", "Measured temperature :", "°C"),
    // Settings
    FIELD(Gravi_merker1_db)
        .alias("gravity")
        .called_alone("Erdbeschleunigung: 1 9,80665, 2 9,78, 3 9,83 m/s²",
                      "Gravity: 1 9.80665, 2 9.78, 3 9.83 m/s²"),
    FIELD(Formel_merker1_db)
        .alias("webs_skin_effect")
        .called_alone("Wechselstromwiderstand nach Webs: Formel 1 oder 2",
                      "AC resistance by Webs: formula 1 or 2"),
    FIELD(wzsz_merker_db)
        .alias("summer_time")
        .called_alone("Sommerzeit bei Webs: 1 ja, 2 nein", "Summer time by Webs: 1 yes, 2 no"),
};

#undef AC_PAIR
#undef RECORD
#undef FIELD

constexpr std::string_view kind_name = "merker_db";

constexpr Field<StateChange> fields_of_state[] = {
    Field<StateChange>{kind_name, &StateChange::merker}.in_column(ColumnType::Single),
    {"Strom_db", &StateChange::Strom},
    {"TEMP_db", &StateChange::TEMP},
    {"min_db", &StateChange::min},
    {"sec_db", &StateChange::sec},
};

std::string numbered(std::size_t row, std::string_view name) {
    return "Z" + std::to_string(row + 1) + "_" + std::string(name);
}

/// A field of a change of state, and the row (0 to 5).
struct StatePlace {
    std::size_t row;
    const Field<StateChange>* field;
};

std::optional<StatePlace> find_state_field(std::string_view name) {
    if (name.size() < 4 || name[0] != 'Z' || name[1] < '1' || name[1] > '6' || name[2] != '_')
        return std::nullopt;
    for (const auto& field : fields_of_state)
        if (field.name == name.substr(3))
            return StatePlace{static_cast<std::size_t>(name[1] - '1'), &field};
    return std::nullopt;
}

}  // namespace

std::span<const CaseField> case_fields() { return fields; }

std::span<const Field<StateChange>> state_fields() { return fields_of_state; }

std::vector<FieldOf> fields_of(CalcCase& c) {
    std::vector<FieldOf> all;
    for (const CaseField& field : fields)
        all.push_back({std::string(field.name), &field, field.of(c)});
    for (std::size_t row = 0; row < c.Z.size(); ++row)
        for (const auto& field : fields_of_state)
            all.push_back({numbered(row, field.name), &field, field.of(c.Z[row])});
    return all;
}

std::optional<FieldOf> find_field(CalcCase& c, std::string_view name) {
    if (const CaseField* field = find_case_field(name))
        return FieldOf{std::string(name), field, field->of(c)};
    if (const auto place = find_state_field(name))
        return FieldOf{std::string(name), place->field, place->field->of(c.Z[place->row])};
    return std::nullopt;
}

const CaseField* find_case_field(std::string_view name) {
    const auto* const row =
        std::find_if(std::begin(fields), std::end(fields),
                     [&](const CaseField& field) { return field.name == name; });
    return row == std::end(fields) ? nullptr : row;
}

const CaseField* find_by_any_name(std::string_view name) {
    if (name.empty()) return nullptr;
    const auto* const row =
        std::find_if(std::begin(fields), std::end(fields), [&](const CaseField& field) {
            return field.name == name || field.english_name == name;
        });
    return row == std::end(fields) ? nullptr : row;
}

const CaseField& field_of(const FieldKey& key) {
    const auto* const row = std::find_if(std::begin(fields), std::end(fields),
                                         [&](const CaseField& field) { return field.key == key; });
    if (row == std::end(fields)) throw std::logic_error("a member of the case has no row");
    return *row;
}

void forget_emptied(CalcCase& c) {
    const CalcCase fresh;
    for (const CaseField& field : fields) {
        const auto* key = std::get_if<Entry CalcCase::*>(&field.key);
        if (key != nullptr && !(c.**key).given()) (c.**key).value = (fresh.**key).value;
    }
}

void respell(CalcCase& c, DecimalSeparator from, DecimalSeparator to) {
    respell(fields_of(c), from, to);
}

std::optional<StateCellPlace> find_state_cell(std::string_view name) {
    const auto place = find_state_field(name);
    const auto* cell = place ? std::get_if<StateCell>(&place->field->key) : nullptr;
    if (cell == nullptr) return std::nullopt;
    return StateCellPlace{place->row, *cell};
}

std::string name_of(std::size_t row, StateCell cell) {
    for (const auto& field : fields_of_state)
        if (field.key == Field<StateChange>::Key(cell)) return numbered(row, field.name);
    return numbered(row, kind_name);
}

}  // namespace zel
