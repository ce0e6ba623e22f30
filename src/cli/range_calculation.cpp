#include "cli/range_calculation.h"

#include "program/stores.h"
#include "shell/case_settings.h"

namespace zel {

RangeCalculation::RangeCalculation(const CaseWords& words)
    : CaseRun(words),
      loaded_(load_case(words.case_path, words, console())),
      session_{words, words.Meldung_merker(), console()} {
    take_settings(session_, ProgramStores().settings().now());
}

int RangeCalculation::calculate() {
    if (loaded_.refusal) return refused(*loaded_.refusal);
    TableStart start = start_table(loaded_.c, session_);
    if (start.refusal) return refused(*start.refusal);
    notes_ = std::move(start.notes);
    const bool complete = find();
    return printed(!loaded_.text_refused && complete);
}

}  // namespace zel
