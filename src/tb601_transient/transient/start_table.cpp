#include "tb601_transient/transient/start_table.h"

#include <array>

namespace zel {
namespace {

/// The durations that share a row of a table.
struct Durations {
    double limit;    // s
    bool inclusive;  // the limit itself belongs to the row
};

constexpr double no_limit = 1e300;

constexpr std::array<Durations, 13> durations = {{{2, false},
                                                  {5, false},
                                                  {10, false},
                                                  {20, false},
                                                  {50, false},
                                                  {100, false},
                                                  {200, false},
                                                  {500, false},
                                                  {1000, false},
                                                  {1400, false},
                                                  {1800, true},
                                                  {2800, true},
                                                  {no_limit, true}}};

constexpr std::size_t row_of(double duration) {
    std::size_t row = 0;
    while (row + 1 < durations.size() &&
           !(durations[row].inclusive ? duration <= durations[row].limit
                                      : duration < durations[row].limit))
        ++row;
    return row;
}

/// The first section (mm²) that holds `section`; beyond the last limit there is one more.
template <std::size_t N>
std::size_t column_of(const std::array<double, N>& limits, double section) {
    std::size_t column = 0;
    while (column < N && section > limits[column]) ++column;
    return column;
}

constexpr std::array<double, 3> sections = {125, 250, 500};

constexpr StartCurrents currents[durations.size()][sections.size() + 1] = {
    {{10000, 25000}, {30000, 60000}, {54000, 108000}, {120000, 240000}},
    {{8000, 16000}, {20000, 40000}, {36000, 72000}, {75000, 150000}},
    {{6000, 14000}, {15000, 30000}, {27000, 54000}, {45000, 75000}},
    {{5000, 12000}, {10000, 21000}, {18000, 36000}, {36000, 60000}},
    {{4000, 9000}, {7500, 15000}, {13500, 26000}, {24000, 48000}},
    {{2500, 6000}, {5000, 10000}, {9000, 18000}, {18000, 32000}},
    {{1500, 4000}, {4000, 8000}, {7200, 14400}, {16000, 24000}},
    {{1200, 3000}, {2500, 5000}, {3600, 7200}, {9000, 20000}},
    {{1000, 2000}, {2000, 4000}, {3600, 7200}, {4500, 9000}},
    {{800, 1600}, {2000, 4000}, {3600, 7200}, {4000, 8000}},
    {{600, 1200}, {1500, 3000}, {3600, 7200}, {3000, 6000}},
    {{500, 1000}, {1500, 3000}, {1800, 3600}, {2500, 5000}},
    {{500, 1000}, {1500, 3000}, {1800, 3600}, {2500, 5000}},
};

constexpr std::array<double, 4> excel_sections = {125, 250, 500, 1000};

// docs/methods.md tells how these were chosen.
constexpr StartCurrents factors[durations.size()][excel_sections.size() + 1] = {
    {{16, 28}, {20, 40}, {25, 50}, {30, 60}, {40, 80}},
    {{10, 20}, {14, 30}, {18, 36}, {22, 44}, {30, 60}},
    {{7, 15}, {9, 18}, {11, 22}, {14, 28}, {20, 40}},
    {{5, 10}, {6, 13}, {8, 16}, {10, 20}, {15, 30}},
    {{3.4, 6.5}, {4.5, 9}, {5.5, 11}, {7, 14}, {10, 20}},
    {{2.7, 5}, {3.5, 7}, {4, 8}, {5, 10}, {7, 14}},
    {{2.5, 5}, {2.7, 5.4}, {3, 6}, {3.5, 7}, {5, 10}},
    {{1.7, 3.2}, {1.9, 3.6}, {2.1, 4.2}, {2.5, 5}, {3, 6}},
    {{1.3, 2}, {1.4, 2.2}, {1.5, 2.6}, {1.7, 3}, {2, 4}},
    {{1.1, 1.3}, {1.2, 1.6}, {1.25, 1.8}, {1.35, 2.2}, {1.7, 3}},
    {{1.05, 1.2}, {1.1, 1.4}, {1.15, 1.6}, {1.25, 1.8}, {1.4, 1.8}},
    {{1.025, 1.05}, {1.06, 1.2}, {1.1, 1.4}, {1.15, 1.6}, {1.3, 1.8}},
    {{1.0125, 1.025}, {1.03, 1.12}, {1.07, 1.3}, {1.12, 1.4}, {1.2, 1.7}},
};

}  // namespace

StartCurrents TS_InitialCurrents(double section, double duration) {
    return currents[row_of(duration)][column_of(sections, section)];
}

StartCurrents excel_start_factors(double section, double duration) {
    return factors[row_of(duration)][column_of(excel_sections, section)];
}

}  // namespace zel
