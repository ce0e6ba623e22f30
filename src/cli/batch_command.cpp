#include <nlohmann/json.hpp>

#include "cli/batch_progress.h"
#include "cli/case_output.h"
#include "cli/commands.h"
#include "excel_batch/batch_texts.h"
#include "platform/errors.h"
#include "program/conductor_source.h"
#include "program/console.h"
#include "program/stores.h"
#include "shell/case_settings.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

using namespace excel_batch;
using nlohmann::ordered_json;

constexpr const char* batch_notes =
    "\n"
    "Calculates each active row of an xlsx workbook and writes the results beside it, in place.\n"
    "Cell B2 of its sheet fixed_input says what it is; \"zel template\" makes an empty one, and\n"
    "docs/workbooks.md tells what each cell holds. A workbook that is refused, and one whose run\n"
    "breaks off, is left as it was. It must not be open in a spreadsheet program meanwhile.\n"
    "\n"
    "Exit status: 0 done; 1 a result could not be calculated, or not all rows were; 2 the workbook\n"
    "was refused and is as it was; 3 a calculation had to end the program.";

struct BatchWords : CommonOptions {
    std::string workbook{};
    std::optional<bool> conductor_columns{};  // nothing: as the setting says
    std::optional<bool> write_by_cell{};
};

/// The progress line gives way to a box. A silent run shows none, but why it was refused is told in
/// the end.
class BatchDialogs : public Dialogs {
public:
    BatchDialogs(Console& console, BatchProgress& progress, bool silent)
        : console_(console), progress_(progress), silent_(silent) {}

    Answer show(const Box& box) override {
        progress_.clear();
        if (!silent_) return console_.show(box);
        unheard_.push_back(box);
        return box.unattended;
    }
    void tell_unheard() const {
        for (const Box& box : unheard_) Console::tell_reason(paragraph_of(box));
    }

private:
    Console& console_;
    BatchProgress& progress_;
    bool silent_;
    std::vector<Box> unheard_;
};

/// The remarks with their rows.
ordered_json notes_in(const BatchResult& result, LangId lang) {
    ordered_json list = json_of(notes_of(result, lang));
    for (std::size_t i = 0; i < list.size(); ++i) {
        list[i]["rows"] = result.notes[i].rows;
        list[i]["first_row"] = result.notes[i].first_row;
    }
    return list;
}

std::string document(const BatchResult& result, const Console& console, double seconds,
                     LangId lang) {
    return json_text({{"rows", result.rows},
                      {"active", result.active},
                      {"inactive", result.inactive},
                      {"errors", result.errors},
                      {"messages", json_of(console.messages())},
                      {"notes", notes_in(result, lang)},
                      {"seconds", seconds}});
}

std::string page(const BatchResult& result, LangId lang) {
    std::string text;
    for (const std::string& line : result.summary) text += without_outer_blanks(line) + "\n";
    return text + notes_text(notes_of(result, lang), lang);
}

int status_of(const BatchResult& result) {
    switch (result.end) {
        case BatchEnd::Refused: return exit_refused;
        case BatchEnd::Broken: return exit_failed;
        case BatchEnd::Done:
        case BatchEnd::Stopped: break;
    }
    return result.errors > 0 ? exit_failed : exit_done;
}

/// Runs the batch into `result` and gives the exit status.
int run(const BatchJob& job, BatchResult& result, BatchProgress& progress) {
    try {
        result = run_batch(job);
        return status_of(result);
    } catch (const ProgramEnd& end) {
        progress.clear();
        Console::tell_reason(fill(had_to_end.in(job.session.lang), {end.what()}));
        return exit_program_ended;
    } catch (const OutputError& error) {
        progress.clear();
        Console::tell_reason(error.told(job.session.lang));
        return exit_failed;
    }
}

int calculate_workbook(const BatchWords& words) {
    Console console(words);
    BatchProgress progress(words);
    BatchDialogs dialogs(console, progress, words.silent);
    ProgramStores stores;
    const ProgramSettings settings = stores.settings().now();
    Session session = {words, RunMode::Messages, dialogs};
    take_settings(session, settings);
    XlsxStore store;
    BatchJob job = {store, words.workbook, session, progress};
    take_settings(job.preset, settings);
    if (!words.conductor.empty()) take_conductor(job.preset, words.conductor, words, console);
    job.data_folder = stores.paths.data_folder;
    job.real_path = XlsxStore::real_path(words.workbook);
    job.Excel_Leiterdaten_Merker = settings.Excel_Leiterdaten_Merker;
    job.Excel_Zelle_Array_Schreiben_Merker = settings.Excel_Zelle_Array_Schreiben_Merker;
    if (words.conductor_columns) job.Excel_Leiterdaten_Merker = *words.conductor_columns ? 1 : 2;
    if (words.write_by_cell) job.Excel_Zelle_Array_Schreiben_Merker = *words.write_by_cell ? 1 : 2;
    BatchResult result;
    const int status = run(job, result, progress);
    const double seconds = progress.seconds();
    progress.clear();
    if (status == exit_refused) dialogs.tell_unheard();
    return print_or_fail(words.json ? document(result, console, seconds, words.lang)
                                    : printable(page(result, words.lang)),
                         status);
}

}  // namespace

void add_batch(CommandLine& line) {
    const auto [command, words] = line.add<BatchWords>(
        "batch", "Calculate the rows of a workbook in place", calculate_workbook);
    command.add_option("WORKBOOK", words.workbook, "Workbook (xlsx)")->required();
    add_choice<bool>(
        command, "--conductor-columns", words.conductor_columns, {{"on", true}, {"off", false}},
        "Whether each row of a steady workbook has its own conductor (default: the setting)");
    add_choice<bool>(
        command, "--write", words.write_by_cell, {{"cell", true}, {"array", false}},
        "Whether a wrong row of a transient workbook keeps the results of the rows before it "
        "(cell) or none (array) (default: the setting)");
    command.footer(batch_notes);
    add_output(command, words);
    add_language(command, words.lang, words.separator);
    add_conductor_option(command, words);
}

}  // namespace zel
