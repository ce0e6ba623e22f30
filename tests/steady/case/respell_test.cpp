#include "steady/case/respell.h"

#include <gtest/gtest.h>

#include "fakes/steady_cases.h"

namespace zel {
namespace {

TEST(Respell, changes_the_separator_of_numbers_and_nothing_else) {
    CalcCase c = twin_264_34();
    c.Projekt_db = "1.5";
    c.Z[5].TEMP = {"80.5", 80.5};
    c.Bodentemp_db = {"-", 0};
    const CalcCase before = c;
    respell(c, DecimalSeparator::Point, DecimalSeparator::Comma);
    EXPECT_EQ(c.Windgeschwindigkeit_db, (Entry{"0,6", 0.6}));
    EXPECT_EQ(c.Z[5].TEMP, (Entry{"80,5", 80.5}));
    EXPECT_EQ(c.Projekt_db, "1.5");
    EXPECT_EQ(c.Bodentemp_db.text, "-");
    respell(c, DecimalSeparator::Comma, DecimalSeparator::Point);
    EXPECT_EQ(c, before);
}

}  // namespace
}  // namespace zel
