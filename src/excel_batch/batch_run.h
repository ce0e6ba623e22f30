#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "excel_batch/workbook_contract.h"
#include "platform/message_box.h"
#include "platform/workbook.h"
#include "shell/session.h"
#include "steady/case/calc_case.h"

// What a batch needs and what it gives.

namespace zel::excel_batch {

/// A cell that a run refuses.
struct WrongCell {
    Box box;            // by which it is told
    std::string sheet;  // of the workbook
    int row = 0;
    int column = 0;
    std::string text{};    // that stands there
    std::string reason{};  // in one line; empty where no more is known than that it is wrong

    /// "C46"
    [[nodiscard]] std::string name() const;
};

/// Who watches a run, on the thread that the run has. Nothing here changes the results but the wish
/// to stop.
class BatchObserver {
public:
    virtual ~BatchObserver() = default;
    virtual void status(const std::string& line) = 0;
    virtual void percent(double percent) = 0;
    /// How many rows are to be calculated.
    virtual void active_rows(const std::string& line) = 0;
    /// How many of the active rows are calculated; `active` is 0 before they are counted.
    virtual void rows_done(int /*done*/, int /*active*/) {}
    /// Called of all wrong cells of a sheet or a row before the first of them is told in a box.
    virtual void wrong_cell(const WrongCell& /*cell*/) {}
    /// What follows the elapsed time wherever it is shown.
    virtual void time_suffix(std::string_view suffix) = 0;
    /// Asked behind each row: whether the run is to stop there.
    virtual bool cancelled() = 0;
};

struct BatchJob {
    WorkbookStore& store;
    std::string path;
    /// Language, and the message mode of the batch's own boxes; its methods are always silent.
    const Session& session;
    BatchObserver& observer;
    CalcCase preset{};          // its conductor stands where no cell of the workbook names a field
    std::string data_folder{};  // of the shipped templates
    std::string real_path{};    // `path` from the root on, by which it is known for one of them
    std::int16_t Excel_Leiterdaten_Merker = 2;            // 1 with conductor columns, 2 without
    std::int16_t Excel_Zelle_Array_Schreiben_Merker = 2;  // transient: 1 by cell, 2 as an array
    unsigned threads = 0;                                 // 0: as many as the machine has
};

enum class BatchEnd : std::uint8_t {
    Done,     // every row, saved
    Stopped,  // on demand
    Refused,  // wrong input; the workbook is as it was
    Broken,   // wrong input in a row; the rows before it are saved
};

/// A remark of the program's own on results, see docs/notes.md.
struct BatchNote {
    std::string_view code;
    int rows = 0;  // that it is about
    int first_row = 0;
};

struct BatchResult {
    BatchEnd end = BatchEnd::Refused;
    int rows = 0;          // that were read: active and inactive ones
    int active = 0;        // that were calculated
    int to_calculate = 0;  // active rows of the workbook, as far as they were counted
    int inactive = 0;
    int errors = 0;                    // results that could not be calculated
    std::vector<BatchNote> notes;      // in the order of their first rows
    bool saved = false;                // otherwise the workbook is as it was
    std::vector<std::string> summary;  // what was read, and where the results stand
};

// The batches calculate each active row of a workbook by the methods that its sheet `fixed_input`
// selects, write the results beside it and save. Wrong input is told and stops the run. They throw
// `WorkbookError` and `OutputError`, and `ProgramEnd`, which names the row, where a calculation had
// to end the program; the file is then as it was.

/// The batch that cell B2 of the workbook asks for: the transient one, or the steady one, which
/// refuses what is neither.
[[nodiscard]] BatchResult run_batch(const BatchJob& job);

/// `S_00_io_excel_gesamt_rahmen_stat`: the steady batch. A wrong row leaves the workbook as it was.
[[nodiscard]] BatchResult S_00_io_excel_gesamt_rahmen_stat(const BatchJob& job);

/// `S_100_io_excel_gesamt_rahmen_transient`: PATL and TATL by Cigre TB 601. A wrong row and a stop
/// keep the results of the rows before it cell by cell, and none as an array.
[[nodiscard]] BatchResult S_100_io_excel_gesamt_rahmen_transient(const BatchJob& job);

}  // namespace zel::excel_batch
