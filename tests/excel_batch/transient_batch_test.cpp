#include "excel_batch/batch_fixture.h"
#include "fakes/transient_cases.h"
#include "platform/rounding.h"
#include "tb601_transient/tb601/tb601_solver.h"
#include "tb601_transient/transient/transient_excel.h"
#include "workflow/rules/derived.h"

namespace zel::excel_batch {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

struct Place {
    Entry CalcCase::*field;
    int row;
};

constexpr Place fixed_entries[] = {
    {&CalcCase::Hoehe_ueber_NN_db, 11},
    {&CalcCase::Netzfrequenz_db, 13},
    {&CalcCase::Seildurchmesser_db, 23},
    {&CalcCase::DCR_20_db, 28},
    {&CalcCase::DrahtdurchmesserLeiter_db, 43},
    {&CalcCase::Mantelquerschnitt_db, 45},
    {&CalcCase::c_leiter20_db, 47},
    {&CalcCase::beta_leiter20_db, 48},
    {&CalcCase::Dichte_traegerwerkstoff1_db, 49},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 50},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 51},
    {&CalcCase::DC_Resist_traeger_db, 52},
    {&CalcCase::KernquerschnittTraeger_db, 53},
    {&CalcCase::DrahtdurchmesserTraeger_db, 54},
    {&CalcCase::KerndurchmesserTraeger_db, 55},
    {&CalcCase::c_traeger20_db, 56},
    {&CalcCase::beta_traeger20_db, 57},
    {&CalcCase::DC_Resist_Leiter_db, 58},
    {&CalcCase::Dichte_Leiterwerkstoff1_db, 59},
    {&CalcCase::radialthermalconductivity_unter_KPT_db, 60},
    {&CalcCase::KniepunktTemperatur_db, 61},
    {&CalcCase::radialthermalconductivity_ueber_KPT_db, 62},
};

struct CodeAt {
    std::int16_t CalcCase::*field;
    int row;
};

constexpr CodeAt fixed_codes[] = {
    {&CalcCase::Anzahl_Teilleiter_db, 14}, {&CalcCase::conductor_type_db, 21},
    {&CalcCase::conductor_shape_db, 22},   {&CalcCase::ACDC_R_Option_Merker_db, 27},
    {&CalcCase::DrahtzahlLeiter_db, 42},   {&CalcCase::DrahtlagenzahlLeiter_db, 44},
    {&CalcCase::DrahtzahlTraeger_db, 46},
};

CalcCase line_with_mass() { return with_masses(line_264_34()); }

class TransientBatch : public Batch {
protected:
    TransientBatch() {
        start(WorkbookKind::Transient);
        const CalcCase c = line_with_mass();
        for (const auto& [field, row] : fixed_entries) set_fixed(row, (c.*field).value);
        for (const auto& [field, row] : fixed_codes) set_fixed(row, c.*field);
        set_percents({30, 60, 90});
    }

    void set_percents(const std::vector<double>& percents) {
        for (std::size_t n = 0; n < percents.size(); ++n)
            set_fixed(64 + static_cast<int>(n), percents[n]);
    }

    /// A row with the wind at `angle` to the conductor, a limit of 80 °C and a time in s.
    void add_weather(double wind, double angle, double ambient, double seconds, double limit = 80) {
        int column = 3;
        const int row = next_weather_row++;
        rows()[{row, 2}] = 1.0;
        for (const double value : {wind, angle, 0.6, 0.6, ambient, 900.0, limit, seconds})
            rows()[{row, ++column}] = value;
    }

    int next_weather_row = 4;
};

TEST_F(TransientBatch, PATL_and_TATL_are_those_of_the_single_calculations) {
    struct Row {
        double wind, angle, ambient, seconds;
    };
    constexpr Row weather[] = {{0.6, 90, 35, 600}, {2.5, 45, 10, 60}, {1, 150, 20, 900}};
    for (const auto& [wind, angle, ambient, seconds] : weather)
        add_weather(wind, angle, ambient, seconds);
    for (const bool cell_by_cell : {true, false}) {
        by_cell = cell_by_cell;
        const BatchResult result = run();
        ASSERT_EQ(result.end, BatchEnd::Done);
        EXPECT_EQ(result.rows, 3);
        EXPECT_EQ(result.errors, 0);
        EXPECT_EQ(observer.suffix, cell_by_cell ? " (row by by)" : " (Array)");
        int row = 4;
        for (const auto& [wind, angle, ambient, seconds] : weather) {
            CalcCase c = line_with_mass();
            c.Windgeschwindigkeit_db = typed(wind);
            c.Umgebungstemperatur_db = typed(ambient);
            const double delta = fold_angle(angle, 0);
            TB601Records records;
            ASSERT_FALSE(ST_00_CigreTB601_temp_strom_steady_state(c, delta, records));
            const double PATL = records.state.I;
            EXPECT_EQ(this->result(row, 13), masked(2 * PATL, "####0", DecimalSeparator::Comma));
            std::int16_t slot = 0;
            for (const double percent : {30, 60, 90}) {
                c.Leitertemp_Merker_db = false;
                c.Stromstaerke_Merker_db = true;
                c.Stromstaerke_db = typed(PATL * percent / 100);
                TB601Records preload;
                c.Stromstaerke_db.value = PATL * percent / 100;
                ASSERT_FALSE(ST_00_CigreTB601_temp_strom_steady_state(c, delta, preload));
                TransientSlots slots{};
                (void)TS_S01_CigreTB601_temp_strom_transient_state_Excel(
                    {static_cast<float>(seconds), preload.state.T, 80.0F, static_cast<float>(PATL),
                     slot, conductor_mass(c), HeatCapacityOption::WithTemperature},
                    preload, slots);
                const double TATL = static_cast<double>(slots[static_cast<std::size_t>(slot)]);
                EXPECT_GE(TATL, PATL);
                EXPECT_EQ(this->result(row, 14 + slot),
                          masked(2 * TATL, "######0", DecimalSeparator::Comma));
                ++slot;
            }
            ++row;
        }
    }
}

