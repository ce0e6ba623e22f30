#include "workflow/run/transient_memory.h"

#include "steady/case/state_change.h"
#include "workflow/rules/derived.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

CalcCase transient_inputs(const CalcCase& c) {
    CalcCase inputs = steady_inputs(c);
    inputs.Z = without_found_values(c).Z;
    return inputs;
}

}  // namespace

CalcCase steady_inputs(const CalcCase& c) {
    CalcCase inputs = without_derived_current(c);
    static_cast<ProjectData&>(inputs) = {};
    static_cast<ParameterTableData&>(inputs) = {};
    static_cast<MeasuredData&>(inputs) = {};
    inputs.Umgebungstemperaturmerker_db = 0;  // what a table steps
    inputs.Umgebtemp_merker1_db = inputs.Umgebtemp_merker2_db = 0;
    inputs.Z = {};
    return inputs;
}

const BoxText stale_question = {
    Icon::Question,
    {"Zustandsberechnung nicht mehr aktuell", "change-of-state are no longer valid"},
    {"Die angezeigten Zustandsänderungen sind nicht mehr aktuell.\n"
     "Sie müssen zur Anzeige der graphischen Darstellung zunächst neu berechnet werden.\n"
     "Soll die Neuberechnung der Zustandsänderungen jetzt durchgeführt werden ?",
     "The viewed change-of-state are no longer valid.\n"
     "You first have to run a new calculation.\n"
     "Do you want to run a new calcualtion now ?"},
    Buttons::YesNo,
    Answer::No};

void TransientMemory::keep(const SteadyRunResult& steady, const CalcCase& c) {
    if (!steady.input_valid) return;
    take_over(basis_, steady, c);
    basis_inputs_ = steady_inputs(c);
    start_is_former_ = basis_.start && !steady.transient_start;
}

void TransientMemory::keep(const TransientResult& transient, const CalcCase& c) {
    result_ = transient;
    result_basis_ = basis_;
    result_inputs_ = transient_inputs(c);
}

bool TransientMemory::basis_is_stale(const CalcCase& c) const {
    return steady_inputs(c) != basis_inputs_;
}

std::optional<Note> TransientMemory::note_on_row(std::size_t row, const Locale& locale) const {
    if (!result_) return std::nullopt;
    return zel::note_on_row(*result_, result_inputs_, row, locale);
}

bool TransientMemory::result_is_stale(const CalcCase& c, const Session& session) const {
    return result_ && (result_basis_ != basis_ || transient_inputs(c) != result_inputs_ ||
                       result_->cigre_TKW_merker != session.cigre_TKW_merker);
}

}  // namespace zel
