#include <benchmark/benchmark.h>

#include "steady/kirn.h"
#include "steady/steady_solver.h"
#include "steady/webs.h"

// One solution in each mode by Webs, by Kirn and for a tubular busbar.

namespace {

using namespace zel;

Entry given(double value) { return {"given", value}; }

/// 264-AL1/34-ST1A on a day in June at 35 °C, 0.6 m/s across and 900 W/m².
CalcCase line() {
    CalcCase c;
    c.Winkel_S_S_db = given(90);
    c.geogr_Breite_db = given(48.1);
    c.geo_laeng_db = given(-11.6);
    c.geo_laeng_zeit_db = given(-15);
    c.Tag_db = given(21);
    c.Monat_db = given(6);
    c.Stunden_db = given(13);
    c.Windgeschwindigkeit_db = given(0.6);
    c.Umgebungstemperatur_db = given(35);
    c.Globalstrahlung_db = given(900);
    c.Bodentemp_db = given(35);
    c.Bodenart_db = given(0.2);
    c.Bewoelkungsgrad_db = given(0.75);
    c.Feldlaenge_db = given(300);
    c.Hoehendifferenz_db = given(10);
    c.Netzfrequenz_db = given(50);
    c.Emissionsverhaeltnis_db = given(0.6);
    c.Seildurchmesser_db = given(22.4);
    c.DCR_20_db = given(0.1095);
    c.DC_Resist_Leiter_db = given(28.264);
    c.T_Koeff_DC_Resist_Leiter_linear_db = given(4.03);
    return c;
}

SteadyInputBlock tube() {
    CalcCase c = line();
    c.rechnung_TBB_merker_db = 1;
    c.Seildurchmesser_db = given(120);
    c.DrahtdurchmesserLeiter_db = given(8);
    return steady_input(c, 90);
}

struct Quiet {
    RecordingDialogs dialogs;
    WebsQuestions questions{{{RunMode::Silent, LangId::English, dialogs}}};
};

void webs_current(benchmark::State& state) {
    Quiet quiet;
    const WebsInput in = webs_input(line(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(S1_Rechnung_strom_webs(in, 80, quiet.questions));
}
BENCHMARK(webs_current);

void webs_temperature(benchmark::State& state) {
    Quiet quiet;
    const WebsInput in = webs_input(line(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(S2_Rechnung_temp_webs(in, 600, quiet.questions));
}
BENCHMARK(webs_temperature);

void kirn_current(benchmark::State& state) {
    const KirnInput in = kirn_input(line(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(S1_Rechnung_strom_kirn(in, 80));
}
BENCHMARK(kirn_current);

void kirn_temperature(benchmark::State& state) {
    const KirnInput in = kirn_input(line(), 90);
    for (auto _ : state) benchmark::DoNotOptimize(S2_Rechnung_temp_kirn(in, 600));
}
BENCHMARK(kirn_temperature);

void busbar_current(benchmark::State& state) {
    const SteadyInputBlock in = tube();
    for (auto _ : state) benchmark::DoNotOptimize(solve_current(in, 80));
}
BENCHMARK(busbar_current);

void busbar_temperature(benchmark::State& state) {
    const SteadyInputBlock in = tube();
    for (auto _ : state) benchmark::DoNotOptimize(solve_temperature(in, 2500));
}
BENCHMARK(busbar_temperature);

}  // namespace
