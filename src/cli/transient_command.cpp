#include "cli/case_command.h"
#include "cli/case_output.h"
#include "program/case_source.h"
#include "program/stores.h"
#include "shell/case_settings.h"
#include "steady/case/case_fields.h"
#include "workflow/run/notes.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

constexpr const char* transient_notes =
    "\n"
    "The case is rated as by \"zel steady\"; from that steady state its changes of state\n"
    "are followed, one after the other: Z1_merker_db to Z6_merker_db say what is sought\n"
    "in each (1 the current, 2 the temperature, 3 the time), Zn_Strom_db (A, of one\n"
    "sub-conductor), Zn_TEMP_db (°C), Zn_min_db and Zn_sec_db give the other two. By\n"
    "Cigre TB 207 or the busbar method where one of them is selected, else by TB 601.\n"
    "\n"
    "See examples/transient-twin-264-34.json. Output and messages are as of \"zel steady\".\n";

struct TransientWords : CaseWords {
    bool series = false;  // the course of the temperature is told too
};

class TransientCommand : public CaseRun {
public:
    explicit TransientCommand(const TransientWords& words)
        : CaseRun(words),
          loaded_(load_case(words.case_path, words, console())),
          session_{words, words.Meldung_merker(), console(), &memory_},
          wants_series_(words.series) {
        take_settings(session_, ProgramStores().settings().now());
    }

private:
    int calculate() override {
        if (loaded_.refusal) return refused(*loaded_.refusal);
        CalcCase& c = loaded_.c;
        RunSteady(c, session_, steady_);
        if (!steady_.input_valid) return refused(steady_.refusal);
        for (const Box& box : steady_.advice) session_.tell(box);
        take_over(basis_, steady_, c);
        report_.notes = steady_.notes;
        report_.method = transient_method(c);
        report_.start = basis_.start;
        if (report_.method && !basis_.start) return without_start();
        RunTransient(c, basis_, session_, {}, report_.run);
        if (!report_.run.input_valid) return page_refused(report_.run.refusal);
        ran_ = true;
        for (Note& note : notes_on(report_.run, c, session_))
            report_.notes.push_back(std::move(note));
        if (wants_series_) report_.series = transient_series(c, basis_, report_.run, session_);
        return printed(!loaded_.text_refused && sound(steady_) &&
                       report_.run.end == TransientEnd::Completed);
    }

    /// The steady state failed, which its boxes told, or would have.
    int without_start() {
        for (const MethodResult& line : steady_.methods)
            if (!line.outcome.status.empty())
                Console::tell_reason(std::string(key_of(line.method)) + ": " + line.outcome.status);
        return printed(false);
    }

    int page_refused(const TransientRefusal& refusal) {
        const std::string field = refusal.row ? name_of(*refusal.row, refusal.cell) : std::string();
        if (!words().silent) console().show(refusal.box, field);
        return refused(refusal.box);
    }

    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return transient_document(report_, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override {
        std::string text = steady_page(loaded_.c, steady_, words());
        if (ran_) text += "\n" + transient_text(report_.run, loaded_.c, words());
        if (report_.series) text += series_text(*report_.series, words());
        return text + notes_text(report_.notes, words().lang);
    }

    LoadedCase loaded_;
    MethodMemory memory_;
    Session session_;
    bool wants_series_;
    bool ran_ = false;  // the changes of state did, the failed one included
    SteadyRunResult steady_;
    TransientBasis basis_;
    TransientReport report_;
};

}  // namespace

void add_transient(CommandLine& line) {
    const auto [command, words] = line.add<TransientWords>(
        "transient", "Follow a case through its changes of state",
        [](const TransientWords& given) { return TransientCommand(given).run(); });
    add_case_word(command, words);
    command.add_flag("--series", words.series, "Tell the temperature over time too");
    add_case_options(command, words, transient_notes);
    add_conductor_option(command, words);
}

}  // namespace zel
