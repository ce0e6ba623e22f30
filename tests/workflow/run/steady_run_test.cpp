#include "workflow/run/steady_run.h"

#include <gtest/gtest.h>

#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"

// What runs keep from one to the next; the run itself stands in tests/data/workflow_formulas.json.

namespace zel {
namespace {

struct Silent {
    RecordingDialogs dialogs;
    MethodMemory memory;
    SteadyResult run(CalcCase c, bool fresh = false) {
        return RunSteady(c, {LangId::English, DecimalSeparator::Point, RunMode::Silent, dialogs,
                             fresh ? nullptr : &memory})
            .methods.at(0)
            .outcome;
    }
};

// Without emissivity and without a difference to the air, Kirn's heat is in exact balance.
TEST(SteadyRun, keeps_the_former_current_of_kirn_where_no_heat_flows) {
    CalcCase rated = sunny_264_34();
    rated.rechnung_cigre207_merker_db = 0;
    rated.rechnung_kirn_merker_db = 1;
    CalcCase balanced = rated;
    balanced.Emissionsverhaeltnis_db = typed(0);
    balanced.Leitertemp_db = balanced.Umgebungstemperatur_db;
    Silent session;
    EXPECT_EQ(session.run(balanced).current_A, 0);
    const auto former = session.run(rated).current_A;
    EXPECT_NEAR(*former, 505.466099, 1e-5);
    EXPECT_EQ(session.run(balanced).current_A, former);
    EXPECT_EQ(session.run(balanced, true).current_A, 0);
}

TEST(SteadyRun, counts_no_emptied_field_with_its_former_number) {
    Silent session;
    CalcCase c = line_264_34();
    c.GMR_Merker_db = 1;
    const auto without = session.run(c, true).current_A;
    c.GMR_db = {"", 1.5};
    EXPECT_EQ(session.run(c, true).current_A, without);
    c.GMR_db = typed(1.5);
    EXPECT_NE(session.run(c, true).current_A, without);
}

TEST(SteadyRun, leaves_what_the_other_resistance_option_set) {
    Silent session;
    CalcCase c = line_264_34();
    c.DrahtlagenzahlLeiter_db = 3;
    const double KMag = session.run(c).tb601->KMag;
    EXPECT_GT(KMag, 1.01);
    c.ACDC_R_Option_Merker_db = resistance_by_table;
    c.ACR1_db = typed(0.11);
    c.TACR1_db = typed(20);
    c.ACR2_db = typed(0.14);
    c.TACR2_db = typed(80);
    EXPECT_EQ(session.run(c).tb601->KMag, KMag);
    c.Netzfrequenz_db = typed(0);  // direct current reads the former DC resistance
    EXPECT_TRUE(session.run(c).sound());
    EXPECT_FALSE(session.run(c, true).sound());
}

}  // namespace
}  // namespace zel
