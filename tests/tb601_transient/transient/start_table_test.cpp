#include "tb601_transient/transient/start_table.h"

#include <gtest/gtest.h>

#include <tuple>

namespace zel {
namespace {

TEST(StartTable, reads_the_section_and_the_duration_on_both_sides_of_each_limit) {
    const std::tuple<double, double, double, double> rows[] = {
        // mm², s, A, A
        {125, 1.9, 10000, 25000},   {125.1, 1.9, 30000, 60000}, {250, 2, 20000, 40000},
        {250.1, 2, 36000, 72000},   {500, 4.9, 36000, 72000},   {500.1, 5, 45000, 75000},
        {100, 9.9, 6000, 14000},    {100, 10, 5000, 12000},     {100, 19.9, 5000, 12000},
        {100, 20, 4000, 9000},      {300, 49.9, 13500, 26000},  {300, 50, 9000, 18000},
        {300, 99.9, 9000, 18000},   {300, 100, 7200, 14400},    {600, 199.9, 16000, 24000},
        {600, 200, 9000, 20000},    {200, 499.9, 2500, 5000},   {200, 500, 2000, 4000},
        {600, 999.9, 4500, 9000},   {600, 1000, 4000, 8000},    {100, 1399.9, 800, 1600},
        {100, 1400, 600, 1200},     {300, 1800, 3600, 7200},    {300, 1800.1, 1800, 3600},
        {600, 2800, 2500, 5000},    {600, 2800.1, 2500, 5000},  {0, 0, 10000, 25000},
        {600, 1.9, 120000, 240000}, {600, 4.9, 75000, 150000},  {600, 19.9, 36000, 60000},
        {600, 49.9, 24000, 48000},  {600, 99.9, 18000, 32000},  {600, 1800, 3000, 6000},
        {200, 9.9, 15000, 30000},   {200, 19.9, 10000, 21000},  {200, 49.9, 7500, 15000},
        {300, 1.9, 54000, 108000},  {300, 9.9, 27000, 54000},   {300, 19.9, 18000, 36000},
        {100, 4.9, 8000, 16000},    {100, 99.9, 2500, 6000},    {100, 199.9, 1500, 4000},
        {100, 499.9, 1200, 3000},   {100, 999.9, 1000, 2000},   {100, 2800, 500, 1000},
        {200, 99.9, 5000, 10000},   {200, 199.9, 4000, 8000},   {200, 1399.9, 2000, 4000},
        {200, 1800, 1500, 3000},    {300, 499.9, 3600, 7200},   {300, 1399.9, 3600, 7200},
    };
    for (const auto& [section, duration, middle, high] : rows) {
        const StartCurrents start = TS_InitialCurrents(section, duration);
        EXPECT_EQ(start.middle, middle) << section << " mm², " << duration << " s";
        EXPECT_EQ(start.high, high) << section << " mm², " << duration << " s";
    }
}

TEST(StartTable, of_the_batch_holds_its_fixed_entries) {
    const std::tuple<double, double, double, double> rows[] = {
        {1000.1, 1.9, 40, 80},  {1000.1, 4.9, 30, 60},      {1000.1, 9.9, 20, 40},
        {1000.1, 19.9, 15, 30}, {1000.1, 49.9, 10, 20},     {1000.1, 100, 5, 10},
        {1000.1, 200, 3, 6},    {1000.1, 1800, 1.4, 1.8},   {125, 5, 7, 15},
        {125, 199.9, 2.5, 5},   {125, 1800.1, 1.025, 1.05}, {125, 2800.1, 1.0125, 1.025},
    };
    for (const auto& [section, duration, middle, high] : rows) {
        const StartCurrents start = excel_start_factors(section, duration);
        EXPECT_EQ(start.middle, middle) << section << " mm², " << duration << " s";
        EXPECT_EQ(start.high, high) << section << " mm², " << duration << " s";
    }
}

TEST(StartTable, of_the_batch_falls_with_the_duration_and_rises_with_the_section) {
    const double sections[] = {100, 200, 400, 800, 1200};
    const double durations[] = {1, 3, 7, 15, 30, 70, 150, 300, 700, 1200, 1600, 2000, 3000};
    for (std::size_t i = 0; i < std::size(durations); ++i)
        for (std::size_t k = 0; k < std::size(sections); ++k) {
            const StartCurrents here = excel_start_factors(sections[k], durations[i]);
            EXPECT_GT(here.middle, 1);
            EXPECT_GT(here.high, here.middle);
            if (i > 0) {
                const StartCurrents shorter = excel_start_factors(sections[k], durations[i - 1]);
                EXPECT_GE(shorter.middle, here.middle) << i << " " << k;
                EXPECT_GE(shorter.high, here.high) << i << " " << k;
            }
            if (k > 0) {
                const StartCurrents thinner = excel_start_factors(sections[k - 1], durations[i]);
                EXPECT_LE(thinner.middle, here.middle) << i << " " << k;
                EXPECT_LE(thinner.high, here.high) << i << " " << k;
            }
        }
}

}  // namespace
}  // namespace zel
