#include "cli/batch_command.h"

#include <nlohmann/json.hpp>

#include "cli/batch_progress.h"
#include "cli/conductor_source.h"
#include "cli/console.h"
#include "cli/messages_json.h"
#include "cli/program_stores.h"
#include "cli/xlsx_store.h"
#include "excel_batch/batch_run.h"
#include "platform/errors.h"
#include "shell/case_settings.h"

namespace zel {
namespace {

using namespace excel_batch;
using nlohmann::ordered_json;

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

std::string document(const BatchResult& result, const Console& console, double seconds) {
    const ordered_json document = {{"rows", result.rows},
                                   {"active", result.active},
                                   {"inactive", result.inactive},
                                   {"errors", result.errors},
                                   {"messages", json_of(console.messages())},
                                   {"seconds", seconds}};
    return document.dump(2) + "\n";
}

std::string page(const BatchResult& result) {
    std::string text;
    for (const std::string& line : result.summary) text += without_outer_blanks(line) + "\n";
    return text;
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
        Console::tell_reason(std::string("the program had to end: ") + end.what());
        return exit_program_ended;
    } catch (const OutputError& error) {
        progress.clear();
        Console::tell_reason(error.what());
        return exit_failed;
    }
}

}  // namespace

int batch_command(const BatchOptions& batch, const CommonOptions& options) {
    Console console(options);
    BatchProgress progress(options);
    BatchDialogs dialogs(console, progress, options.silent);
    ProgramStores stores;
    const ProgramSettings settings = stores.settings().now();
    Session session = {options, RunMode::Messages, dialogs};
    take_settings(session, settings);
    XlsxStore store;
    BatchJob job = {store, batch.workbook, session, progress};
    take_settings(job.preset, settings);
    if (!options.conductor.empty()) take_conductor(job.preset, options.conductor, options, console);
    job.data_folder = stores.paths.data_folder;
    job.real_path = XlsxStore::real_path(batch.workbook);
    job.Excel_Leiterdaten_Merker = settings.Excel_Leiterdaten_Merker;
    job.Excel_Zelle_Array_Schreiben_Merker = settings.Excel_Zelle_Array_Schreiben_Merker;
    if (batch.conductor_columns) job.Excel_Leiterdaten_Merker = *batch.conductor_columns ? 1 : 2;
    if (batch.write_by_cell) job.Excel_Zelle_Array_Schreiben_Merker = *batch.write_by_cell ? 1 : 2;
    BatchResult result;
    const int status = run(job, result, progress);
    const double seconds = progress.seconds();
    progress.clear();
    if (status == exit_refused) dialogs.tell_unheard();
    if (print(options.json ? document(result, console, seconds) : page(result))) return status;
    Console::tell_reason("standard output cannot be written");
    return std::max<int>(status, exit_failed);
}

}  // namespace zel
