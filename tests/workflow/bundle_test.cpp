#include "workflow/bundle.h"

#include <gtest/gtest.h>

#include "fakes/steady_cases.h"

namespace zel {
namespace {

TEST(Bundle, is_named_from_one_to_eight) {
    EXPECT_EQ(bundle_name(1).de, "Einzel-Leiter");
    EXPECT_EQ(bundle_name(1).en, "single conductor");
    EXPECT_EQ(bundle_name(2).de, "Doppel-Leiter");
    EXPECT_EQ(bundle_name(8).en, "8-conductor-bundle");
    EXPECT_EQ(bundle_name(0).de, "");
    EXPECT_EQ(bundle_name(9).en, "");
}

TEST(BundleCurrent, of_a_given_sub_conductor_current_is_the_multiple_unformatted) {
    CalcCase c = twin_264_34_at(500.125);
    c.Anzahl_Teilleiter_db = 3;
    S_Stromstaerke_buendel(c, DecimalSeparator::Comma);
    EXPECT_EQ(c.Stromstaerke_Buendel.text, "1500,375");
    EXPECT_EQ(c.Stromstaerke_Buendel.value, 1500.375);
    EXPECT_EQ(c.Stromstaerke_db.text, "500.125");
}

TEST(BundleCurrent, when_given_sets_the_sub_conductor_to_the_unrounded_quotient) {
    const struct {
        std::int16_t n;
        double bundle;
        const char* shown;
        double quotient;
    } rows[] = {
        {3, 1500, "500.00", 500}, {3, 1000, "333.33", 1000 / 3.0}, {7, 699.9, "99.99", 699.9 / 7},
        {1, 0, "0.00", 0},        {8, 0.4, "0.05", 0.05},          {19, 1900, "100.00", 100},
    };
    for (const auto& [n, bundle, shown, quotient] : rows) {
        CalcCase c = twin_264_34_at(0);
        c.Stromstaerkebuendel_Merker_db = true;
        c.Anzahl_Teilleiter_db = n;
        c.Stromstaerke_Buendel = typed(bundle);
        S_Stromstaerke_buendel(c, DecimalSeparator::Point);
        EXPECT_EQ(c.Stromstaerke_db.text, shown) << bundle;
        EXPECT_EQ(c.Stromstaerke_db.value, quotient) << bundle;
        EXPECT_EQ(c.Stromstaerke_Buendel.value, bundle);
    }
}

TEST(BundleCurrent, stays_apart_from_the_sub_conductors_beyond_nineteen) {
    for (const std::int16_t n : {std::int16_t{0}, std::int16_t{20}}) {
        CalcCase c = twin_264_34_at(7);
        c.Stromstaerkebuendel_Merker_db = true;
        c.Anzahl_Teilleiter_db = n;
        c.Stromstaerke_Buendel = typed(1500);
        S_Stromstaerke_buendel(c, DecimalSeparator::Point);
        EXPECT_EQ(c.Stromstaerke_db.value, 7) << n;
    }
}

TEST(BundleCurrent, is_left_alone_where_the_temperature_is_given) {
    CalcCase c = twin_264_34();
    S_Stromstaerke_buendel(c, DecimalSeparator::Point);
    EXPECT_FALSE(c.Stromstaerke_Buendel.given());
    EXPECT_FALSE(c.Stromstaerke_db.given());
}

TEST(Bundle, entered_case_has_no_derived_current) {
    CalcCase c;
    c.Anzahl_Teilleiter_db = 2;
    c.Stromstaerke_Merker_db = true;
    c.Stromstaerke_db = {"600", 600};
    const CalcCase entered = c;
    S_Stromstaerke_buendel(c, DecimalSeparator::Point);
    EXPECT_TRUE(c.Stromstaerke_Buendel.given());
    EXPECT_EQ(without_derived_current(c), entered);
    c.Stromstaerkebuendel_Merker_db = true;
    EXPECT_TRUE(without_derived_current(c).Stromstaerke_Buendel.given());
    EXPECT_FALSE(without_derived_current(c).Stromstaerke_db.given());
}

}  // namespace
}  // namespace zel