TEST_F(TransientBatch, a_short_time_carries_the_heat_of_the_conductor) {
    // 60 s from the temperature at 30 % of the PATL to 80 °C: about 0.77 kJ/(K·m) to heat by some
    // 35 K, with the cooling of the mean temperature and 0.13 mohm/m, take about 2 kA.
    add_weather(0.6, 90, 35, 60);
    ASSERT_EQ(run().end, BatchEnd::Done);
    const double TATL = std::stod(result(4, 14));
    EXPECT_GT(TATL / 2, 1700);
    EXPECT_LT(TATL / 2, 2200);
}

TEST_F(TransientBatch, headers_name_the_preloads_and_old_ones_go) {
    rows()[{2, 17}] = std::string("TATL after 99% PATL Preload");
    rows()[{4, 20}] = 1.0;
    set_fixed_text(65, "62,5");
    ASSERT_EQ(run().end, BatchEnd::Done);
    EXPECT_EQ(result(2, 14), "TATL after 30% PATL Preload");
    EXPECT_EQ(result(2, 15), "TATL after 62,5% PATL Preload");
    EXPECT_EQ(result(2, 16), "TATL after 90% PATL Preload");
    EXPECT_EQ(result(2, 17), "");
    EXPECT_EQ(result(4, 20), "");
}

TEST_F(TransientBatch, a_row_without_PATL_leaves_its_TATL_empty) {
    add_weather(0.6, 90, 35, 600, 20);  // the limit lies below the ambient temperature
    add_weather(0.6, 90, 35, 600);
    const BatchResult result = run();
    EXPECT_EQ(result.end, BatchEnd::Done);
    EXPECT_EQ(result.errors, 1);
    EXPECT_EQ(this->result(4, 13), "Error");
    EXPECT_EQ(this->result(4, 14), "");
    EXPECT_NE(this->result(5, 14), "");
}

TEST_F(TransientBatch, percents_end_at_the_first_gap) {
    set_fixed(68, 50);  // behind an empty cell
    add_weather(0.6, 90, 35, 600);
    ASSERT_EQ(run().end, BatchEnd::Done);
    EXPECT_NE(result(4, 16), "");
    EXPECT_EQ(result(4, 17), "");
}

TEST_F(TransientBatch, twenty_one_percents_are_the_most) {
    std::vector<double> percents(21, 50);
    set_percents(percents);
    ASSERT_EQ(run().end, BatchEnd::Done);
    EXPECT_EQ(result(2, 34), "TATL after 50% PATL Preload");
    percents.push_back(50);
    set_percents(percents);
    EXPECT_THAT(joined(refusal()[0].lines, "\n"), HasSubstr("No more than 21 PATL"));
}

TEST_F(TransientBatch, cell_by_cell_a_wrong_row_keeps_those_before_it) {
    by_cell = true;
    for (int i = 0; i < 3; ++i) add_weather(0.6, 90, 35, 600);
    rows()[{5, 11}] = 3601.0;
    const BatchResult result = run();
    EXPECT_EQ(result.end, BatchEnd::Broken);
    EXPECT_TRUE(result.saved);
    EXPECT_EQ(result.active, 1);
    EXPECT_NE(this->result(4, 13), "");
    EXPECT_EQ(this->result(5, 13), "");
    EXPECT_EQ(this->result(6, 13), "");
    ASSERT_EQ(dialogs.shown.size(), 3U);
    EXPECT_EQ(dialogs.shown[0].lines[0], "Maximum value for for TATL-time is 3600 sec ");
}

