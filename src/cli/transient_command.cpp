#include <algorithm>

#include "cli/case_source.h"
#include "cli/commands.h"
#include "cli/console.h"
#include "cli/messages_json.h"
#include "cli/program_stores.h"
#include "cli/steady_output.h"
#include "cli/transient_output.h"
#include "platform/errors.h"
#include "shell/case_settings.h"
#include "steady/case/case_fields.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

/// One run of the command.
class TransientCommand {
public:
    TransientCommand(const std::string& case_path, bool series, const CommonOptions& options)
        : options_(options),
          console_(options),
          loaded_(load_case(case_path, options, console_)),
          session_{options, options.Meldung_merker(), console_, &memory_},
          wants_series_(series) {
        take_settings(session_, ProgramStores().settings().now());
    }

    int run() {
        try {
            return calculate();
        } catch (const ProgramEnd& end) {
            Console::tell_reason(std::string("the program had to end: ") + end.what());
            report_.program_end = end.what();
            return options_.json ? print_or_fail(document(), exit_program_ended)
                                 : exit_program_ended;
        }
    }

private:
    int calculate() {
        CalcCase& c = loaded_.c;
        RunSteady(c, session_, steady_);
        if (!steady_.input_valid) return refused(steady_.refusal);
        for (const Box& box : steady_.advice) session_.tell(box);
        take_over(basis_, steady_, c);
        report_.method = transient_method(c);
        report_.start = basis_.start;
        if (report_.method && !basis_.start) return without_start();
        RunTransient(c, basis_, session_, {}, report_.run);
        if (!report_.run.input_valid) return page_refused(report_.run.refusal);
        if (wants_series_) report_.series = transient_series(c, basis_, report_.run, session_);
        return print_or_fail(options_.json ? document() : page(), status());
    }

    /// The steady state failed, which its boxes told, or would have.
    int without_start() {
        for (const MethodResult& line : steady_.methods)
            if (!line.outcome.status.empty())
                Console::tell_reason(std::string(key_of(line.method)) + ": " + line.outcome.status);
        return print_or_fail(options_.json ? document() : steady_page(loaded_.c, steady_, options_),
                             exit_failed);
    }

    int page_refused(const TransientRefusal& refusal) {
        const std::string field = refusal.row ? name_of(*refusal.row, refusal.cell) : std::string();
        if (!options_.silent) console_.show(refusal.box, field);
        return refused(refusal.box);
    }

    int refused(const Box& box) {
        if (options_.silent) Console::tell_reason(paragraph_of(box));
        return options_.json ? print_or_fail(refusal_document(console_.messages()), exit_refused)
                             : exit_refused;
    }

    [[nodiscard]] int status() const {
        const bool sound = std::all_of(steady_.methods.begin(), steady_.methods.end(),
                                       [](const MethodResult& m) { return m.outcome.sound(); });
        const bool completed = report_.run.end == TransientEnd::Completed;
        return sound && completed && !loaded_.text_refused ? exit_done : exit_failed;
    }

    [[nodiscard]] std::string document() const {
        return transient_document(report_, console_.messages());
    }

    [[nodiscard]] std::string page() const {
        std::string text = steady_page(loaded_.c, steady_, options_) + "\n" +
                           transient_text(report_.run, loaded_.c, options_);
        if (report_.series) text += series_text(*report_.series, options_);
        return text;
    }

    const CommonOptions& options_;
    Console console_;
    LoadedCase loaded_;
    MethodMemory memory_;
    Session session_;
    bool wants_series_;
    SteadyRunResult steady_;
    TransientBasis basis_;
    TransientReport report_;
};

}  // namespace

int transient_command(const std::string& case_path, bool series, const CommonOptions& options) {
    return TransientCommand(case_path, series, options).run();
}

}  // namespace zel
