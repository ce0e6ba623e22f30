#include "cli/commands.h"
#include "cli/console.h"
#include "cli/json_case_store.h"
#include "cli/messages_json.h"
#include "cli/short_circuit_output.h"
#include "platform/errors.h"
#include "short_circuit/short_circuit_file.h"

namespace zel {
namespace {

ShortCircuitFile load_short_circuit_case(const std::string& path, const CommonOptions& options) {
    const FlatObject values = JsonCaseStore().load(path);
    try {
        return read_short_circuit_case(values, options);
    } catch (const InputError& error) {
        throw InputError(path + ": " + error.what());
    }
}

/// Why an input does not count, or why nothing was calculated; told in silent runs too.
void tell(Console& console, const Box& box, const std::string& field, const std::string& path,
          const CommonOptions& options) {
    if (!options.silent)
        console.show(box, field);
    else if (field.empty())
        Console::tell_reason(paragraph_of(box));
    else
        Console::tell_reason(path + ": " + field + ": " + box.lines.front());
}

}  // namespace

int short_circuit_command(const std::string& case_path, const CommonOptions& options) {
    Console console(options);
    const ShortCircuitFile file = load_short_circuit_case(case_path, options);
    for (const auto& [field, box] : file.refused) tell(console, box, field, case_path, options);
    const ShortCircuitCase& c = file.form.content();
    const ShortCircuitRun run = RunShortCircuit(c, options.separator);
    if (run.refusal) {
        tell(console, run.refusal->box, {}, case_path, options);
        return options.json ? print_or_fail(refusal_document(console.messages()), exit_refused)
                            : exit_refused;
    }
    return print_or_fail(options.json ? short_circuit_document(run, console.messages())
                                      : short_circuit_page(c, run, options),
                         file.refused.empty() ? exit_done : exit_failed);
}

}  // namespace zel
