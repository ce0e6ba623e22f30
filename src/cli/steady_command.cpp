#include <algorithm>

#include "cli/case_command.h"
#include "cli/case_output.h"
#include "program/case_source.h"
#include "program/stores.h"
#include "shell/case_settings.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

constexpr const char* steady_notes =
    "\n"
    "The case says which of the two is given: the conductor temperature\n"
    "(Leitertemp_Merker_db -1, with Leitertemp_db), and the current is sought; or the\n"
    "current (Stromstaerke_Merker_db -1, with Stromstaerke_db; for a whole bundle also\n"
    "Stromstaerkebuendel_Merker_db -1, with Stromstaerke_Buendel), and the temperature\n"
    "is sought. Each selected method gives one result line.\n"
    "\n"
    "A case file is one JSON object of the fields of a case, such as\n"
    "  {\"Windgeschwindigkeit_db\": 0.6, \"Seildurchmesser_db\": \"22.4\", ...}\n"
    "A number is taken as it stands, a text is read as typed, with the separator of\n"
    "--decimal. See examples/ for whole cases and docs/case-files.md for every field.\n"
    "\n"
    "With --json standard output is one JSON document with full precision and with all\n"
    "messages; without it, messages go to standard error.\n";

class SteadyCommand : public CaseRun {
public:
    explicit SteadyCommand(const CaseWords& words)
        : CaseRun(words), loaded_(load_case(words.case_path, words, console())) {}

private:
    int calculate() override {
        if (loaded_.refusal) return refused(*loaded_.refusal);
        Session session = {words(), words().Meldung_merker(), console()};
        take_settings(session, ProgramStores().settings().now());
        RunSteady(loaded_.c, session, result_);
        if (!result_.input_valid) return refused(result_.refusal);
        for (const FieldBox& told : result_.advice) session.tell(told.box);
        return printed(!loaded_.text_refused && sound(result_));
    }
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return steady_document(result_, messages(), program_end);
    }
    [[nodiscard]] std::string page() const override {
        return steady_page(loaded_.c, result_, words()) + notes_text(result_.notes, words().lang);
    }

    LoadedCase loaded_;
    SteadyRunResult result_;
};

}  // namespace

void add_steady(CommandLine& line) {
    const auto [command, words] =
        line.add<CaseWords>("steady", "Rate a case: steady current or temperature",
                            [](const CaseWords& given) { return SteadyCommand(given).run(); });
    add_case_word(command, words);
    add_case_options(command, words, steady_notes);
    add_conductor_option(command, words);
}

}  // namespace zel
