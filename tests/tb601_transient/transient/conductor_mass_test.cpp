#include "tb601_transient/transient/conductor_mass.h"

#include <gtest/gtest.h>

#include "fakes/transient_cases.h"

namespace zel {
namespace {

constexpr auto with_temperature = HeatCapacityOption::WithTemperature;
constexpr auto at_20_degrees = HeatCapacityOption::At20Degrees;

ConductorMass line_at(double Theta, std::int16_t type = steel_cored_conductor) {
    ConductorMass record = conductor_mass(with_masses(line_264_34()));
    record.ConductorType = type;
    record.Theta = Theta;
    return record;
}

// By hand: 24 wires of 3.74 mm weigh 0.71267 kg/m, 7 of 2.49 mm 0.26520 kg/m; at 20 °C that is
// 639.26 and 127.56 J/(K·m), at 80 °C 1.0228 and 1.006 times as much.
TEST(HeatCapacity, of_a_composite_conductor_by_hand) {
    for (const std::int16_t type : {steel_cored_conductor, composite_core_conductor}) {
        const auto at = [&](double Theta, HeatCapacityOption option) {
            return TS_F02_CigreTB601_MC_Theta(line_at(Theta, type), option).value;
        };
        EXPECT_NEAR(at(20, with_temperature), 766.82, 0.05);
        EXPECT_NEAR(at(80, with_temperature), 782.16, 0.05);
        EXPECT_NEAR(at(80, at_20_degrees), 766.82, 0.05);
    }
}

TEST(HeatCapacity, of_a_homogeneous_conductor_always_follows_the_temperature) {
    for (const auto option : {with_temperature, at_20_degrees})
        EXPECT_NEAR(TS_F02_CigreTB601_MC_Theta(line_at(80, homogeneous_conductor), option).value,
                    639.26 * 1.0228, 0.05);
}

// A tube of 120 by 8 mm has 2814.9 mm².
TEST(HeatCapacity, of_a_tube_is_that_of_its_wall) {
    ConductorMass tube;
    tube.D_mm = 120;
    tube.DWireAlu = 8;
    tube.RhoAlu = 2700;
    tube.CAlu20 = 900;
    tube.BetaAlu = 0.5;
    tube.Theta = 120;
    for (const auto option : {with_temperature, at_20_degrees})
        EXPECT_NEAR(TS_F02_CigreTB207_MC_Theta(tube, HeatTermMethod::TBB, option).value,
                    2814.9e-6 * 2700 * 900 * 1.05, 0.5);
}

TEST(HeatCapacity, is_the_same_by_both_methods_and_none_without) {
    const ConductorMass record = line_at(80);
    EXPECT_EQ(TS_F02_CigreTB207_MC_Theta(record, HeatTermMethod::TB207, with_temperature).value,
              TS_F02_CigreTB601_MC_Theta(record, with_temperature).value);
    EXPECT_EQ(TS_F02_CigreTB207_MC_Theta(record, HeatTermMethod::None, with_temperature).value, 0);
}

TEST(HeatCapacity, knows_no_other_type) {
    for (const std::int16_t type : {std::int16_t{0}, std::int16_t{tubular_busbar}, std::int16_t{5}})
        EXPECT_TRUE(TS_F02_CigreTB601_MC_Theta(line_at(80, type), with_temperature).unknown_type);
    for (const std::int16_t type : {homogeneous_conductor, steel_cored_conductor})
        EXPECT_FALSE(TS_F02_CigreTB601_MC_Theta(line_at(80, type), with_temperature).unknown_type);
}

TEST(HeatCapacity, record_holds_the_fields_of_the_case) {
    CalcCase c = with_masses(line_264_34());
    const ConductorMass record = conductor_mass(c);
    EXPECT_EQ(record.D_mm, 22.4);
    EXPECT_EQ(record.NAlu, 24);
    EXPECT_EQ(record.RhoAlu, 2703);
    EXPECT_EQ(record.DWireAlu, 3.74);
    EXPECT_EQ(record.CAlu20, 897);
    EXPECT_EQ(record.BetaAlu, 0.38);
    EXPECT_EQ(record.NCore, 7);
    EXPECT_EQ(record.RhoCore, 7780);
    EXPECT_EQ(record.DWireCore_mm, 2.49);
    EXPECT_EQ(record.CCore20, 481);
    EXPECT_EQ(record.BetaCore, 0.1);
    EXPECT_EQ(record.ConductorType, 2);
}

}  // namespace
}  // namespace zel
