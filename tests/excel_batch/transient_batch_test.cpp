#include "excel_batch/batch_fixture.h"
#include "platform/rounding.h"
#include "tb601_transient/tb601/tb601_solver.h"
#include "tb601_transient/transient/transient_excel.h"
#include "workflow/rules/derived.h"

namespace zel::excel_batch {
namespace {

CalcCase line_with_mass() { return with_masses(line_264_34()); }

class TransientBatch : public Batch {
protected:
    TransientBatch() { start(WorkbookKind::Transient, line_with_mass()); }
};

struct Weather {
    double wind, angle, ambient, seconds;
};

/// PATL and TATL of a single conductor by the methods themselves (A).
std::vector<double> currents(const Weather& weather) {
    CalcCase c = line_with_mass();
    c.Windgeschwindigkeit_db = typed(weather.wind);
    c.Umgebungstemperatur_db = typed(weather.ambient);
    const double delta = fold_angle(weather.angle, 0);
    TB601Records records;
    EXPECT_FALSE(ST_00_CigreTB601_temp_strom_steady_state(c, delta, records));
    const double PATL = records.state.I;
    std::vector<double> found = {PATL};
    c.Leitertemp_Merker_db = false;
    c.Stromstaerke_Merker_db = true;
    for (std::int16_t slot = 0; slot < 3; ++slot) {
        c.Stromstaerke_db.value = PATL * 30 * (slot + 1) / 100;
        TB601Records preload;
        EXPECT_FALSE(ST_00_CigreTB601_temp_strom_steady_state(c, delta, preload));
        TransientSlots slots{};
        (void)TS_S01_CigreTB601_temp_strom_transient_state_Excel(
            {static_cast<float>(weather.seconds), preload.state.T, 80.0F, static_cast<float>(PATL),
             slot, conductor_mass(c), HeatCapacityOption::WithTemperature},
            preload, slots);
        found.push_back(static_cast<double>(slots[static_cast<std::size_t>(slot)]));
        EXPECT_GE(found.back(), PATL);
    }
    return found;
}

TEST_F(TransientBatch, PATL_and_TATL_are_those_of_the_single_calculations) {
    constexpr Weather weather[] = {{0.6, 90, 35, 600}, {2.5, 45, 10, 60}, {1, 150, 20, 900}};
    for (const auto& [wind, angle, ambient, seconds] : weather)
        add_weather(wind, angle, ambient, seconds);
    for (const bool cell_by_cell : {true, false}) {
        by_cell = cell_by_cell;
        ASSERT_EQ(run().end, BatchEnd::Done);
        int row = 4;
        for (const Weather& of_row : weather) {
            int column = 13;
            for (const double current : currents(of_row))
                EXPECT_EQ(result(row, column++),
                          masked(2 * current, "####0", DecimalSeparator::Comma));
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

TEST_F(TransientBatch, results_do_not_depend_on_the_number_of_threads) {
    for (int i = 0; i < 12; ++i) add_weather(0.5 + 0.75 * i, 7.25 * i, 35 - i, 60 + 90 * i);
    const MemorySheets before = workbook();
    threads = 1;
    ASSERT_TRUE(run().saved);
    const MemorySheets alone = std::exchange(workbook(), before);
    threads = 3;
    ASSERT_TRUE(run().saved);
    EXPECT_EQ(workbook(), alone);
}

}  // namespace
}  // namespace zel::excel_batch
