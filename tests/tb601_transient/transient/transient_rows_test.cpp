#include <gtest/gtest.h>

#include <vector>

#include "fakes/transient_cases.h"

// What chains of rows come to stands in tests/data/transient_formulas.json.

namespace zel {
namespace {

template <class Transient>
Transient make();
template <>
Tb207Transient make() {
    return Tb207Transient(line_by_tb207());
}
template <>
Tb601Transient make() {
    return Tb601Transient(line_by_tb601());
}

template <class Transient>
struct TransientRows : testing::Test {
    Transient t = make<Transient>();

    double T0() const { return t.input.start.temperature; }
    TransientEnd run(std::vector<TransientRow> rows) {
        std::copy(rows.begin(), rows.end(), t.rows.begin());
        return t.run();
    }
};

using Methods = testing::Types<Tb207Transient, Tb601Transient>;
TYPED_TEST_SUITE(TransientRows, Methods);

TYPED_TEST(TransientRows, each_start_at_the_end_of_the_one_before) {
    this->run({temperature_row(900, 5, 0), temperature_row(900, 5, 0)});
    const double in_two = this->t.rows[1].Temp;
    this->run({temperature_row(900, 10, 0), TransientRow{}});
    EXPECT_NEAR(in_two, this->t.rows[0].Temp, 0.1);
}

TYPED_TEST(TransientRows, progress_is_told_and_a_cancelled_run_leaves_them_as_before) {
    std::vector<TransientProgress> told;
    this->t.observer = [&](const TransientProgress& progress) {
        told.push_back(progress);
        return progress.row < 2;
    };
    const std::vector<TransientRow> rows = {time_row(410, this->T0() + 0.5),
                                            time_row(400, this->T0() + 0.1)};
    EXPECT_EQ(this->run(rows), TransientEnd::Cancelled);
    EXPECT_EQ(this->t.rows[0], rows[0]);
    EXPECT_EQ(this->t.rows[1], rows[1]);
    EXPECT_TRUE(this->t.dialogs.shown.empty());
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back().row, 2);
    for (const TransientProgress& progress : told) {
        EXPECT_GE(progress.done, 0);
        EXPECT_LE(progress.done, 1);
    }
}

TEST(TransientCancel, leaves_the_state_of_TB_601_as_before) {
    Tb601Transient t(line_by_tb601());
    t.observer = [](const TransientProgress&) { return false; };
    t.rows[0] = time_row(410, 200);
    const double T = t.records.state.T;
    EXPECT_EQ(t.run(), TransientEnd::Cancelled);
    EXPECT_EQ(t.records.state.I, 400);
    EXPECT_EQ(t.records.state.T, T);
}

}  // namespace
}  // namespace zel
