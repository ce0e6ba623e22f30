#include "tb601_transient/transient/transient_excel.h"

#include <gtest/gtest.h>

#include "fakes/transient_cases.h"
#include "platform/errors.h"

namespace zel {
namespace {

/// The search of a temporary current, here for 264-AL1/34-ST1A: 80 °C after a preload of 60 %.
struct Cell {
    explicit Cell(const CalcCase& c = with_masses(line_264_34()), float limit = 80,
                  double preload = 0.6)
        : records(records_of(c)) {
        failed = static_cast<bool>(
            solve_current(records.params, records.state, static_cast<double>(limit)));
        input.I1 = static_cast<float>(records.state.I);
        failed |= static_cast<bool>(
            solve_temperature(records.params, records.state, preload * records.state.I));
        input.start_temperature = records.state.T;
        input.target = limit;
        input.duration = 600;
        input.slot = 3;
        input.mass = conductor_mass(c);
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

/// 24-AL1 (EN 50182): 7 wires.
CalcCase line_24_al1() {
    CalcCase c = with_masses(line_264_34());
    c.conductor_type_db = homogeneous_conductor;
    c.Seildurchmesser_db = typed(6.3);
    c.DCR_20_db = typed(1.1808);
    c.DrahtzahlLeiter_db = 7;
    c.DrahtdurchmesserLeiter_db = typed(2.1);
    c.DrahtlagenzahlLeiter_db = 1;
    c.Mantelquerschnitt_db = typed(24.2);
    c.Windgeschwindigkeit_db = typed(5);
    c.Umgebungstemperatur_db = typed(0);
    c.Globalstrahlung_db = typed(0);
    return c;
}

/// 904-AL1/75-ST1A (EN 50182): 84 wires in four layers, in calm air.
CalcCase line_904_75() {
    CalcCase c = with_masses(line_264_34());
    c.Seildurchmesser_db = typed(40.7);
    c.DCR_20_db = typed(0.032);
    c.DrahtzahlLeiter_db = 84;
    c.DrahtdurchmesserLeiter_db = typed(3.7);
    c.DrahtlagenzahlLeiter_db = 4;
    c.Mantelquerschnitt_db = typed(903.2);
    c.KerndurchmesserTraeger_db = typed(11.25);
    c.DrahtzahlTraeger_db = 19;
    c.DrahtdurchmesserTraeger_db = typed(2.25);
    c.Windgeschwindigkeit_db = typed(0);
    c.Globalstrahlung_db = typed(0);
    return c;
}

// The thinnest and the thickest of a class of sections: the one would run into the limit of steps,
// the other out of the bracket, where the high start factor is not chosen for both.
TEST(TransientExcel, start_factors_bracket_the_thin_and_the_thick) {
    const struct {
        CalcCase c;
        float limit;
        double preload;
        float duration;
    } rows[] = {{line_24_al1(), 150, 0.01, 4}, {line_904_75(), 50, 0.01, 1801}};
    for (const auto& [c, limit, preload, duration] : rows) {
        Cell cell(c, limit, preload);
        ASSERT_FALSE(cell.failed);
        cell.input.duration = duration;
        EXPECT_EQ(cell.run().end, TransientExcelEnd::Found) << duration;
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
