#include "workflow/wind.h"

#include <gtest/gtest.h>

namespace zel {
namespace {

TEST(FoldedAngle, is_folded_by_subtraction_at_each_quarter) {
    const struct {
        double wind, conductor, folded;
    } rows[] = {
        {0, 0, 0},        {0, 90, 90},     {0, 90.1, 0.1}, {100, 0, 10},    {0, 150, 60},
        {0, 180, 90},     {0, 180.5, 0.5}, {270, 0, 90},   {0, 270.5, 0.5}, {0, 360, 90},
        {359.9, 0, 89.9}, {45, 10, 35},    {10, 45, 35},   {-1, 360, 361},  {20, 290, 90},
    };
    for (const auto& [wind, conductor, folded] : rows)
        EXPECT_NEAR(fold_angle(wind, conductor), folded, 1e-9) << wind << " to " << conductor;
}

TEST(PerpendicularWind, is_the_part_of_the_wind_across_the_conductor) {
    EXPECT_NEAR(perpendicular_wind(0.6, 60), 0.519615242, 1e-9);
    EXPECT_NEAR(perpendicular_wind(0.5, 10), 0.0868240888, 1e-9);
    EXPECT_EQ(perpendicular_wind(3, 0), 0);
}

}  // namespace
}  // namespace zel
