#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "compare/comparison.h"
#include "compare/sensitivity_picture.h"
#include "fakes/memory_canvas.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Compare : public testing::Test {
protected:
    KeptRun kept(const std::string& name, CalcCase c) {
        SteadyRunResult result = RunSteady(c, session);
        return {name, std::move(c), std::move(result)};
    }
    CalcCase windy(double speed) {
        CalcCase c = twin_264_34();
        c.Windgeschwindigkeit_db = typed(speed);
        return c;
    }
    ScriptedDialogs dialogs;
    Session session{{}, RunMode::Silent, dialogs};
};

std::vector<std::string_view> fields_of(const std::vector<ComparedRow>& rows) {
    std::vector<std::string_view> fields;
    for (const ComparedRow& row : rows) fields.push_back(row.field);
    return fields;
}

TEST_F(Compare, only_what_was_typed_otherwise_is_a_change) {
    KeptRun first = kept("1", windy(0.6));
    CalcCase c = windy(0.6);
    c.Windgeschwindigkeit_db.text = "0.60";
    c.Feldlaenge_db = typed(300);  // read by no selected method
    const KeptRun same = kept("2", c);
    c.Gravi_merker1_db = 2;
    c.Umgebungstemperatur_db = typed(20);
    const KeptRun other = kept("3", c);
    const std::vector<const KeptRun*> runs = {&first, &same, &other};
    EXPECT_THAT(changed_inputs(std::span(runs).first(2), session), testing::IsEmpty());
    const auto changed = changed_inputs(runs, session);
    EXPECT_THAT(fields_of(changed), ElementsAre("Gravi_merker1_db", "Umgebungstemperatur_db"));
    EXPECT_EQ(changed[1].label + " " + changed[1].unit, "Ambient temperature °C");
    EXPECT_THAT(changed[1].values, ElementsAre(ComparedValue{"35", 35}, ComparedValue{"35", 35},
                                               ComparedValue{"20", 20}));
}

/// A current that follows from the given one is no input of its own.
TEST_F(Compare, derived_currents_are_no_change) {
    const KeptRun one = kept("1", twin_264_34_at(500));
    const KeptRun other = kept("2", twin_264_34_at(600));
    const std::vector<const KeptRun*> runs = {&one, &other};
    EXPECT_THAT(fields_of(changed_inputs(runs, session)), ElementsAre("Stromstaerke_db"));
    const std::string text = comparison_text(compare(runs, ComparedInputs::Changed, session));
    EXPECT_THAT(text, HasSubstr("* Cigre TB 207, current of the bundle"));
    EXPECT_THAT(text, HasSubstr("1000 A   1200 A"));
    EXPECT_THAT(text, testing::Not(HasSubstr("Wind speed")));
    const SheetDesign sheet =
        comparison_sheet(compare(runs, ComparedInputs::All, session), session);
    const auto is_wind = [](const DesignCell& cell) {
        return cell.content == decltype(cell.content)(std::string("Wind speed"));
    };
    EXPECT_EQ(std::count_if(sheet.cells.begin(), sheet.cells.end(), is_wind), 1);
}

TEST_F(Compare, history_keeps_pinned_runs_and_the_newest) {
    RunHistory history;
    for (int i = 0; i < 60; ++i) {
        history.keep(kept(std::to_string(i), windy(1 + i)));
        if (i < 8) history.pin(static_cast<std::size_t>(i), true);
    }
    history.keep(kept("again", windy(60)));
    EXPECT_EQ(history.runs().size(), RunHistory::most_kept);
    std::vector<std::string> names;
    for (const KeptRun* run : history.compared()) names.push_back(run->name);
    EXPECT_THAT(names, ElementsAre("3", "4", "5", "6", "7", "again"));
    history.pin(20, true);
    EXPECT_EQ(history.let_go(), "3");
    CalcCase of_other_line = windy(60);
    of_other_line.Projekt_db = "other line";
    history.keep(kept("other", of_other_line));
    EXPECT_EQ(history.compared().back()->name, "other");
    EXPECT_EQ(history.compared().size(), most_compared);
    EXPECT_EQ(history.runs()[history.runs().size() - 2].name, "again");
}

TEST(Command, keeps_the_shell_from_reading_the_case) {
    EXPECT_EQ(steady_command("{\"a\": \"$HOME\"}"),
              "zel steady - <<'END_OF_CASE'\n{\"a\": \"$HOME\"}\nEND_OF_CASE\n");
    EXPECT_THAT(steady_command("END_OF_CASE\n"), HasSubstr("\nEND_OF_CASE_\n"));
}

TEST_F(Compare, sensitivity_is_the_difference_of_two_runs) {
    const Sensitivity found = *sensitivity(windy(0.6), session, {{"Windgeschwindigkeit_db", 0.5}});
    ASSERT_THAT(found.methods, ElementsAre(Method::TB207));
    double former = found.lines.front().largest();
    for (const SensitivityLine& line : found.lines) {
        EXPECT_LE(line.largest(), former);
        former = line.largest();
        if (line.field->name != "Windgeschwindigkeit_db") continue;
        const auto current = [&](double wind) {
            CalcCase c = windy(wind);
            return 2 * *RunSteady(c, session).methods.front().outcome.current_A;
        };
        EXPECT_DOUBLE_EQ(line.step, 0.5);
        EXPECT_DOUBLE_EQ(*line.changes.front(), current(1.1) - current(0.6));
    }
    MemoryCanvas canvas;
    draw(canvas, *sensitivity_picture(found, Method::TB207, session));
    EXPECT_FALSE(sensitivity_picture(found, Method::Webs, session));
    EXPECT_FALSE(
        sensitivity(windy(0.6), session, {}, [](std::size_t, std::size_t) { return false; }));
}

TEST_F(Compare, a_step_beyond_a_limit_goes_the_other_way) {
    CalcCase c = windy(0.6);
    c.Emissionsverhaeltnis_db = typed(0.98);
    const Sensitivity found = *sensitivity(c, session);
    for (const SensitivityLine& line : found.lines)
        EXPECT_EQ(line.step < 0, line.field->name == "Emissionsverhaeltnis_db");
    EXPECT_THROW((void)sensitivity(c, session, {{"Feldlaenge_db", 1}}), InputError);
    EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
}  // namespace zel
