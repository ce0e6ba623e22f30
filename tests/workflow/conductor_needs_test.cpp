#include "workflow/rules/conductor_needs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/tb601_cases.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

constexpr auto English = LangId::English;

TEST(ConductorNeeds, nothing_is_missing_of_a_whole_conductor) {
    const CalcCase c = line_264_34();
    for (const Method method : {Method::TB601, Method::TB207, Method::Webs, Method::Kirn})
        EXPECT_THAT(missing_for(c, method, English), IsEmpty()) << key_of(method);
    EXPECT_THAT(missing_for(c, Method::TBB, English), SizeIs(1));
}

TEST(ConductorNeeds, tells_every_missing_value_in_one_line) {
    CalcCase c = line_264_34();
    c.DrahtlagenzahlLeiter_db = 0;
    c.DrahtdurchmesserLeiter_db = {};
    c.KniepunktTemperatur_db = {};
    EXPECT_THAT(missing_for(c, Method::TB601, English),
                ElementsAre("Conductor layer data: Diameter of wires",
                            "Conductor layer data: Number of layers",
                            "You havn't made an input for the knee-point-temperature of the "
                            "composite conductor."));
    EXPECT_THAT(missing_for(c, Method::TB207, LangId::German),
                ElementsAre("Drahtdurchmesser des Leiterwerkstoffes.", "Drahtlagenanzahl"));
    EXPECT_THAT(missing_for(c, Method::Kirn, English), IsEmpty());
}

TEST(ConductorNeeds, plays_no_part_what_else_the_case_selects) {
    CalcCase c = line_264_34();
    const auto alone = missing_for(c, Method::TBB, English);
    c.rechnung_TBB_merker_db = 1;
    c.rechnung_webs_merker_db = 1;
    c.Windgeschwindigkeit_db = {};
    EXPECT_EQ(missing_for(c, Method::TBB, English), alone);
    EXPECT_THAT(missing_for(c, Method::TB601, English), IsEmpty());
}

TEST(ConductorNeeds, tubes_are_for_the_busbar_method_alone) {
    CalcCase c;
    for (const Method method : all_methods) EXPECT_TRUE(is_for_kind(c, method));
    c.conductor_type_db = tubular_busbar;
    for (const Method method : all_methods)
        EXPECT_EQ(is_for_kind(c, method), method == Method::TBB) << key_of(method);
    c.conductor_type_db = composite_core_conductor;
    for (const Method method : all_methods)
        EXPECT_EQ(is_for_kind(c, method), method != Method::TBB) << key_of(method);
}

}  // namespace
}  // namespace zel
