#include <algorithm>

#include "cli/case_source.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/steady_output.h"
#include "platform/program_end.h"
#include "workflow/steady_run.h"

namespace zel {
namespace {

int print_or_fail(const std::string& document, int status) {
    if (print(document)) return status;
    Console::tell_reason("standard output cannot be written");
    return std::max<int>(status, exit_failed);
}

int status_of(const SteadyRunResult& result) {
    const bool sound = std::all_of(result.methods.begin(), result.methods.end(),
                                   [](const MethodResult& m) { return m.outcome.sound(); });
    return sound ? exit_done : exit_failed;
}

}  // namespace

int steady_command(const std::string& case_path, const CommonOptions& options) {
    Console console(options);
    CalcCase c = load_case(case_path, options, console);
    const Session session = {options.lang, options.separator, options.Meldung_merker(), console};
    try {
        const SteadyRunResult result = RunSteady(c, session);
        if (!result.input_valid) {
            if (options.silent) Console::tell_reason(paragraph_of(result.refusal));
            return options.json ? print_or_fail(refusal_document(console.messages()), exit_refused)
                                : exit_refused;
        }
        for (const Box& box : result.advice) session.tell(box);
        const std::string output = options.json ? steady_document(result, console.messages())
                                                : steady_page(c, result, options);
        return print_or_fail(output, status_of(result));
    } catch (const ProgramEnd& end) {
        Console::tell_reason(std::string("the program had to end: ") + end.what());
        return options.json ? print_or_fail(program_end_document(end.what(), console.messages()),
                                            exit_program_ended)
                            : exit_program_ended;
    }
}

}  // namespace zel
