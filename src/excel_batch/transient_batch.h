#pragma once

#include "excel_batch/batch_run.h"

namespace zel::excel_batch {

/// `S_100_io_excel_gesamt_rahmen_transient`: for each active row of a transient workbook the
/// current that the conductor carries for ever (PATL) and, after each preload, for the time of the
/// row (TATL), by Cigre TB 601. Cell by cell, a wrong row ends the run and the rows before it are
/// saved; as an array (of 2000 rows at the most) all rows are checked first, and a wrong row or a
/// stop saves nothing. Throws as `run_frame` does.
[[nodiscard]] BatchResult S_100_io_excel_gesamt_rahmen_transient(const BatchJob& job);

}  // namespace zel::excel_batch
