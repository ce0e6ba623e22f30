#include "excel_batch/input_cells.h"

#include <gtest/gtest.h>

#include <map>
#include <set>

#include "excel_batch/cell_reading.h"
#include "excel_batch/field_labels.h"
#include "excel_batch/transient_contract.h"

namespace zel::excel_batch {
namespace {

using namespace steady_check;

std::string_view name_of_field(const FieldKey& key) {
    for (const CaseField& field : case_fields())
        if (field.key == key) return field.name;
    return {};
}

/// Every place of every table, with the name of its field.
std::map<int, std::string_view> fixed_places(
    const std::vector<std::span<const InputCell>>& tables) {
    std::map<int, std::string_view> places;
    for (const auto& table : tables)
        for (const InputCell& cell : table)
            EXPECT_TRUE(places.emplace(cell.fixed_row, name_of_field(cell.field)).second)
                << cell.fixed_row;
    return places;
}

using Places = std::map<int, std::string_view>;

TEST(InputCells, steady_fixed_input_has_its_fields) {
    const InputCell others[] = {single_current_cell(), bundle_current_cell(), temperature_cell()};
    const Places expected = {
        {19, "Hoehe_ueber_NN_db"},
        {20, "Winkel_S_S_db"},
        {21, "geogr_Breite_db"},
        {22, "geo_laeng_db"},
        {23, "geo_laeng_zeit_db"},
        {25, "Windgeschwindigkeit_db"},
        {26, "Winkel_W_S_db"},
        {27, "Umgebungstemperatur_db"},
        {28, "Bodentemp_db"},
        {29, "Bodenart_db"},
        {30, "Globalstrahlung_db"},
        {31, "Bewoelkungsgrad_db"},
        {33, "Tag_db"},
        {34, "Monat_db"},
        {35, "Stunden_db"},
        {36, "Minuten_db"},
        {38, "Feldlaenge_db"},
        {39, "Hoehendifferenz_db"},
        {40, "Netzfrequenz_db"},
        {41, "Emissionsverhaeltnis_db"},
        {42, "Absorptionsverhaeltnis_db"},
        {43, "Anzahl_Teilleiter_db"},
        {44, "Stromstaerke_db"},
        {45, "Stromstaerke_Buendel"},
        {46, "Leitertemp_db"},
        {54, "conductor_type_db"},
        {55, "conductor_shape_db"},
        {57, "Seildurchmesser_db"},
        {58, "GMR_Merker_db"},
        {59, "GMR_db"},
        {61, "ACDC_R_Option_Merker_db"},
        {62, "DCR_20_db"},
        {63, "ACR_Frequenz_Remox_db"},
        {64, "ACR1_db"},
        {65, "TACR1_db"},
        {66, "ACR2_db"},
        {67, "TACR2_db"},
        {68, "ACR3_db"},
        {69, "TACR3_db"},
        {70, "ACR4_db"},
        {71, "TACR4_db"},
        {72, "ACR5_db"},
        {73, "TACR5_db"},
        {74, "ACR6_db"},
        {75, "TACR6_db"},
        {77, "DrahtdurchmesserLeiter_db"},
        {78, "DrahtlagenzahlLeiter_db"},
        {79, "Mantelquerschnitt_db"},
        {80, "DrahtzahlTraeger_db"},
        {83, "DC_Resist_Leiter_db"},
        {84, "T_Koeff_DC_Resist_Leiter_linear_db"},
        {85, "T_Koeff_DC_Resist_Leiter_quadrat_db"},
        {86, "DC_Resist_traeger_db"},
        {87, "KernquerschnittTraeger_db"},
        {88, "KerndurchmesserTraeger_db"},
        {97, "radialthermalconductivity_unter_KPT_db"},
        {98, "KniepunktTemperatur_db"},
        {99, "radialthermalconductivity_ueber_KPT_db"},
    };
    EXPECT_EQ(fixed_places({line_cells(), others, conductor_cells()}), expected);
}

TEST(InputCells, steady_rows_have_the_same_fields_in_columns) {
    // Columns follow the rows of fixed_input within each stretch, but for the currents, which have
    // changed places, and the three fields that older workbooks do not have.
    struct Stretch {
        int first_row;
        int last_row;
        int first_column;
    };
    constexpr Stretch stretches[] = {{19, 23, 4},  {25, 31, 10}, {33, 36, 18}, {38, 43, 23},
                                     {46, 46, 31}, {54, 55, 38}, {57, 59, 40}, {61, 75, 44},
                                     {78, 80, 60}, {84, 87, 63}, {97, 99, 68}};
    Places expected;
    std::map<int, int> columns = {{44, 30}, {45, 29}, {77, 59}, {83, 71}, {88, 67}};
    for (const auto& [first, last, column] : stretches)
        for (int row = first; row <= last; ++row) columns[row] = column + row - first;
    const InputCell others[] = {single_current_cell(), bundle_current_cell(), temperature_cell()};
    for (const auto& table : {line_cells(), std::span<const InputCell>(others), conductor_cells()})
        for (const InputCell& cell : table)
            EXPECT_EQ(cell.column, columns.at(cell.fixed_row)) << name_of_field(cell.field);
}

TEST(InputCells, transient_sheets_have_their_fields) {
    const Places expected = {
        {11, "Hoehe_ueber_NN_db"},
        {13, "Netzfrequenz_db"},
        {14, "Anzahl_Teilleiter_db"},
        {21, "conductor_type_db"},
        {22, "conductor_shape_db"},
        {23, "Seildurchmesser_db"},
        {24, "GMR_Merker_db"},
        {25, "GMR_db"},
        {27, "ACDC_R_Option_Merker_db"},
        {28, "DCR_20_db"},
        {29, "ACR_Frequenz_Remox_db"},
        {30, "ACR1_db"},
        {31, "TACR1_db"},
        {32, "ACR2_db"},
        {33, "TACR2_db"},
        {34, "ACR3_db"},
        {35, "TACR3_db"},
        {36, "ACR4_db"},
        {37, "TACR4_db"},
        {38, "ACR5_db"},
        {39, "TACR5_db"},
        {40, "ACR6_db"},
        {41, "TACR6_db"},
        {42, "DrahtzahlLeiter_db"},
        {43, "DrahtdurchmesserLeiter_db"},
        {44, "DrahtlagenzahlLeiter_db"},
        {45, "Mantelquerschnitt_db"},
        {46, "DrahtzahlTraeger_db"},
        {47, "c_leiter20_db"},
        {48, "beta_leiter20_db"},
        {49, "Dichte_traegerwerkstoff1_db"},
        {50, "T_Koeff_DC_Resist_Leiter_linear_db"},
        {51, "T_Koeff_DC_Resist_Leiter_quadrat_db"},
        {52, "DC_Resist_traeger_db"},
        {53, "KernquerschnittTraeger_db"},
        {54, "DrahtdurchmesserTraeger_db"},
        {55, "KerndurchmesserTraeger_db"},
        {56, "c_traeger20_db"},
        {57, "beta_traeger20_db"},
        {58, "DC_Resist_Leiter_db"},
        {59, "Dichte_Leiterwerkstoff1_db"},
        {60, "radialthermalconductivity_unter_KPT_db"},
        {61, "KniepunktTemperatur_db"},
        {62, "radialthermalconductivity_ueber_KPT_db"},
    };
    EXPECT_EQ(fixed_places({transient_fixed_cells()}), expected);
    Places columns;
    for (const InputCell& cell : transient_row_cells())
        columns.emplace(cell.column, name_of_field(cell.field));
    EXPECT_EQ(columns, (Places{{4, "Windgeschwindigkeit_db"},
                               {5, "Winkel_W_S_db"},
                               {6, "Emissionsverhaeltnis_db"},
                               {7, "Absorptionsverhaeltnis_db"},
                               {8, "Umgebungstemperatur_db"},
                               {9, "Globalstrahlung_db"},
                               {10, "Leitertemp_db"}}));
}

TEST(InputCells, every_field_has_a_label_in_both_languages) {
    const InputCell others[] = {single_current_cell(), bundle_current_cell(), temperature_cell()};
    for (const auto& table : {line_cells(), std::span<const InputCell>(others), conductor_cells(),
                              transient_fixed_cells(), transient_row_cells()})
        for (const InputCell& cell : table) {
            EXPECT_FALSE(label_of(cell.field).label.de.empty());
            EXPECT_FALSE(label_of(cell.field).label.en.empty());
        }
}

const SheetOrigin origin = {"a.xlsx", fixed_sheet, LangId::English};

bool is_taken(const InputCell& cell, std::string_view text, unsigned methods = always) {
    CellReading reading(origin);
    CalcCase c;
    reading.take(cell, {1, 3, text}, c, methods);
    return reading.sound();
}

const InputCell& cell_at(std::span<const InputCell> table, int row, int column = 0) {
    for (const InputCell& cell : table)
        if (row != 0 ? cell.fixed_row == row : cell.column == column) return cell;
    throw std::out_of_range("no such cell");
}

struct Bounds {
    int place;
    const char* below;  // empty: no bound on this side
    const char* lowest;
    const char* highest;
    const char* above;
};

constexpr Bounds steady_bounds[] = {
    {19, "-0,1", "0", "4500", "4500,1"},
    {20, "-0,1", "0", "360", "360,1"},
    {21, "-90,1", "-90", "90", "90,1"},
    {22, "-180,1", "-180", "180", "180,1"},
    {23, "-180,1", "-180", "180", "180,1"},
    {25, "", "-1000", "1000", ""},
    {26, "-0,1", "0", "360", "360,1"},
    {27, "", "-300", "3000", ""},
    {28, "", "-300", "3000", ""},
    {29, "0,009", "0,01", "1", "1,01"},
    {30, "-1", "0", "1370", "1370,1"},
    {31, "0,009", "0,01", "1", "1,01"},
    {33, "0", "1", "31", "32"},
    {34, "0", "1", "12", "13"},
    {35, "-1", "0", "24", "25"},
    {36, "-1", "0", "59", "60"},
    {38, "0,9", "1", "9999", "10000"},
    {39, "-1001", "-1000", "1000", "1001"},
    {41, "0,29", "0,3", "0,9", "0,91"},
    {42, "0,29", "0,3", "0,9", "0,91"},
    {43, "0", "1", "8", "9"},
};

void expect_bounds(const InputCell& cell, const Bounds& bounds) {
    EXPECT_TRUE(is_taken(cell, bounds.lowest)) << bounds.place;
    EXPECT_TRUE(is_taken(cell, bounds.highest)) << bounds.place;
    for (const std::string_view text : {bounds.below, bounds.above})
        if (!text.empty()) {
            EXPECT_FALSE(is_taken(cell, text)) << bounds.place << " " << text;
        }
}

TEST(InputCells, limits_hold_on_both_sides) {
    for (const Bounds& bounds : steady_bounds)
        expect_bounds(cell_at(line_cells(), bounds.place), bounds);
    expect_bounds(temperature_cell(), {46, "-50,1", "-50", "500", "500,1"});
    for (const Bounds& bounds : {Bounds{54, "0", "1", "4", "5"}, Bounds{55, "0", "1", "2", "3"}})
        expect_bounds(cell_at(conductor_cells(), bounds.place), bounds);
    for (const Bounds& bounds :
         {Bounds{4, "-0,1", "0", "1000", ""}, Bounds{5, "-0,1", "0", "360", "360,1"},
          Bounds{6, "0,09", "0,1", "0,99", "1"}, Bounds{7, "0,29", "0,3", "0,9", "0,91"},
          Bounds{8, "-50,1", "-50", "1000", ""}, Bounds{9, "-1", "0", "1370", "1371"},
          Bounds{10, "-50,1", "-50", "500", "500,1"}})
        expect_bounds(cell_at(transient_row_cells(), 0, bounds.place), bounds);
    CellReading reading(origin);
    for (const char* text : {"1", "99"})
        EXPECT_TRUE(reading.take_number(percent_limits, {1, 3, text}));
    for (const char* text : {"0,9", "99,1"})
        EXPECT_FALSE(reading.take_number(percent_limits, {1, 3, text}));
    for (const Limits* limits : {&time_limits, &time_limits_by_cell}) {
        for (const char* text : {"1", "3600"})
            EXPECT_TRUE(reading.take_number(*limits, {1, 3, text}));
        for (const char* text : {"0,9", "3601"})
            EXPECT_FALSE(reading.take_number(*limits, {1, 3, text}));
    }
}

struct FrequencyCase {
    unsigned methods;
    const char* text;
    bool taken;
};

TEST(InputCells, the_frequency_goes_by_the_methods) {
    constexpr FrequencyCase cases[] = {
        {TB207, "50", true},    {TB207, "60", true},    {TB207, "49,9", false},
        {TB207, "60,1", false}, {Kirn, "49,9", false},  {TB207, "0", false},
        {TBB, "50", true},      {TBB, "60", true},      {TBB, "0", true},
        {TBB, "49,9", false},   {TBB, "0,1", false},    {TB601, "0", true},
        {TB601, "60", true},    {TB601, "60,1", false}, {TB601, "-0,1", false},
        {Webs, "16,7", true},   {Webs, "60,1", false},  {TB601 | Kirn, "16,7", false},
        {0, "1000", true},
    };
    const InputCell& frequency = cell_at(line_cells(), 40);
    for (const auto& [methods, text, taken] : cases)
        EXPECT_EQ(is_taken(frequency, text, methods | always), taken) << methods << " " << text;
    const InputCell& transient = cell_at(transient_fixed_cells(), 13);
    EXPECT_TRUE(is_taken(transient, "0"));
    EXPECT_TRUE(is_taken(transient, "60"));
    EXPECT_FALSE(is_taken(transient, "60,1"));
    EXPECT_FALSE(is_taken(transient, "-1"));
}

TEST(InputCells, a_number_has_a_decimal_comma) {
    const InputCell& wind = cell_at(line_cells(), 25);
    for (const char* text : {"0,5", "5", "-1", "1E-05", " 3 "})
        EXPECT_TRUE(is_taken(wind, text)) << text;
    for (const char* text :
         {"", "0.5", "1.000", "1.000,5", "five", "TRUE", "#N/A", "01.05.2024", "-"})
        EXPECT_FALSE(is_taken(wind, text)) << text;
}

TEST(InputCells, codes_and_counts_are_whole_numbers) {
    for (const int row : {54, 55, 58})
        EXPECT_FALSE(is_taken(cell_at(conductor_cells(), row), "1,5")) << row;
    EXPECT_FALSE(is_taken(cell_at(line_cells(), 43), "1,5"));
    // Numbers of wires and layers are rounded as a column of whole numbers does it.
    CellReading reading(origin);
    CalcCase c;
    reading.take(cell_at(conductor_cells(), 78), {78, 3, "2,5"}, c, always);
    EXPECT_EQ(c.DrahtlagenzahlLeiter_db, 2);
    EXPECT_FALSE(is_taken(cell_at(conductor_cells(), 78), "40000"));
    // So are day, month, hour and minute.
    reading.take(cell_at(line_cells(), 35), {35, 3, "12,5"}, c, always);
    EXPECT_EQ(c.Stunden_db.value, 12);
    EXPECT_TRUE(reading.sound());
}

TEST(InputCells, method_bound_cells_are_read_for_TB601_only) {
    for (const int row : {61, 97, 98, 99}) {
        const InputCell& cell = cell_at(conductor_cells(), row);
        EXPECT_TRUE(is_taken(cell, "none", TB207 | Webs | always)) << row;
        EXPECT_FALSE(is_taken(cell, "none", TB601 | always)) << row;
    }
}

TEST(InputCells, cells_that_need_not_be_filled_keep_the_field) {
    CalcCase c;
    c.DrahtdurchmesserLeiter_db = {"3,74", 3.74};
    CellReading reading(origin);
    const InputCell& cell = cell_at(conductor_cells(), 77);
    reading.take(cell, {77, 3, ""}, c, always);
    EXPECT_EQ(c.DrahtdurchmesserLeiter_db.value, 3.74);
    reading.take(cell, {77, 3, "3,5"}, c, always);
    EXPECT_EQ(c.DrahtdurchmesserLeiter_db.value, 3.5);
    EXPECT_TRUE(reading.sound());
    reading.take(cell, {77, 3, "3.5"}, c, always);
    EXPECT_FALSE(reading.sound());
}

TEST(InputCells, a_wrong_cell_leaves_no_input) {
    CalcCase c;
    c.Windgeschwindigkeit_db = {"7", 7};
    CellReading reading(origin);
    reading.take(cell_at(line_cells(), 25), {25, 3, "x"}, c, always);
    EXPECT_FALSE(c.Windgeschwindigkeit_db.given());
    EXPECT_EQ(c.Windgeschwindigkeit_db.value, 0);
}

}  // namespace
}  // namespace zel::excel_batch
