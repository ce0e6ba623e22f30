#include <gtest/gtest.h>

#include <random>

#include "fakes/allocation_count.h"
#include "fakes/plain_transient.h"
#include "fakes/transient_cases.h"

// The fast form of the stepping against the plain one, bit for bit, over random rows in random
// weather: heating and cooling, found and failed, with terms that fail on the way.

namespace zel {
namespace {

class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}
    double between(double low, double high) {
        return low + (high - low) * static_cast<double>(engine_()) / 4294967296.0;
    }
    template <class T>
    T one_of(std::initializer_list<T> values) {
        return *(values.begin() + engine_() % values.size());
    }

private:
    std::mt19937 engine_;
};

CalcCase random_case(Random& random) {
    CalcCase c = with_masses(line_264_34());
    c.rechnung_cigre601_merker_db = 0;
    c.rechnung_cigre207_merker_db = 1;
    c.conductor_type_db = random.one_of<std::int16_t>({1, 2, 2, 4});
    c.DrahtlagenzahlLeiter_db = random.one_of<std::int16_t>({1, 2, 3});
    c.Mantelquerschnitt_db = typed(random.one_of({100.0, 150.0, 263.7, 600.0}));
    c.Windgeschwindigkeit_db = typed(random.one_of({0.0, 0.3, 0.6, 2.0, 60.0}));
    c.Umgebungstemperatur_db = typed(random.between(-20, 45));
    c.Globalstrahlung_db = typed(random.one_of({0.0, 900.0}));
    c.Hoehe_ueber_NN_db = typed(random.one_of({0.0, 1500.0}));
    return c;
}

CalcCase random_tube(Random& random) {
    CalcCase c = random_case(random);
    c.rechnung_cigre207_merker_db = 0;
    c.rechnung_TBB_merker_db = 1;
    c.conductor_type_db = tubular_busbar;
    c.Seildurchmesser_db = typed(120);
    c.DrahtdurchmesserLeiter_db = typed(random.one_of({4.0, 8.0}));
    return c;
}

TransientRow random_row(Random& random) {
    TransientRow row;
    row.Merker = random.one_of<std::int16_t>({1, 2, 3});
    row.Strom = row.Merker == 1 ? 0 : random.between(0, 1500);
    row.Temp = row.Merker == 2 ? 0 : random.between(20, 160);
    row.Min = row.Merker == 3 ? std::int16_t{0} : random.one_of<std::int16_t>({0, 1, 5, 20, 60});
    row.Sec = row.Merker == 3 ? std::int16_t{0} : random.one_of<std::int16_t>({0, 15, 59});
    return row;
}

/// Runs both forms over `runs` random chains of up to three rows; how many rows were found.
template <class RunBoth>
int compare(unsigned seed, int runs, RunBoth run_both) {
    Random random(seed);
    int found = 0;
    for (int i = 0; i < runs; ++i) {
        Zustand16 given{};
        for (int k = 0; k < 3; ++k) given[static_cast<std::size_t>(k)] = random_row(random);
        Zustand16 fast = given;
        Zustand16 plain = given;
        run_both(random, fast, plain);
        EXPECT_EQ(fast, plain) << "run " << i;
        for (const TransientRow& row : fast) found += row.Merker != 0 && row.Failed == 0 ? 1 : 0;
    }
    return found;
}

auto both_by_tb207(CalcCase (*make_case)(Random&)) {
    return [make_case](Random& random, Zustand16& fast, Zustand16& plain) {
        Tb207Transient t(make_case(random));
        t.input.start.temperature = random.between(20, 90);
        t.input.cigre_TKW_merker =
            random.one_of({HeatCapacityOption::WithTemperature, HeatCapacityOption::At20Degrees});
        t.mode = RunMode::Silent;
        t.rows = fast;
        t.run();
        fast = t.rows;
        plain_run(plain, t.input, t.params.conductor_section, false,
                  plain_tb207(t.params, t.input));
    };
}

TEST(FastStepping, is_the_plain_one_by_TB_207) {
    EXPECT_GT(compare(1, 120, both_by_tb207(random_case)), 100);
}

TEST(FastStepping, is_the_plain_one_by_the_busbar_method) {
    EXPECT_GT(compare(2, 60, both_by_tb207(random_tube)), 50);
}

TEST(FastStepping, is_the_plain_one_by_TB_601) {
    const int found = compare(3, 120, [](Random& random, Zustand16& fast, Zustand16& plain) {
        Tb601Transient t(random_case(random));
        t.input.start.temperature = random.between(20, 90);
        t.mode = RunMode::Silent;
        const TB601Records before = t.records;
        t.rows = fast;
        t.run();
        fast = t.rows;
        plain_run(plain, t.input, before.params.AreaOuter, true, plain_tb601(before, t.input));
    });
    EXPECT_GT(found, 100);
}

TEST(FastStepping, allocates_nothing) {
    Tb207Transient by_tb207(with_masses(twin_264_34()));
    Tb601Transient by_tb601(with_masses(line_264_34()));
    by_tb207.rows[0] = by_tb601.rows[0] = current_row(90, 10, 0);
    by_tb207.rows[1] = by_tb601.rows[1] = temperature_row(400, 10, 0);
    by_tb207.rows[2] = by_tb601.rows[2] = time_row(700, 75);
    const TransientSurroundings around = by_tb207.surroundings();
    const std::size_t before = allocation_count();
    TS_S01_CigreTB207_temp_strom_transient_state(by_tb207.rows, by_tb207.input, by_tb207.params,
                                                 around);
    TS_S01_CigreTB601_temp_strom_transient_state_Programm_aktuell(by_tb601.rows, by_tb601.input,
                                                                  by_tb601.records, around);
    EXPECT_EQ(allocation_count(), before);
    EXPECT_EQ(by_tb207.rows[2].Failed, 0);
    EXPECT_EQ(by_tb601.rows[2].Failed, 0);
}

}  // namespace
}  // namespace zel
