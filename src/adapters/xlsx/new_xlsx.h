#pragma once

#include <string>

#include "platform/workbook_design.h"

namespace zel {

/// The bytes of a new xlsx file. `title` and the looks of the cells go into it. Throws
/// `OutputError` where it cannot be made, as without space for temporary files.
[[nodiscard]] std::string new_xlsx(const WorkbookDesign& design, const std::string& title);

}  // namespace zel
