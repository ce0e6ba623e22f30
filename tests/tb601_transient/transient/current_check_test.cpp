#include "tb601_transient/transient/current_check.h"

#include <gtest/gtest.h>

#include <random>

#include "fakes/transient_cases.h"

namespace zel {
namespace {

std::optional<CurrentChecks> checks_of(const Tb207Transient& t) {
    return check_currents(t.rows, t.input, t.params, t.observer);
}
std::optional<CurrentChecks> checks_of(const Tb601Transient& t) {
    return check_currents(t.rows, t.input, t.records, t.observer);
}

/// Where `row` ends at the current `I`, as a row of kind 2 by the run itself.
template <class Transient>
double followed(Transient t, TransientRow row, double I) {
    row.Merker = seeks_temperature;
    row.Strom = I;
    t.rows = {row};
    t.run();
    return t.rows[0].Temp;
}

/// Random rows from `start`: each current told is sound, or the check names one that is.
template <class Transient>
void expect_usable_currents(const Transient& start, unsigned seed, int count) {
    std::mt19937 random(seed);
    const auto between = [&](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    for (int i = 0; i < count; ++i) {
        Transient t = start;
        const TransientRow given =
            current_row(between(-200, 1600) / 10.0, between(0, 40), between(1, 59));
        SCOPED_TRACE(std::to_string(given.Temp) + " °C in " + std::to_string(duration_s(given)));
        t.rows = {given};
        t.run();
        const TransientRow told = t.rows[0];
        const auto checks = checks_of(t);
        ASSERT_TRUE(checks);
        if (!checks->front()) {
            EXPECT_EQ(told.Failed, 0);
            EXPECT_NEAR(followed(start, given, told.Strom), given.Temp, sound_miss);
            continue;
        }
        const CurrentCheck& check = *checks->front();
        if (told.Failed == 0) {
            EXPECT_NEAR(*check.reached, followed(start, given, told.Strom), 1e-9);
        }
        if (!check.current) {
            EXPECT_GT(followed(start, given, 0), given.Temp);
            continue;
        }
        const double T = followed(start, given, *check.current);
        EXPECT_LE(T, given.Temp + 1e-6);
        if (check.jumps) {
            EXPECT_GT(followed(start, given, *check.current * (1 + 1e-8)), given.Temp);
        } else {
            EXPECT_GE(T, given.Temp - check_tolerance - 1e-6);
        }
    }
}

TEST(CurrentCheck, names_a_current_that_people_can_use) {
    expect_usable_currents(Tb207Transient(with_masses(twin_264_34())), 1, 15);
    expect_usable_currents(Tb207Transient(with_masses(tube()), 1500), 2, 15);
    expect_usable_currents(Tb601Transient(with_masses(line_264_34())), 3, 15);
}

}  // namespace
}  // namespace zel
