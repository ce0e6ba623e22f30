#pragma once

#include "excel_batch/batch_run.h"

namespace zel::excel_batch {

/// `S_00_io_excel_gesamt_rahmen_stat`: calculates each active row of a steady workbook by the
/// methods that its sheet `fixed_input` selects, and writes the results beside it. Wrong input is
/// told and stops the run with nothing saved. Throws as `run_frame` does.
[[nodiscard]] BatchResult S_00_io_excel_gesamt_rahmen_stat(const BatchJob& job);

}  // namespace zel::excel_batch
