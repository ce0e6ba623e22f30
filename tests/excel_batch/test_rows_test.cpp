#include "excel_batch/test_rows.h"

#include "excel_batch/batch_fixture.h"
#include "excel_batch/batch_rows.h"

namespace zel::excel_batch {
namespace {

class TestRows : public Batch {
protected:
    [[nodiscard]] Session session() { return {lang, DecimalSeparator::Point, mode, dialogs}; }
    std::optional<int> fill(std::optional<std::uint32_t> seed) {
        return fill_with_random_values(store, path, session(), seed);
    }
    double number(int row, int column) { return std::get<double>(rows().at({row, column})); }
};

TEST_F(TestRows, random_rows_keep_to_the_limits_and_run) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    CalcCase with_bundle_current = line_of_all_methods();
    with_bundle_current.Stromstaerke_Buendel = typed(1000);
    for (int i = 0; i < 500; ++i) add_row(with_bundle_current);
    EXPECT_EQ(fill(7), 500);
    for (int row = 5; row < 505; ++row) {
        EXPECT_LE(number(row, 15), highest_radiation(static_cast<int>(number(row, 19)),
                                                     static_cast<int>(number(row, 20))))
            << row;
        EXPECT_EQ(number(row, 10), rounded(number(row, 10), "#0.0"));
    }
    EXPECT_EQ(run().end, BatchEnd::Done);
}

TEST_F(TestRows, a_seed_gives_the_same_rows_again) {
    start_steady(WorkbookKind::SteadyVar, line_of_all_methods());
    for (int i = 0; i < 20; ++i) add_row(line_of_all_methods());
    const MemorySheets before = workbook();
    const auto filled = [&](std::optional<std::uint32_t> seed) {
        workbook() = before;
        EXPECT_EQ(fill(seed), 20);
        return workbook();
    };
    EXPECT_EQ(filled(3), filled(3));
    EXPECT_NE(filled(3), filled(4));
    EXPECT_NE(filled({}), filled({}));
}

TEST_F(TestRows, the_sun_is_highest_at_noon_in_summer) {
    EXPECT_EQ(highest_radiation(6, 13), 1000);
    EXPECT_EQ(highest_radiation(12, 13), 500);
    EXPECT_EQ(highest_radiation(4, 13), 700);
    EXPECT_EQ(highest_radiation(9, 13), 875);
    EXPECT_GT(highest_radiation(6, 7), 0);
    EXPECT_GT(highest_radiation(6, 19), 0);
    EXPECT_EQ(highest_radiation(6, 6), 0);
    EXPECT_EQ(highest_radiation(6, 20), 0);
}

TEST_F(TestRows, deviations_stand_in_the_columns_from_65_on) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 2; ++i) add_row(line_of_all_methods());
    const auto set = [&](int row, int column, double value) { rows()[{row, column}] = value; };
    for (const auto& [column, current] : {std::pair{34, 1000}, {36, 800}, {38, 1100}, {40, 600}})
        set(5, column, current);
    for (const auto& [column, temperature] : {std::pair{35, 80.0}, {39, 77.5}, {41, 81.2}})
        set(6, column, temperature);
    set(7, 65, 1);  // of a former row
    EXPECT_EQ(write_deviations(store, path, session()), 2);
    EXPECT_EQ(result(5, 65), "10");
    EXPECT_EQ(result(5, 66), "-40");
    EXPECT_EQ(result(5, 67), "37,5");
    EXPECT_EQ(result(5, 68), "-25");
    EXPECT_EQ(result(6, 65), "-2,5");
    EXPECT_EQ(result(6, 66), "1,2");
    EXPECT_EQ(result(6, 67), "");
    EXPECT_EQ(result(7, 65), "");
    EXPECT_EQ(result(2, 65), "Kirn - Cigre TB 601 (% / K)");
}

TEST_F(TestRows, other_workbooks_are_refused) {
    start(WorkbookKind::Transient);
    EXPECT_FALSE(fill(1));
    EXPECT_FALSE(write_deviations(store, path, session()));
    start(WorkbookKind::SteadyVar);
    EXPECT_FALSE(write_deviations(store, path, session()));
    EXPECT_EQ(dialogs.shown.size(), 3U);
    EXPECT_EQ(store.saved, 0);
}

}  // namespace
}  // namespace zel::excel_batch
