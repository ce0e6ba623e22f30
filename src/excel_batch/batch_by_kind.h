#pragma once

#include "excel_batch/batch_run.h"

namespace zel::excel_batch {

/// Runs the batch that cell B2 of the workbook asks for: the transient one, or the steady one,
/// which refuses what is neither. Throws as the batches do.
[[nodiscard]] BatchResult run_batch(const BatchJob& job);

}  // namespace zel::excel_batch
