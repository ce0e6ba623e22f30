#pragma once

#include <memory>
#include <string_view>

#include "excel_batch/batch_rows.h"

// What the steady and the transient batch do within the frame that all batches share.

namespace zel::excel_batch {

class BatchSteps {
public:
    virtual ~BatchSteps() = default;

    /// As failures name it.
    [[nodiscard]] virtual std::string_view procedure() const = 0;

    /// Reads and checks the sheet `fixed_input`, which is selected; every wrong cell is told
    /// through the reading.
    virtual void read_fixed_input(Workbook& workbook, CellReading& reading) = 0;

    /// Reads, calculates and writes the rows of the sheet `variable_input_result`, which is
    /// selected. Tells what is wrong.
    [[nodiscard]] virtual PassEnd work(Workbook& workbook, const SheetOrigin& origin,
                                       BatchResult& result) = 0;

    /// Whether the rows before one that ends the work so are saved.
    [[nodiscard]] virtual bool keeps_rows_before(PassEnd end) const = 0;
};

/// They use `job` as long as they live.
[[nodiscard]] std::unique_ptr<BatchSteps> steady_steps(const BatchJob& job);
[[nodiscard]] std::unique_ptr<BatchSteps> transient_steps(const BatchJob& job);

}  // namespace zel::excel_batch
