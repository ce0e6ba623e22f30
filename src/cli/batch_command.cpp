#include "cli/batch_command.h"

#include <nlohmann/json.hpp>

#include "cli/batch_progress.h"
#include "cli/console.h"
#include "cli/messages_json.h"
#include "cli/program_stores.h"
#include "cli/xlsx_store.h"
#include "excel_batch/batch_by_kind.h"
#include "platform/output_error.h"
#include "platform/program_end.h"

namespace zel {
namespace {

using namespace excel_batch;
using nlohmann::ordered_json;

/// The progress line gives way to a box.
class BatchDialogs : public Dialogs {
public:
    BatchDialogs(Console& console, BatchProgress& progress)
        : console_(console), progress_(progress) {}
    Answer show(const Box& box) override {
        progress_.clear();
        return console_.show(box);
    }

private:
    Console& console_;
    BatchProgress& progress_;
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

}  // namespace

int batch_command(const BatchOptions& batch, const CommonOptions& options) {
    Console console(options);
    BatchProgress progress(options);
    BatchDialogs dialogs(console, progress);
    const Session session = {options.lang, options.separator, options.Meldung_merker(), dialogs};
    XlsxStore store;
    const ProgramSettings settings = ProgramStores().settings().now();
    BatchJob job = {&store, batch.workbook, session, progress};
    job.Excel_Leiterdaten_Merker = settings.Excel_Leiterdaten_Merker;
    job.Excel_Zelle_Array_Schreiben_Merker = settings.Excel_Zelle_Array_Schreiben_Merker;
    if (batch.conductor_columns) job.Excel_Leiterdaten_Merker = *batch.conductor_columns ? 1 : 2;
    if (batch.write_by_cell) job.Excel_Zelle_Array_Schreiben_Merker = *batch.write_by_cell ? 1 : 2;
    BatchResult result;
    int status = exit_program_ended;
    try {
        result = run_batch(job);
        status = status_of(result);
    } catch (const ProgramEnd& end) {
        progress.clear();
        Console::tell_reason(std::string("the program had to end: ") + end.what());
    } catch (const OutputError& error) {
        progress.clear();
        Console::tell_reason(error.what());
        status = exit_failed;
    }
    const double seconds = progress.seconds();
    progress.clear();
    if (print(options.json ? document(result, console, seconds) : page(result))) return status;
    Console::tell_reason("standard output cannot be written");
    return std::max<int>(status, exit_failed);
}

}  // namespace zel
