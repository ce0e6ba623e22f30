#pragma once

#include <span>
#include <vector>

#include "excel_batch/input_cells.h"
#include "excel_batch/workbook_contract.h"
#include "platform/message_box.h"
#include "platform/workbook.h"
#include "steady/case/calc_case.h"

// Conductor data that older workbooks have no cells for: without them a method fails or takes the
// conductor for another.

namespace zel::excel_batch {

/// The boxes about fields that are 0 in `c` although an active method reads them, each with field,
/// method and remedy. `row` is the row that the conductor stands in, 0 for the sheet `fixed_input`.
[[nodiscard]] std::vector<Box> missing_conductor_data(const CalcCase& c, WorkbookKind kind, int row,
                                                      LangId lang);

/// `fixed` with what the check above reads of the conductor in `row`; wrong cells are passed over.
[[nodiscard]] CalcCase with_conductor_of(Workbook& workbook, int row, const CalcCase& fixed);

}  // namespace zel::excel_batch
