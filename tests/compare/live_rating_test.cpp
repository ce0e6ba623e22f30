#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "compare/live_rating.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"
#include "fakes/transient_cases.h"
#include "forms/line_form.h"
#include "steady/case/case_fields.h"
#include "workflow/run/transient_memory.h"

namespace zel {
namespace {

using testing::HasSubstr;
using C = CalcCase;

/// Boxes would be shown: whoever rates must see to it that none comes.
class Live : public testing::Test {
protected:
    void type(Entry CalcCase::*field, const std::string& text) {
        pending = {{forms::row_of(forms::line_sections(), field_of(field)), text}};
        rating.update(c, pending, session);
    }
    [[nodiscard]] std::string result() const {
        return rating.run() == nullptr ? "" : rating.run()->result.methods.front().result;
    }
    void TearDown() override { EXPECT_TRUE(dialogs.shown.empty()); }

    ScriptedDialogs dialogs;
    MethodMemory memory;
    Session session{{}, RunMode::Messages, dialogs, &memory};
    CalcCase c = sunny_264_34();
    std::vector<forms::PendingText> pending;
    LiveRating rating;
};

/// Each text, and what stands where the result does not follow it.
TEST_F(Live, follows_what_is_typed_and_keeps_the_last_result_of_whole_inputs) {
    const struct {
        Entry C::*field;
        std::string text;
        std::string reason;
    } rows[] = {
        {&C::Windgeschwindigkeit_db, "2.5", ""},
        {&C::Windgeschwindigkeit_db, "2.", "Wind speed: 2. is not typed to its end"},
        {&C::Windgeschwindigkeit_db, "-", "Wind speed: - is not typed to its end"},
        {&C::Windgeschwindigkeit_db, "1e-", "Wind speed: 1e- is not typed to its end"},
        {&C::Windgeschwindigkeit_db, "80.5", "0 to 80 m/s"},
        {&C::Windgeschwindigkeit_db, "abc", "can not be identified as a number"},
        {&C::Windgeschwindigkeit_db, "", "wind speed at conductor level"},
        {&C::Windgeschwindigkeit_db, "0", ""},
        {&C::Netzfrequenz_db, "0", "frequency"},
        {&C::Umgebungstemperatur_db, "-5", ""},
    };
    const CalcCase before = c;
    for (const auto& row : rows) {
        const std::string former = result();
        type(row.field, row.text);
        if (!row.reason.empty()) {
            EXPECT_THAT(rating.reason(), HasSubstr(row.reason)) << row.text;
            EXPECT_EQ(result(), former) << row.text;
            continue;
        }
        EXPECT_EQ(rating.reason(), "") << row.text;
        CalcCase entered = c;
        (void)forms::LineForm(entered, session).enter(*pending.front().row, row.text);
        ScriptedDialogs page;
        EXPECT_EQ(result(), RunSteady(entered, session.apart(page, nullptr)).methods.front().result)
            << row.text;
        EXPECT_NE(result(), former) << row.text;
    }
    EXPECT_EQ(c, before);
}

TEST_F(Live, tells_no_result_where_none_was_ever_whole) {
    c.Netzfrequenz_db = {};
    rating.update(c, {}, session);
    EXPECT_EQ(rating.run(), nullptr);
    EXPECT_THAT(rating.reason(), HasSubstr("frequency"));
}

/// TB 601 keeps records from run to run, from which the next transient starts.
TEST_F(Live, leaves_what_the_methods_remember) {
    c.rechnung_cigre207_merker_db = 0;
    c.rechnung_cigre601_merker_db = 1;
    c.T_Koeff_DC_Resist_Leiter_quadrat_db = typed(0);
    c.KerndurchmesserTraeger_db = typed(7.47);
    c.KernquerschnittTraeger_db = typed(34.1);
    c.radialthermalconductivity_unter_KPT_db = typed(2);
    c.radialthermalconductivity_ueber_KPT_db = typed(2);
    c.KniepunktTemperatur_db = typed(100);
    c.ACDC_R_Option_Merker_db = 1;
    (void)RunSteady(c, session.apart(dialogs, &memory));
    dialogs.shown.clear();
    const double before = memory.tb601.state.I;
    type(&C::Windgeschwindigkeit_db, "5");
    EXPECT_TRUE(rating.has_moved()) << rating.reason();
    EXPECT_EQ(memory.tb601.state.I, before);
    EXPECT_NE(rating.run()->result.methods.front().outcome.current_A, before);
    rating.update(c, pending, session);
    EXPECT_FALSE(rating.has_moved());
}

TEST_F(Live, looks_further_until_it_is_stopped) {
    c = bundle_with_rows({typed_time_row(1600, 95), typed_temperature_row(1000, 10, 0)});
    rating.update(c, {}, session);
    ASSERT_NE(rating.run(), nullptr) << rating.reason();
    int questions = 0;
    const Outlook found = *outlook(*rating.run(), session, [&] { return ++questions > 0; });
    EXPECT_THAT(sensitivity_line(*found.sensitivity, 2, session),
                testing::StartsWith("What moves Cigre TB 207 most: "));
    CalcCase run = c;
    TransientMemory start;
    start.keep(RunSteady(run, silent(session, &memory)), run);
    TransientResult transient;
    RunTransient(run, start.basis(), silent(session, &memory), {}, transient);
    ASSERT_TRUE(found.transient);
    EXPECT_EQ(found.transient->rows, transient.rows);
    EXPECT_THAT(transient_line(found, session), HasSubstr("Changes of state: 1: "));
    for (int stop_after = 0; stop_after < questions; stop_after += 7) {
        int asked = 0;
        EXPECT_FALSE(outlook(*rating.run(), session, [&] { return asked++ < stop_after; }))
            << stop_after;
    }
}

/// 90° is the last angle of its branch: 95° counts as 5°.
TEST_F(Live, marks_a_step_across_the_fold) {
    c = twin_264_34();
    Sensitivity found = *sensitivity(c, session);
    EXPECT_TRUE(found.lines.front().across_fold);
    EXPECT_THAT(sensitivity_text(found, session), HasSubstr(" + 5° *"));
    EXPECT_THAT(sensitivity_text(found, session), HasSubstr("counts from 0° again"));
    c.Winkel_W_S_db = typed(80);
    found = *sensitivity(c, session);
    EXPECT_EQ(fold_note(found, LangId::English), "");
}

}  // namespace
}  // namespace zel
