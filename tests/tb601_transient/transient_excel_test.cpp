#include "tb601_transient/transient_excel.h"

#include <gtest/gtest.h>

#include "fakes/transient_cases.h"
#include "platform/program_end.h"

namespace zel {
namespace {

/// The search of a temporary current for 264-AL1/34-ST1A: 80 °C after a preload of 60 %.
struct Cell {
    Cell() : records(records_of(line_264_34())) {
        failed = static_cast<bool>(solve_current(records.params, records.state, 80));
        input.I1 = static_cast<float>(records.state.I);
        failed |= static_cast<bool>(
            solve_temperature(records.params, records.state, 0.6 * records.state.I));
        input.start_temperature = records.state.T;
        input.target = 80;
        input.duration = 600;
        input.slot = 3;
        input.mass = conductor_mass(with_masses(line_264_34()));
    }
    TransientExcelResult run() {
        return TS_S01_CigreTB601_temp_strom_transient_state_Excel(input, records, slots);
    }

    TB601Records records;
    bool failed = false;
    TransientExcelInput input;
    TransientSlots slots{};
};

TEST(TransientExcel, current_lies_above_the_steady_one_and_leads_to_the_target) {
    for (const float duration : {1.0F, 30.0F, 300.0F, 900.0F, 3600.0F}) {
        Cell cell;
        ASSERT_FALSE(cell.failed);
        cell.input.duration = duration;
        EXPECT_EQ(cell.run().end, TransientExcelEnd::Found) << duration;
        const double found = static_cast<double>(cell.slots[3]);
        EXPECT_GE(found, static_cast<double>(cell.input.I1)) << duration;

        Tb601Transient t(with_masses(line_264_34()));
        t.input.start.temperature = cell.input.start_temperature;
        t.rows[0] = temperature_row(found, static_cast<int>(duration) / 60,
                                    static_cast<int>(duration) % 60);
        t.run();
        EXPECT_NEAR(t.rows[0].Temp, 80, 0.3) << duration;
    }
}

TEST(TransientExcel, longer_overload_is_a_smaller_one) {
    float former = 1e6F;
    for (const float duration : {5.0F, 60.0F, 600.0F, 1800.0F}) {
        Cell cell;
        cell.input.duration = duration;
        cell.run();
        EXPECT_LT(cell.slots[3], former);
        former = cell.slots[3];
    }
}

TEST(TransientExcel, writes_its_slot_alone) {
    Cell cell;
    cell.run();
    for (std::size_t i = 0; i < cell.slots.size(); ++i) EXPECT_EQ(cell.slots[i] != 0, i == 3) << i;
    for (const std::int16_t slot : std::initializer_list<std::int16_t>{0, 21}) {
        cell.input.slot = slot;
        EXPECT_EQ(cell.run().error_text, "");
    }
    for (const std::int16_t slot : std::initializer_list<std::int16_t>{-1, 22}) {
        cell.input.slot = slot;
        EXPECT_THROW(cell.run(), std::out_of_range) << slot;
    }
}

TEST(TransientExcel, too_many_steps_are_code_1) {
    Cell cell;
    cell.input.I1 = 60000;
    cell.input.duration = 60;
    EXPECT_EQ(cell.run().end, TransientExcelEnd::TooManySteps);
    EXPECT_EQ(cell.slots[3], 1.0F);
}

TEST(TransientExcel, target_outside_the_bracket_is_code_2) {
    Cell cell;
    cell.input.target = 40;  // colder than at the steady current, which is the lowest tried
    EXPECT_EQ(cell.run().end, TransientExcelEnd::OutOfBracket);
    EXPECT_EQ(cell.slots[3], 2.0F);
}

TEST(TransientExcel, unknown_type_ends_the_program_and_a_fault_is_an_error) {
    Cell cell;
    cell.input.mass.ConductorType = 0;
    EXPECT_THROW(cell.run(), ProgramEnd);

    Cell fault;
    fault.input.mass.RhoAlu = 1e308;
    const TransientExcelResult result = fault.run();
    EXPECT_EQ(result.end, TransientExcelEnd::Fault);
    EXPECT_EQ(result.error_text, "Error");
    EXPECT_EQ(fault.slots[3], 0);
}

}  // namespace
}  // namespace zel
