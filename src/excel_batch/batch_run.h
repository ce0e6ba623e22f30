#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "excel_batch/workbook_contract.h"
#include "platform/workbook.h"
#include "shell/session.h"
#include "steady/case/calc_case.h"

// What a batch needs and what it gives.

namespace zel::excel_batch {

/// Who watches a run. Nothing here changes the results but the wish to stop.
class BatchObserver {
public:
    virtual ~BatchObserver() = default;
    virtual void status(const std::string& line) = 0;
    virtual void percent(double percent) = 0;
    /// How many rows are to be calculated, as a number and as a line.
    virtual void active_rows(int count, const std::string& line) = 0;
    /// What follows the elapsed time wherever it is shown.
    virtual void time_suffix(std::string_view suffix) = 0;
    /// After each row: time to show the elapsed time and to let the windows live. True where the
    /// run is to stop behind this row.
    virtual bool stop_after_row() = 0;
};

struct BatchJob {
    WorkbookStore* store = nullptr;
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

struct BatchResult {
    BatchEnd end = BatchEnd::Refused;
    int rows = 0;  // that were read: active and inactive ones
    int active = 0;
    int inactive = 0;
    int errors = 0;                    // results that could not be calculated
    bool saved = false;                // otherwise the workbook is as it was
    std::vector<std::string> summary;  // what was read, and where the results stand
};

}  // namespace zel::excel_batch
