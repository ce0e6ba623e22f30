#include "workflow/run/transient.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/scripted_dialogs.h"
#include "fakes/transient_cases.h"
#include "workflow/run/transient_memory.h"

namespace zel {
namespace {

using testing::SizeIs;

class TransientTest : public testing::Test {
protected:
    void steady(CalcCase& c) { kept.keep(RunSteady(c, session), c); }
    TransientResult run(CalcCase& c, const TransientObserver& observer = {}) {
        TransientResult result;
        RunTransient(c, kept.basis(), session, observer, result);
        return result;
    }
    TransientResult run_from_steady(CalcCase& c) {
        steady(c);
        return run(c);
    }

    ScriptedDialogs dialogs;
    MethodMemory memory;
    Session session{LangId::English, DecimalSeparator::Point, RunMode::Messages, dialogs, &memory};
    TransientMemory kept;
};

void select(CalcCase& c, std::initializer_list<Method> methods) {
    for (const Method method : all_methods) c.*flag_of(method) = 0;
    for (const Method method : methods) c.*flag_of(method) = 1;
}

/// `bundle_with_rows` with what TB 601 reads.
CalcCase line_with_rows(std::initializer_list<StateChange> rows) {
    CalcCase c = bundle_with_rows(rows);
    const CalcCase line = line_264_34();
    c.ACDC_R_Option_Merker_db = line.ACDC_R_Option_Merker_db;
    c.T_Koeff_DC_Resist_Leiter_quadrat_db = line.T_Koeff_DC_Resist_Leiter_quadrat_db;
    c.KerndurchmesserTraeger_db = line.KerndurchmesserTraeger_db;
    c.radialthermalconductivity_unter_KPT_db = line.radialthermalconductivity_unter_KPT_db;
    c.KniepunktTemperatur_db = line.KniepunktTemperatur_db;
    c.radialthermalconductivity_ueber_KPT_db = line.radialthermalconductivity_ueber_KPT_db;
    return c;
}

TEST(TransientMethod, tb207_goes_before_the_busbar_method_and_that_before_tb601) {
    CalcCase c;
    EXPECT_FALSE(transient_method(c));
    select(c, {Method::Webs, Method::Kirn});
    EXPECT_FALSE(transient_method(c));
    select(c, {Method::TB601, Method::Webs});
    EXPECT_EQ(transient_method(c), Method::TB601);
    select(c, {Method::TB601, Method::TBB});
    EXPECT_EQ(transient_method(c), Method::TBB);
    select(c, {Method::TB601, Method::TB207, Method::TBB});
    EXPECT_EQ(transient_method(c), Method::TB207);
}

TEST_F(TransientTest, refused_or_failed_run_keeps_the_former_start) {
    CalcCase c = bundle_with_rows({});
    steady(c);
    const TransientBasis former = kept.basis();
    CalcCase refused = c;
    refused.Windgeschwindigkeit_db = {};
    steady(refused);
    EXPECT_EQ(kept.basis(), former);
    CalcCase hot = c;
    hot.Umgebungstemperatur_db = typed(90);  // above the conductor: no current to be found
    steady(hot);
    EXPECT_EQ(kept.basis().start, former.start);
    EXPECT_EQ(kept.basis().Is_TB207, 0);  // " Error" is no number
}

TEST_F(TransientTest, cancelled_run_leaves_the_case) {
    CalcCase c = bundle_with_rows({typed_current_row(90, 60, 0)});
    c.Z[0].Strom = twin_current(1234);
    steady(c);
    const CalcCase before = c;
    const TransientResult result = run(c, [](const TransientProgress&) { return false; });
    EXPECT_EQ(result.end, TransientEnd::Cancelled);
    EXPECT_EQ(c, before);
}

TEST_F(TransientTest, tb601_goes_on_from_the_records_of_the_steady_run) {
    CalcCase c = line_with_rows({});
    select(c, {Method::TB601});
    steady(c);
    c.Z[0] = typed_temperature_row(2 * kept.basis().start->current, 20, 0);
    const TransientResult result = run(c);
    EXPECT_EQ(result.method, Method::TB601);
    EXPECT_EQ(result.end, TransientEnd::Completed);
    EXPECT_NEAR(result.rows[0].Temp, 80, 0.1);  // the current of the steady state: at rest
    EXPECT_EQ(memory.tb601.params.Delta, 90);
}

TEST_F(TransientTest, series_joins_the_rows) {
    CalcCase c = bundle_with_rows({typed_temperature_row(1800, 10, 0), typed_time_row(600, 85)});
    const TransientResult result = run_from_steady(c);
    const auto series = transient_series(c, kept.basis(), result, session);
    ASSERT_TRUE(series);
    ASSERT_THAT(*series, SizeIs(2));
    EXPECT_EQ((*series)[0].points.front().time, 0);
    EXPECT_EQ((*series)[0].points.front().temperature, 80);
    EXPECT_EQ((*series)[0].points.back().time, 600);
    EXPECT_EQ((*series)[1].points.front().time, 600);
}

TEST_F(TransientTest, result_is_stale_once_an_input_has_changed) {
    CalcCase c = bundle_with_rows({typed_temperature_row(1600, 10, 0)});
    kept.keep(run_from_steady(c), c);
    EXPECT_FALSE(kept.result_is_stale(c, session));
    const auto changed = [&](auto change) {
        CalcCase other = c;
        change(other);
        return kept.result_is_stale(other, session);
    };
    EXPECT_TRUE(changed([](CalcCase& o) { o.Windgeschwindigkeit_db = typed(0.7); }));
    EXPECT_TRUE(changed([](CalcCase& o) { o.Z[0].min = typed(11); }));
    EXPECT_TRUE(changed([](CalcCase& o) { o.Z[1] = typed_time_row(800, 80); }));
    EXPECT_TRUE(changed([](CalcCase& o) { o.rechnung_cigre601_merker_db = 1; }));
    // What was found, and what no calculation reads, changes nothing.
    EXPECT_FALSE(changed([](CalcCase& o) { o.Z[0].TEMP = {}; }));
    EXPECT_FALSE(changed([](CalcCase& o) { o.Projekt_db = "other"; }));
    EXPECT_FALSE(changed([](CalcCase& o) { o.Wind1_db = typed(1); }));
    session.cigre_TKW_merker = HeatCapacityOption::At20Degrees;
    EXPECT_TRUE(kept.result_is_stale(c, session));
    session.cigre_TKW_merker = HeatCapacityOption::WithTemperature;
    // The same inputs again, after a steady run of others in between.
    CalcCase other = c;
    other.Leitertemp_db = typed(70);
    steady(other);
    EXPECT_TRUE(kept.result_is_stale(c, session));
    EXPECT_TRUE(kept.basis_is_stale(c));
    steady(c);
    EXPECT_FALSE(kept.result_is_stale(c, session));
    kept.forget();
    EXPECT_FALSE(kept.result_is_stale(c, session));
}

}  // namespace
}  // namespace zel
