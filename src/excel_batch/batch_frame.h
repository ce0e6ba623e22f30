#pragma once

#include <functional>
#include <string_view>

#include "excel_batch/batch_rows.h"
#include "excel_batch/batch_run.h"

// What the steady and the transient batch do around their rows.

namespace zel::excel_batch {

struct BatchSteps {
    std::string_view procedure;  // as failures name it
    /// Reads and checks the sheet `fixed_input`, which is selected; every wrong cell is told
    /// through the reading.
    std::function<void(Workbook&, CellReading&)> read_fixed_input;
    /// Reads, calculates and writes the rows of the sheet `variable_input_result`, which is
    /// selected. Tells what is wrong.
    std::function<PassEnd(Workbook&, const SheetOrigin&, BatchResult&)> work_rows;
    /// A wrong row leaves the rows before it in the workbook.
    bool keeps_rows_before_a_wrong_one = false;
    /// So does a stop on demand.
    bool keeps_rows_before_a_stop = true;
};

/// Opens the workbook, walks through the steps and saves it. A missing sheet is told and refuses
/// the workbook. Throws `WorkbookError` and `OutputError`, and `ProgramEnd` where a calculation had
/// to end the program; the file is then as it was.
[[nodiscard]] BatchResult run_frame(const BatchJob& job, const BatchSteps& steps);

}  // namespace zel::excel_batch
