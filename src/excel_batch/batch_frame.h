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

/// What the batches put into it.
[[nodiscard]] BatchSteps steady_steps(const BatchJob& job);
[[nodiscard]] BatchSteps transient_steps(const BatchJob& job);

}  // namespace zel::excel_batch
