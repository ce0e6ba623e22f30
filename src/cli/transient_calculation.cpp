#include "cli/transient_calculation.h"

#include "program/stores.h"
#include "shell/case_settings.h"
#include "steady/case/case_fields.h"
#include "workflow/run/notes.h"

namespace zel {

TransientCalculation::TransientCalculation(const CaseWords& words, bool series)
    : CaseRun(words),
      loaded_(load_case(words.case_path, words, console())),
      session_{words, words.Meldung_merker(), console(), &memory_},
      wants_series_(series) {
    take_settings(session_, ProgramStores().settings().now());
}

int TransientCalculation::calculate() {
    if (loaded_.refusal) return refused(*loaded_.refusal);
    CalcCase& c = loaded_.c;
    RunSteady(c, session_, steady_);
    if (!steady_.input_valid) return refused(steady_.refusal);
    for (const FieldBox& told : steady_.advice) session_.tell(told.box);
    take_over(basis_, steady_, c);
    report_.notes = steady_.notes;
    report_.method = transient_method(c);
    report_.start = basis_.start;
    if (report_.method && !basis_.start) return without_start();
    RunTransient(c, basis_, session_, {}, report_.run);
    if (!report_.run.input_valid) return page_refused(report_.run.refusal);
    ran_ = true;
    for (Note& note : notes_on(report_.run, c, session_)) report_.notes.push_back(std::move(note));
    if (wants_series_) report_.series = transient_series(c, basis_, report_.run, session_);
    found();
    return printed(!loaded_.text_refused && sound(steady_) &&
                   report_.run.end == TransientEnd::Completed);
}

/// The steady state failed, which its boxes told, or would have.
int TransientCalculation::without_start() {
    for (const MethodResult& line : steady_.methods)
        if (!line.outcome.status.empty())
            Console::tell_reason(std::string(key_of(line.method)) + ": " + line.outcome.status);
    return printed(false);
}

int TransientCalculation::page_refused(const TransientRefusal& refusal) {
    const std::string field = refusal.row ? name_of(*refusal.row, refusal.cell) : std::string();
    if (!words().silent) console().show(refusal.box, field);
    return refused(refusal.box);
}

}  // namespace zel
