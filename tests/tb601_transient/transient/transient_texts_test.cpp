#include "tb601_transient/transient/transient_texts.h"

#include <gtest/gtest.h>

#include <tuple>

#include "fakes/transient_cases.h"

namespace zel {
namespace {

Zustand16 three_found() {
    Zustand16 rows{};
    rows[0] = {seeks_current, 450.26, 80, 5, 0, 0, row_heats};
    rows[1] = {seeks_temperature, 300, 61.25, 2, 30, 0, row_cools};
    rows[2] = {seeks_time, 700, 70, 0, 60, 0, row_heats};
    return rows;
}

TEST(TransientTexts, show_what_was_found_and_the_running_total) {
    const auto texts = TS_ShowResults(three_found(), 2, DecimalSeparator::Comma);
    EXPECT_EQ(texts[0].Strom, "901");  // of the bundle
    EXPECT_EQ(texts[0].Temp + texts[0].Min + texts[0].Sec, "");
    EXPECT_EQ(texts[0].total, "t 0-1 = 5 min 0 sec");
    EXPECT_EQ(texts[1].Temp, "61,3");
    EXPECT_EQ(texts[1].Strom + texts[1].Min + texts[1].Sec, "");
    EXPECT_EQ(texts[1].total, "t 0-2 = 7 min 30 sec");
    // 60 seconds that came of rounding show as they are in the row, but not in the total.
    EXPECT_EQ(texts[2].Min, "0");
    EXPECT_EQ(texts[2].Sec, "60");
    EXPECT_EQ(texts[2].total, "t 0-3 = 8 min 30 sec");
    for (std::size_t i = 3; i < texts.size(); ++i) EXPECT_EQ(texts[i].total, "") << i;
}

TEST(TransientTexts, end_before_the_failed_row) {
    Zustand16 rows = three_found();
    rows[1].Failed = 1;
    const auto texts = TS_ShowResults(rows, 1, DecimalSeparator::Point);
    EXPECT_EQ(texts[0].Strom, "450");
    for (std::size_t i = 1; i < texts.size(); ++i) {
        EXPECT_EQ(texts[i].Temp, "") << i;
        EXPECT_EQ(texts[i].Min, "") << i;
        EXPECT_EQ(texts[i].total, "") << i;
    }
}

TEST(ZeitFormat, shows_hours_minutes_and_seconds) {
    using namespace std::chrono;
    const system_clock::time_point start{hours{480000}};
    const std::tuple<milliseconds, const char*> rows[] = {
        {0ms, "0 h 00 min 00 sec"},
        {499ms, "0 h 00 min 00 sec"},
        {501ms, "0 h 00 min 01 sec"},
        {59s + 600ms, "0 h 01 min 00 sec"},
        {1h + 2min + 3s, "1 h 02 min 03 sec"},
        {59min + 59s + 700ms, "1 h 00 min 00 sec"},
        {30h, "30 h 00 min 00 sec"},
        {-5s, "0 h 00 min 00 sec"},
    };
    for (const auto& [difference, text] : rows)
        EXPECT_EQ(Zeit_format(start + difference, start), text);
}

}  // namespace
}  // namespace zel
