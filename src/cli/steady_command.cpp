#include <algorithm>

#include "cli/case_source.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/messages_json.h"
#include "cli/program_stores.h"
#include "cli/steady_output.h"
#include "platform/errors.h"
#include "shell/case_settings.h"
#include "workflow/run/steady_run.h"

namespace zel {
namespace {

int status_of(const SteadyRunResult& result, const LoadedCase& loaded) {
    const bool sound = std::all_of(result.methods.begin(), result.methods.end(),
                                   [](const MethodResult& m) { return m.outcome.sound(); });
    return sound && !loaded.text_refused ? exit_done : exit_failed;
}

int refused(const SteadyRunResult& result, const CommonOptions& options, const Console& console) {
    if (options.silent) Console::tell_reason(paragraph_of(result.refusal));
    return options.json ? print_or_fail(refusal_document(console.messages()), exit_refused)
                        : exit_refused;
}

int ended(const SteadyRunResult& result, const ProgramEnd& end, const CommonOptions& options,
          const Console& console) {
    Console::tell_reason(std::string("the program had to end: ") + end.what());
    return options.json ? print_or_fail(steady_document(result, console.messages(), end.what()),
                                        exit_program_ended)
                        : exit_program_ended;
}

}  // namespace

int steady_command(const std::string& case_path, const CommonOptions& options) {
    Console console(options);
    LoadedCase loaded = load_case(case_path, options, console);
    Session session = {options, options.Meldung_merker(), console};
    take_settings(session, ProgramStores().settings().now());
    SteadyRunResult result;
    try {
        RunSteady(loaded.c, session, result);
    } catch (const ProgramEnd& end) {
        return ended(result, end, options, console);
    }
    if (!result.input_valid) return refused(result, options, console);
    for (const Box& box : result.advice) session.tell(box);
    return print_or_fail(options.json ? steady_document(result, console.messages())
                                      : steady_page(loaded.c, result, options),
                         status_of(result, loaded));
}

}  // namespace zel
