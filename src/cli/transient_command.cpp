#include "cli/transient_calculation.h"
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

class TransientCommand : public TransientCalculation {
public:
    explicit TransientCommand(const TransientWords& words)
        : TransientCalculation(words, words.series) {}

private:
    [[nodiscard]] std::string document(std::string_view program_end) const override {
        return transient_document(report(), messages(), program_end);
    }
    [[nodiscard]] std::string page() const override {
        std::string text = steady_page(calc_case(), steady(), words());
        if (ran()) text += "\n" + transient_text(report().run, calc_case(), words());
        if (report().series) text += series_text(*report().series, words());
        return text + notes_text(report().notes, words().lang);
    }
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
