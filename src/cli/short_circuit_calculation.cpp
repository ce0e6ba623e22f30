#include "cli/short_circuit_calculation.h"

#include "platform/errors.h"
#include "program/stores.h"

namespace zel {
namespace {

ShortCircuitFile load_short_circuit_case(const std::string& path, const CommonOptions& options) {
    const FlatObject values = JsonCaseStore().load(path);
    try {
        return read_short_circuit_case(values, options);
    } catch (const InputError& error) {
        throw InputError(at(path, error.reason()));
    }
}

}  // namespace

ShortCircuitCalculation::ShortCircuitCalculation(const CaseWords& words)
    : CaseRun(words), file_(load_short_circuit_case(words.case_path, words)) {}

int ShortCircuitCalculation::calculate() {
    for (const auto& [field, box] : file_.refused) tell(box, field);
    run_ = RunShortCircuit(file_.form.content(), words().separator);
    if (run_.refusal) {
        if (!words().silent) console().show(run_.refusal->box);
        return refused(run_.refusal->box);
    }
    found();
    return printed(file_.refused.empty());
}

/// Why an input does not count; told in silent runs too.
void ShortCircuitCalculation::tell(const Box& box, const std::string& field) {
    if (words().silent)
        Console::tell_reason(words().case_path + ": " + field + ": " + box.lines.front());
    else
        console().show(box, field);
}

}  // namespace zel
