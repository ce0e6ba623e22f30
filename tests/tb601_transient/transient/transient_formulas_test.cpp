#include "fakes/formulas.h"
#include "fakes/transient_cases.h"
#include "platform/errors.h"
#include "tb601_transient/transient/start_table.h"
#include "tb601_transient/transient/transient_report.h"
#include "tb601_transient/transient/transient_series.h"
#include "tb601_transient/transient/transient_stepping.h"
#include "tb601_transient/transient/transient_texts.h"

namespace zel {

using nlohmann::json;

void to_json(json& j, const StartCurrents& start) { j = {start.middle, start.high}; }
void from_json(const json& j, TransientRow& r) { r = {j[0], j[1], j[2], j[3], j[4], j[5], j[6]}; }

namespace {

/// The heat capacity of 264-AL1/34-ST1A with some fields changed, by 207, by 601, of a tube or
/// without a method (0).
json heat_capacity(json fields, int by, std::int16_t option, double Theta) {
    CalcCase c = with_masses(line_264_34());
    set_fields(c, fields);
    ConductorMass mass = conductor_mass(c);
    mass.Theta = Theta;
    const HeatTermMethod method = by == 207   ? HeatTermMethod::TB207
                                  : by == 120 ? HeatTermMethod::TBB
                                              : HeatTermMethod::None;
    const HeatCapacity capacity =
        by == 601 ? TS_F02_CigreTB601_MC_Theta(mass, HeatCapacityOption(option))
                  : TS_F02_CigreTB207_MC_Theta(mass, method, HeatCapacityOption(option));
    return capacity.unknown_type ? json("unknown type") : json(capacity.value);
}

constexpr std::string_view procedure = "TS_S01_CigreTB207_temp_strom_transient_state";

/// The box of a failed row, or of a conductor of unknown type (-1), which ends the program; what
/// other modes do with it.
json row_failure(int cause, std::int32_t fault) {
    const RowFailure failure = {
        static_cast<RowCause>(cause),       3, 7, 80, 55.5, 0, 1350.25, 2700.5,
        static_cast<ArithmeticFault>(fault)};
    const auto ends = [&](const Reporting& reporting, DecimalSeparator separator) {
        try {
            if (cause < 0) tell_unknown_type(procedure, reporting);
            tell(failure, procedure, {reporting, separator, {}});
        } catch (const ProgramEnd&) {
            return true;
        }
        return false;
    };
    json told;
    const json box = in_both([&](LangId lang) {
        ScriptedDialogs dialogs;
        told["ends"] =
            ends({RunMode::Messages, lang, dialogs},
                 lang == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point);
        return dialogs.shown.at(0);
    });
    told["box"] = box;
    ScriptedDialogs dialogs;
    told["ends_in_silence"] = ends({RunMode::Silent, LangId::German, dialogs}, {});
    int closed = 0;
    told["ends_batch"] = ends({RunMode{3}, LangId::German, dialogs, [&] { ++closed; }}, {});
    told["closed"] = closed;
    EXPECT_TRUE(dialogs.shown.empty());
    return told;
}

json shown_rows(std::vector<TransientRow> given, int n, DecimalSeparator separator) {
    Zustand16 rows{};
    std::copy(given.begin(), given.end(), rows.begin());
    json shown = json::array();
    for (const TransientRowTexts& row : TS_ShowResults(rows, n, separator))
        shown.push_back({row.Strom, row.Temp, row.Min, row.Sec, row.total});
    return shown;
}

std::string time_text(std::int64_t milliseconds) {
    const std::chrono::system_clock::time_point start{std::chrono::hours{480000}};
    return Zeit_format(start + std::chrono::milliseconds(milliseconds), start);
}

json steps_of_current(std::vector<TransientRow> given, int n) {
    Zustand16 rows{};
    std::copy(given.begin(), given.end(), rows.begin());
    json steps = json::array();
    for (const CurrentStep& step : current_steps(rows, {400, 60}, n))
        steps.push_back({step.from, step.to, step.current});
    return steps;
}

/// A row of kind, current, temperature, minutes and seconds; a list of one number is a temperature
/// above that of the start.
TransientRow row_of(const json& given, double T0) {
    const double T = given[2].is_array() ? T0 + given[2][0].get<double>() : given[2].get<double>();
    return {given[0], given[1], T, given[3], given[4], 0, 0};
}

/// What comes of a chain of rows: how it ends, the rows found, the titles and first lines of boxes.
template <class Transient>
json run_chain(Transient t, const json& rows, const json& options) {
    const double T0 = t.input.start.temperature;
    if (options.contains("start")) t.input.start.temperature = row_of(options["start"], T0).Temp;
    t.mode = RunMode{options.value<std::int16_t>("mode", 1)};
    t.input.mass.ConductorType = options.value("type of mass", t.input.mass.ConductorType);
    if (options.contains("answers")) t.dialogs.answers = {Answer::Yes};
    std::transform(rows.begin(), rows.end(), t.rows.begin(),
                   [&](const json& row) { return row_of(row, T0); });
    json told = {{"rows", json::array()}, {"boxes", json::array()}};
    try {
        constexpr std::array ends = {"completed", "failed", "cancelled"};
        told["end"] = ends.at(static_cast<std::size_t>(t.run()));
    } catch (const ProgramEnd& end) {
        told["end"] = end.what();
    }
    for (std::size_t i = 0; i < rows.size(); ++i)
        told["rows"].push_back({t.rows[i].Strom, t.rows[i].Temp, t.rows[i].Min, t.rows[i].Sec,
                                t.rows[i].Failed, t.rows[i].Direction});
    for (const Box& box : t.dialogs.shown) told["boxes"].push_back({box.title, box.lines.at(0)});
    return told;
}

json chain(std::string by, json fields, json options, json rows) {
    CalcCase c = with_masses(by == "601" ? line_264_34() : twin_264_34());
    if (by == "tube") c.rechnung_cigre207_merker_db = 0, c.rechnung_TBB_merker_db = 1;
    set_fields(c, fields);
    const double current = options.value("current", 400.0);
    if (by == "601") return run_chain(Tb601Transient(c, current), rows, options);
    return run_chain(Tb207Transient(c, current), rows, options);
}

struct NoModel {
    using State = int;
};

/// One round over currents of 100, 200 and 400 A that reached `T`: the difference, null outside the
/// bracket, and the currents after it. `margin` 0 is by TB 207, in 32 bits where `single`.
json search_round(std::array<double, 3> T, double target, double margin, bool single) {
    Bracket<NoModel> bracket(100, 200, 400);
    for (std::size_t k = 0; k < T.size(); ++k) bracket.it[k].T = T[k];
    const Round round =
        margin == 0 ? narrow_tb207(bracket, target)
        : single ? narrow_tb601(bracket, static_cast<float>(target), static_cast<float>(margin), 7)
                 : narrow_tb601(bracket, target, margin, 7);
    const auto& it = bracket.it;
    return {round.in_bracket ? json(round.difference) : json(), it[0].I, it[1].I, it[2].I};
}

TEST(TransientFormulas, have_the_values_of_their_rows) {
    expect_formulas("transient_formulas",
                    {ZEL_FORMULA(chain), ZEL_FORMULA(search_round), ZEL_FORMULA(heat_capacity),
                     ZEL_FORMULA(TS_InitialCurrents), ZEL_FORMULA(excel_start_factors),
                     ZEL_FORMULA(row_failure), ZEL_FORMULA(shown_rows), ZEL_FORMULA(time_text),
                     ZEL_FORMULA(steps_of_current)});
}

TEST(StartTable, of_the_batch_falls_with_the_duration_and_rises_with_the_section) {
    const double sections[] = {100, 200, 400, 800, 1200};
    const double durations[] = {1, 3, 7, 15, 30, 70, 150, 300, 700, 1200, 1600, 2000, 3000};
    const auto at_most = [](const StartCurrents& less, const StartCurrents& more) {
        return less.middle <= more.middle && less.high <= more.high;
    };
    for (std::size_t i = 0; i < std::size(durations); ++i)
        for (std::size_t k = 0; k < std::size(sections); ++k) {
            const StartCurrents here = excel_start_factors(sections[k], durations[i]);
            EXPECT_GT(here.middle, 1);
            EXPECT_GT(here.high, here.middle);
            EXPECT_TRUE(i == 0 ||
                        at_most(here, excel_start_factors(sections[k], durations[i - 1])));
            EXPECT_TRUE(k == 0 ||
                        at_most(excel_start_factors(sections[k - 1], durations[i]), here));
        }
}

}  // namespace
}  // namespace zel
