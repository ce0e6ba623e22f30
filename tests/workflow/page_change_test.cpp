#include "workflow/page_change.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "workflow/steady_methods.h"

namespace zel {
namespace {

using testing::ElementsAre;

CalcCase with(Method method) {
    CalcCase c;
    c.*flag_of(method) = 1;
    return c;
}

TEST(PageChange, conductor_page_needs_a_method) {
    const PageChange change = change_page({}, input_page, conductor_page, LangId::German);
    EXPECT_EQ(change.page, input_page);
    ASSERT_TRUE(change.refusal);
    EXPECT_EQ(change.refusal->title, "Eingabeprüfung");
    EXPECT_THAT(change.refusal->lines,
                ElementsAre("Sie müssen zunächst mindestens ein Berechnungsverfahren:",
                            "Cigre TB207 / TB601, Webs, Kirn oder Puffer",
                            "in der aktuell angezeigten Registerkarte auswählen!"));
}

TEST(PageChange, refusal_is_told_in_english_too) {
    const PageChange change = change_page({}, result_page, conductor_page, LangId::English);
    EXPECT_EQ(change.page, input_page);
    ASSERT_TRUE(change.refusal);
    EXPECT_EQ(change.refusal->title, "Input verification");
    EXPECT_THAT(change.refusal->lines,
                ElementsAre("You have to chose first at least one calculation method:",
                            "Cigre TB207 / TB601, Webs, Kirn or Puffer",
                            "within the viewed datasheet !"));
}

TEST(PageChange, each_method_alone_opens_the_conductor_page) {
    for (const Method method : all_methods) {
        const auto change = change_page(with(method), input_page, conductor_page, LangId::English);
        EXPECT_EQ(change.page, conductor_page) << key_of(method);
        EXPECT_FALSE(change.refusal) << key_of(method);
    }
}

TEST(PageChange, every_arrival_at_the_result_page_runs) {
    for (const int from : {input_page, conductor_page, transient_page})
        EXPECT_TRUE(change_page({}, from, result_page, LangId::English).runs) << from;
    EXPECT_FALSE(change_page({}, result_page, input_page, LangId::English).runs);
    EXPECT_FALSE(change_page({}, result_page, transient_page, LangId::English).runs);
}

TEST(PageChange, balance_is_cleared_on_the_way_from_the_inputs) {
    const struct {
        int from, to;
        bool clears;
    } rows[] = {
        {input_page, conductor_page, true},   {input_page, result_page, true},
        {conductor_page, result_page, true},  {conductor_page, transient_page, true},
        {conductor_page, input_page, false},  {result_page, input_page, false},
        {result_page, transient_page, false}, {transient_page, result_page, false},
    };
    for (const auto& [from, to, clears] : rows)
        EXPECT_EQ(change_page(with(Method::TB207), from, to, LangId::English).clears_balance,
                  clears)
            << from << " to " << to;
}

}  // namespace
}  // namespace zel