TEST_F(TransientBatch, cell_by_cell_a_wrong_flag_keeps_the_old_results) {
    by_cell = true;
    for (int i = 0; i < 2; ++i) add_weather(0.6, 90, 35, 600);
    rows()[{5, 2}] = 2.0;
    EXPECT_THAT(refusal()[0].lines.back(), HasSubstr("1 = active / empty"));
}

TEST_F(TransientBatch, as_an_array_a_wrong_row_saves_nothing) {
    for (int i = 0; i < 3; ++i) add_weather(0.6, 90, 35, 600);
    rows()[{6, 11}] = 3601.0;
    const auto boxes = refusal();
    EXPECT_EQ(boxes[0].lines[0], "Maximum value for for TATL-time is 3600 sec / 60 min");
    EXPECT_EQ(boxes[0].lines[1], "Minimum value for TATL-time is 1 sec");
    EXPECT_EQ(result(4, 13), "");
}

TEST_F(TransientBatch, a_stop_keeps_the_rows_by_cell_and_none_as_an_array) {
    for (int i = 0; i < 3; ++i) add_weather(0.6, 90, 35, 600);
    observer.stop_after = 2;
    BatchResult result = run();
    EXPECT_EQ(result.end, BatchEnd::Stopped);
    EXPECT_FALSE(result.saved);
    EXPECT_EQ(this->result(4, 13), "");
    by_cell = true;
    observer.rows = 0;
    result = run();
    EXPECT_EQ(result.end, BatchEnd::Stopped);
    EXPECT_TRUE(result.saved);
    EXPECT_NE(this->result(5, 13), "");
    EXPECT_EQ(this->result(6, 13), "");
}

TEST_F(TransientBatch, an_array_holds_two_thousand_rows) {
    for (int i = 0; i < 2001; ++i) add_weather(0.6, 90, 35, 600);
    const auto boxes = refusal();
    EXPECT_THAT(joined(boxes[0].lines, "\n"), HasSubstr("limited to 2000 lines"));
    EXPECT_THAT(joined(boxes[0].lines, "\n"), HasSubstr("line per line"));
    lang = LangId::German;
    EXPECT_THAT(joined(refusal()[0].lines, "\n"), HasSubstr("Zeile pro Zeile"));
}

struct FirstBox {
    int row;
    const char* text;  // null: the cell is emptied
    const char* english;
    const char* german;
};

TEST_F(TransientBatch, wrong_fixed_input_is_refused) {
    constexpr FirstBox boxes[] = {
        {14, nullptr, "You havn't made an input for the number of conductors",
         "Es wurde keine Angabe für Anzahl Teilleiter gemacht"},
        {13, "61", "Calculations by Cigre TB 601 can only be carried out",
         "Die Berechnungen nach Cigre TB 601 "},
        {64, nullptr, "At least one / the first PATL 1 percentage value",
         "Es muss mindestens ein bzw der erste PATL 1 Prozentwert"},
        {65, "100", "Input value is not in the range 1 - 99 (percent)",
         "Eingabewert liegt nicht im Bereich 1 - 99 ( Prozent)"},
        {47, nullptr, "There is within the excel workbook:", "Es wurde in der Excel-Arbeitsmappe:"},
    };
    const MemorySheets sound = workbook();
    for (const auto& [row, text, english, german] : boxes)
        for (const LangId language : {LangId::English, LangId::German}) {
            workbook() = sound;
            if (text == nullptr)
                fixed().erase({row, 3});
            else
                set_fixed_text(row, text);
            lang = language;
            EXPECT_EQ(refusal()[0].lines[0], (Text{german, english}.in(language))) << row;
        }
}

TEST_F(TransientBatch, the_mass_of_older_workbooks_is_warned_of) {
    add_weather(0.6, 90, 35, 600);
    fixed().erase({42, 3});
    fixed().erase({59, 3});
    ASSERT_EQ(run().end, BatchEnd::Done);
    ASSERT_EQ(dialogs.shown.size(), 2U);
    EXPECT_THAT(joined(dialogs.shown[0].lines, "\n"),
                HasSubstr("cell C42 of worksheet fixed_input"));
    EXPECT_THAT(joined(dialogs.shown[1].lines, "\n"),
                HasSubstr("cell C59 of worksheet fixed_input"));
    preset = line_with_mass();
    dialogs.shown.clear();
    ASSERT_EQ(run().end, BatchEnd::Done);
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(TransientBatch, results_do_not_depend_on_the_number_of_threads) {
    for (int i = 0; i < 40; ++i) add_weather(0.5 + 0.25 * i, 2.25 * i, 35 - i, 60 + 30 * i);
    const MemorySheets before = workbook();
    threads = 1;
    ASSERT_TRUE(run().saved);
    const MemorySheets alone = workbook();
    workbook() = before;
    threads = 3;
    ASSERT_TRUE(run().saved);
    EXPECT_EQ(workbook(), alone);
}

}  // namespace
}  // namespace zel::excel_batch
