#include "excel_batch/test_rows.h"

#include "excel_batch/batch_fixture.h"

namespace zel::excel_batch {
namespace {

class TestRows : public Batch {
protected:
    void start_rows(WorkbookKind wanted, int count) {
        CalcCase c = line_of_all_methods();
        c.Stromstaerke_Buendel = typed(1000);
        start(wanted, c);
        for (int i = 0; i < count; ++i) add_row(c);
    }
    [[nodiscard]] Session session() { return {lang, DecimalSeparator::Point, mode, dialogs}; }
    std::optional<int> fill(std::optional<std::uint32_t> seed) {
        return fill_with_random_values(store, path, session(), seed);
    }
};

struct DrawnRange {
    int column;
    double low, high, unit;
};

// Every value comes up to the ends of its range within some hundred rows.
constexpr DrawnRange drawn_ranges[] = {
    {5, 0, 360, 1},       {10, 0.5, 12, 0.1},   {11, 0, 360, 1},    {12, -20, 40, 1},
    {13, -5, 40, 1},      {14, 0.1, 0.4, 0.01}, {16, 0.1, 1, 0.01}, {18, 1, 28, 1},
    {19, 1, 12, 1},       {20, 0, 23, 1},       {21, 0, 59, 1},     {26, 0.3, 0.9, 0.01},
    {27, 0.3, 0.9, 0.01}, {29, 100, 2000, 1},   {15, 0, 1000, 1},
};

TEST_F(TestRows, random_rows_fill_their_ranges_and_run) {
    start_rows(WorkbookKind::SteadyFix, 500);
    EXPECT_EQ(fill(7), 500);
    const auto number = [&](int row, int column) {
        return std::get<double>(rows().at({row, column}));
    };
    for (const auto& [column, low, high, unit] : drawn_ranges) {
        double least = high;
        double most = low;
        for (int row = 5; row < 505; ++row) {
            const double value = number(row, column);
            least = std::min(least, value);
            most = std::max(most, value);
            EXPECT_NEAR(value, std::round(value / unit) * unit, 1e-9) << column;
        }
        const double near = (high - low) / 25;
        EXPECT_GE(least, low) << column;
        EXPECT_LT(least, low + near) << column;
        EXPECT_LE(most, high) << column;
        EXPECT_GT(most, high - near) << column;
    }
    for (int row = 5; row < 505; ++row)
        EXPECT_LE(number(row, 15), highest_radiation(static_cast<int>(number(row, 19)),
                                                     static_cast<int>(number(row, 20))));
    EXPECT_EQ(run().end, BatchEnd::Done);
}

TEST_F(TestRows, a_seed_gives_the_same_rows_again) {
    start_rows(WorkbookKind::SteadyVar, 20);
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
    // Symmetric about 13 o'clock and about July, and dark at 6 and at 20.
    for (int month = 1; month <= 12; ++month)
        for (int hour = 0; hour <= 23; ++hour) {
            const double W_m2 = highest_radiation(month, hour);
            EXPECT_EQ(W_m2 > 0, hour >= 7 && hour <= 19);
            if (hour >= 3) {
                EXPECT_EQ(W_m2, highest_radiation(month, 26 - hour));
            }
            if (month >= 2) {
                EXPECT_EQ(W_m2, highest_radiation(14 - month, hour)) << month;
            }
        }
    EXPECT_EQ(highest_radiation(6, 13), 1000);
    EXPECT_EQ(highest_radiation(12, 13), 500);
    EXPECT_EQ(highest_radiation(4, 13), 700);
    EXPECT_EQ(highest_radiation(9, 13), 875);
    EXPECT_EQ(highest_radiation(6, 7), 100);
    for (const int month : {0, 13}) EXPECT_EQ(highest_radiation(month, 13), 0);
}

TEST_F(TestRows, deviations_stand_in_the_columns_from_65_on) {
    start_rows(WorkbookKind::SteadyFix, 2);
    const auto set = [&](int row, int column, double value) { rows()[{row, column}] = value; };
    for (const auto& [column, current] : {std::pair{34, 1000}, {36, 800}, {38, 1100}, {40, 600}})
        set(5, column, current);
    for (const auto& [column, temperature] : {std::pair{35, 80.0}, {39, 77.5}, {41, 81.2}})
        set(6, column, temperature);
    set(7, 65, 1);  // of a former row
    set(100004, 68, 1);
    EXPECT_EQ(write_deviations(store, path, session()), 2);
    const std::pair<std::pair<int, int>, const char*> expected[] = {
        {{5, 65}, "10"},    {{5, 66}, "-40"},
        {{5, 67}, "37,5"},  {{5, 68}, "-25"},
        {{6, 65}, "-2,5"},  {{6, 66}, "1,2"},
        {{6, 67}, ""},      {{7, 65}, ""},
        {{100004, 68}, ""}, {{2, 65}, "Kirn - Cigre TB 601 (% / K)"}};
    for (const auto& [place, text] : expected)
        EXPECT_EQ(result(place.first, place.second), text) << place.first << " " << place.second;
}

TEST_F(TestRows, other_workbooks_are_refused) {
    start(WorkbookKind::Transient, line_of_all_methods());
    EXPECT_FALSE(fill(1));
    EXPECT_FALSE(write_deviations(store, path, session()));
    start(WorkbookKind::SteadyVar, line_of_all_methods());
    EXPECT_FALSE(write_deviations(store, path, session()));
    EXPECT_EQ(dialogs.shown.size(), 3U);
    EXPECT_EQ(store.saved, 0);
}

}  // namespace
}  // namespace zel::excel_batch
