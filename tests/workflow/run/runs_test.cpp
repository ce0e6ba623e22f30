#include "fakes/formulas.h"
#include "fakes/transient_cases.h"
#include "platform/errors.h"
#include "workflow/run/advice.h"
#include "workflow/run/page_change.h"
#include "workflow/run/steady_run.h"
#include "workflow/run/steady_texts.h"
#include "workflow/run/transient_memory.h"
#include "workflow/run/transient_text.h"

namespace zel {

using nlohmann::json;

namespace {

/// The twin bundle with its current given, and some fields changed.
CalcCase changed(const json& fields) {
    CalcCase c = twin_264_34_at(0);
    set_fields(c, fields);
    return c;
}

Session session_of(const json& options, Dialogs& dialogs) {
    const LangId lang = options.value("lang", LangId::English);
    return {lang,
            lang == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point,
            RunMode{options.value<std::int16_t>("mode", 1)},
            dialogs,
            nullptr,
            options.value("warn", true)};
}

json page_change(json fields, int from, int to, LangId lang) {
    CalcCase c;
    set_fields(c, fields);
    const PageChange change = change_page(c, from, to, lang);
    std::vector<Box> refusal;
    if (change.refusal) refusal.push_back(*change.refusal);
    return {{"page", change.page},
            {"runs", change.runs},
            {"clears_balance", change.clears_balance},
            {"refusal", as_json(refusal)}};
}

json advice_on(json fields, json run) {
    RecordingDialogs dialogs;
    const std::vector<FieldBox> told =
        advice(changed(fields), {run.at("angle"), run.at("wind"), run.at("T").get<double>()},
               session_of(run, dialogs));
    json titles = json::array();
    std::vector<Box> boxes;
    for (const FieldBox& one : told) {
        titles.push_back(one.box.title);
        boxes.push_back(one.box);
    }
    return {{"titles", titles}, {"boxes", as_json(boxes)}};
}

json run_steady(json fields, json options) {
    CalcCase c = twin_264_34();
    set_fields(c, fields);
    RecordingDialogs dialogs;
    SteadyRunResult result;
    bool ends = false;
    try {
        RunSteady(c, session_of(options, dialogs), result);
    } catch (const ProgramEnd&) {
        ends = true;
    }
    json methods = json::array();
    for (const auto& [method, caption, text, outcome] : result.methods)
        methods.push_back({{"caption", caption},
                           {"result", text},
                           {"status", outcome.status},
                           {"I", outcome.current_A.value_or(0)}});
    json start = nullptr;
    if (result.transient_start)
        start = {{"current", result.transient_start->current},
                 {"temperature", result.transient_start->temperature}};
    return {{"input_valid", result.input_valid},
            {"ends", ends},
            {"boxes", as_json(dialogs.shown())},
            {"head_line", result.head_line},
            {"methods", methods},
            {"methods_line", result.methods_line},
            {"angle_text", result.angle_text},
            {"perpendicular_wind_text", result.perpendicular_wind_text},
            {"balance_lines", result.balance_lines},
            {"page", lines_of(result_text(result, session_of(options, dialogs).lang))},
            {"transient_start", start},
            {"may_save", result.may_save},
            {"texts",
             {{"parameter_table_caption", result.texts.parameter_table_caption},
              {"table_steps", result.texts.table_steps},
              {"print_caption", result.texts.print_caption}}}};
}

/// `twin_264_34` with what TB 601 and the transients read, some fields changed, and rows of kind,
/// current of a sub-conductor, temperature, minutes and seconds; null is no input.
CalcCase case_with_rows(const json& fields, const json& rows) {
    CalcCase c = with_masses(line_264_34());
    c.rechnung_cigre601_merker_db = 0;
    c.rechnung_cigre207_merker_db = 1;
    set_fields(c, fields);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        c.Z[i].merker = rows[i].at(0);
        for (std::size_t k = 0; k < state_cells.size(); ++k)
            if (!rows[i].at(k + 1).is_null()) c.Z[i].*state_cells[k] = typed(rows[i].at(k + 1));
    }
    return c;
}

/// A steady run, unless `only transient` is an option, and the transient from it.
json run_transient(json fields, json rows, json options) {
    CalcCase c = case_with_rows(fields, rows);
    RecordingDialogs dialogs;
    MethodMemory memory;
    Session session = session_of(options, dialogs);
    session.memory = &memory;
    if (options.contains("heat capacity at 20"))
        session.cigre_TKW_merker = HeatCapacityOption::At20Degrees;
    TransientMemory kept;
    if (!options.contains("only transient")) kept.keep(RunSteady(c, session), c);
    TransientResult result;
    RunTransient(c, kept.basis(), session, {}, result);
    json told = {{"boxes", dialogs.shown().size()},
                 {"basis", {kept.basis().Is_TB207, kept.basis().Is_TB601}},
                 {"input_valid", result.input_valid}};
    if (const auto& start = kept.basis().start)
        told["start"] = {start->current, start->temperature};
    if (!result.input_valid) {
        told["refusal"] = as_json({result.refusal.box});
        return told;
    }
    told["method"] = key_of(result.method);
    told["end"] = static_cast<int>(result.end);
    told["page"] = lines_of(transient_text(result, c, session));
    for (std::size_t i = 0; i < rows.size(); ++i)
        for (const StateCell cell : state_cells)
            told["cells"][i].push_back({(c.Z[i].*cell).text, (c.Z[i].*cell).value});
    return told;
}

TEST(Runs, give_what_their_rows_expect) {
    expect_formulas("runs", {ZEL_FORMULA(page_change), ZEL_FORMULA(advice_on),
                             ZEL_FORMULA(run_steady), ZEL_FORMULA(run_transient)});
}

}  // namespace
}  // namespace zel
