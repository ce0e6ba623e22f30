#include <gtest/gtest.h>

#include <bit>
#include <random>
#include <thread>

#include "fakes/steady_cases.h"
#include "platform/program_end.h"
#include "workflow/steady_run.h"

// Several runs side by side in one process must not see each other: every number of a few thousand
// mixed cases is the same to the last bit on one thread and on two.

namespace zel {
namespace {

constexpr std::size_t case_count = 3000;

/// A line or a tube in any weather, by any method, in either mode; some of them find no solution.
CalcCase mixed_case(std::mt19937& random) {
    const auto within = [&](double low, double high) {
        return typed(std::uniform_real_distribution<double>(low, high)(random));
    };
    const auto one_of = [&](int low, int high) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(low, high)(random));
    };
    CalcCase c = one_of(0, 1) == 0 ? twin_264_34() : twin_264_34_at(0);
    c.Leitertemp_db = within(20, 150);
    c.Stromstaerke_db = within(0, 2000);
    const bool tube = one_of(0, 4) == 0;
    c.rechnung_cigre207_merker_db = tube ? 0 : 1;
    c.rechnung_cigre601_merker_db = c.rechnung_cigre207_merker_db;
    c.rechnung_webs_merker_db = c.rechnung_cigre207_merker_db;
    c.rechnung_kirn_merker_db = c.rechnung_cigre207_merker_db;
    c.rechnung_TBB_merker_db = tube ? 1 : 0;
    c.conductor_type_db = tube ? one_of(3, 3) : one_of(1, 2);
    c.DrahtlagenzahlLeiter_db = one_of(2, 3);
    c.Mantelquerschnitt_db = within(100, 600);
    c.Seildurchmesser_db = within(10, 60);
    c.Windgeschwindigkeit_db = within(0, 20);
    c.Winkel_W_S_db = within(0, 359);
    c.Winkel_S_S_db = within(0, 360);
    c.Umgebungstemperatur_db = within(-20, 60);
    c.Globalstrahlung_db = within(0, 1300);
    c.Bodentemp_db = within(0, 40);
    c.Bodenart_db = within(0, 1);
    c.Bewoelkungsgrad_db = within(0, 1);
    c.geogr_Breite_db = within(40, 60);
    c.geo_laeng_db = within(-20, 10);
    c.geo_laeng_zeit_db = typed(-15);
    c.Tag_db = typed(one_of(1, 28));
    c.Monat_db = typed(one_of(1, 12));
    c.Stunden_db = typed(one_of(0, 23));
    c.Minuten_db = typed(one_of(0, 59));
    c.Feldlaenge_db = within(100, 500);
    c.Hoehendifferenz_db = within(0, 50);
    c.KerndurchmesserTraeger_db = typed(7.47);
    c.ACDC_R_Option_Merker_db = 1;
    c.T_Koeff_DC_Resist_Leiter_quadrat_db = typed(0);
    c.radialthermalconductivity_unter_KPT_db = typed(2);
    c.KniepunktTemperatur_db = within(60, 120);
    c.radialthermalconductivity_ueber_KPT_db = typed(1.5);
    return c;
}

/// All that a run leaves, as numbers and statuses in one text of full precision.
std::string outcome_of(CalcCase c) {
    RecordingDialogs dialogs;
    const Session session = {LangId::English, DecimalSeparator::Point, RunMode::Silent, dialogs};
    try {
        const SteadyRunResult result = RunSteady(c, session);
        std::string text = result.input_valid ? "" : "refused " + joined(result.refusal.lines, " ");
        for (const MethodResult& line : result.methods) {
            const MethodOutcome& outcome = line.outcome;
            text += line.result + outcome.status;
            for (const auto& value : {outcome.current_A, outcome.temperature_C})
                text += value ? std::to_string(std::bit_cast<std::uint64_t>(*value)) + " " : "-";
        }
        return text;
    } catch (const ProgramEnd& end) {
        return end.what();
    }
}

TEST(SteadyRuns, side_by_side_are_the_same_to_the_last_bit) {
    std::mt19937 random(20141207);
    std::vector<CalcCase> cases;
    for (std::size_t i = 0; i < case_count; ++i) cases.push_back(mixed_case(random));
    std::vector<std::string> alone(case_count);
    std::vector<std::string> together(case_count);
    const auto run = [&](std::vector<std::string>& results, std::size_t first, std::size_t step) {
        for (std::size_t i = first; i < case_count; i += step) results[i] = outcome_of(cases[i]);
    };
    run(alone, 0, 1);
    std::thread other([&] { run(together, 0, 2); });
    run(together, 1, 2);
    other.join();
    std::size_t refused = 0;
    std::size_t failed = 0;
    for (std::size_t i = 0; i < case_count; ++i) {
        EXPECT_EQ(alone[i], together[i]);
        if (alone[i].starts_with("refused")) ++refused;
        if (alone[i].find("Error") != std::string::npos) ++failed;
    }
    EXPECT_EQ(refused, 0U);
    EXPECT_GT(failed, 10U);
    EXPECT_LT(failed, case_count / 2);
}

}  // namespace
}  // namespace zel
