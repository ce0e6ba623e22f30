#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/workbook.h"

namespace zel {

/// A workbook of the bytes of an xlsx file, changed in place: parts of the file that are not
/// touched keep their bytes, and so do the cells of a worksheet. `save` hands the new bytes to
/// `write`. `name` is told where the workbook is refused. Throws `WorkbookError`.
[[nodiscard]] std::unique_ptr<Workbook> open_xlsx(const std::string& name, std::string_view bytes,
                                                  std::function<void(std::string_view)> write);

}  // namespace zel
