#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <random>
#include <thread>

#include "fakes/steady_cases.h"
#include "platform/errors.h"
#include "workflow/run/steady_run.h"

// Several runs side by side in one process must not see each other: every number of a few thousand
// mixed cases is the same to the last bit on one thread and on two.

namespace zel {
namespace {

constexpr std::size_t case_count = 3000;

struct Range {
    Entry CalcCase::*field;
    double low, high;
    bool whole = false;
};
constexpr Range ranges[] = {{&CalcCase::Leitertemp_db, 20, 150},
                            {&CalcCase::Stromstaerke_db, 0, 2000},
                            {&CalcCase::Mantelquerschnitt_db, 100, 600},
                            {&CalcCase::Seildurchmesser_db, 10, 60},
                            {&CalcCase::Windgeschwindigkeit_db, 0, 20},
                            {&CalcCase::Winkel_W_S_db, 0, 359},
                            {&CalcCase::Winkel_S_S_db, 0, 360},
                            {&CalcCase::Umgebungstemperatur_db, -20, 60},
                            {&CalcCase::Globalstrahlung_db, 0, 1300},
                            {&CalcCase::Bodentemp_db, 0, 40},
                            {&CalcCase::Bodenart_db, 0, 1},
                            {&CalcCase::Bewoelkungsgrad_db, 0, 1},
                            {&CalcCase::geogr_Breite_db, 40, 60},
                            {&CalcCase::geo_laeng_db, -20, 10},
                            {&CalcCase::Tag_db, 1, 28, true},
                            {&CalcCase::Monat_db, 1, 12, true},
                            {&CalcCase::Stunden_db, 0, 23, true},
                            {&CalcCase::Minuten_db, 0, 59, true},
                            {&CalcCase::Feldlaenge_db, 100, 500},
                            {&CalcCase::Hoehendifferenz_db, 0, 50},
                            {&CalcCase::KniepunktTemperatur_db, 60, 120}};

/// A line or a tube in any weather, by any method, in either mode; some of them find no solution.
CalcCase mixed_case(std::mt19937& random) {
    const auto one_of = [&](int low, int high) {
        return static_cast<std::int16_t>(std::uniform_int_distribution<int>(low, high)(random));
    };
    CalcCase c = sunny_264_34();
    c.Stromstaerke_Merker_db = one_of(0, 1) == 0;
    c.Leitertemp_Merker_db = !c.Stromstaerke_Merker_db;
    const bool tube = one_of(0, 4) == 0;
    for (const Method method : all_methods)
        c.*flag_of(method) = (method == Method::TBB) == tube ? 1 : 0;
    c.conductor_type_db = tube ? one_of(3, 3) : one_of(1, 2);
    c.DrahtlagenzahlLeiter_db = one_of(2, 3);
    for (const auto& [field, low, high, whole] : ranges) {
        const double value = std::uniform_real_distribution<double>(low, high)(random);
        c.*field = typed(whole ? std::round(value) : value);
    }
    c.KerndurchmesserTraeger_db = typed(7.47);
    c.ACDC_R_Option_Merker_db = 1;
    c.T_Koeff_DC_Resist_Leiter_quadrat_db = typed(0);
    c.radialthermalconductivity_unter_KPT_db = typed(2);
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
        const auto add = [&](double value) {
            text += std::to_string(std::bit_cast<std::uint64_t>(value)) + " ";
        };
        for (const auto& [method, caption, shown, outcome] : result.methods) {
            text += shown + outcome.status;
            add(outcome.current_A.value_or(0));
            add(outcome.temperature_C.value_or(0));
            const auto [PJ, PS, PC, PR] = outcome.terms.value_or(HeatTerms{});
            const auto [TSurface, TCore, K, KSkin, KMag] = outcome.tb601.value_or(Tb601Details{});
            for (const double value : {PJ, PS, PC, PR, TSurface, TCore, KSkin, KMag}) add(value);
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
