#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "platform/workbook.h"
#include "shell/session.h"

// The program's own testing by workbooks: rows of random weather, and how far the methods lie apart
// in their results.

namespace zel::excel_batch {

/// Asked behind each row; what is cancelled leaves the workbook as it was and gives nothing.
using RowsCancelled = std::function<bool()>;

/// `Command4`: puts random weather, times and bundle currents into the rows of a steady workbook,
/// down to the first empty flag, and saves it. With a `seed` the values can be had again. Gives the
/// number of rows; nothing where the workbook is of another kind, which is told. Throws
/// `WorkbookError` and `OutputError`.
[[nodiscard]] std::optional<int> fill_with_random_values(WorkbookStore& store,
                                                         const std::string& path,
                                                         const Session& session,
                                                         std::optional<std::uint32_t> seed,
                                                         const RowsCancelled& cancelled = {});

/// `Command5`: writes how far the results of Kirn and Webs lie from those of Cigre TB 601 and TB
/// 207 into the columns from 65 on, in % of a current and in K of a temperature, down to the first
/// empty flag, and saves the workbook, which has no conductor columns. Gives the number of rows, as
/// above.
[[nodiscard]] std::optional<int> write_deviations(WorkbookStore& store, const std::string& path,
                                                  const Session& session,
                                                  const RowsCancelled& cancelled = {});

/// The highest global radiation of an hour (0 to 23) in a month (1 to 12), W/m²: 0 at night.
[[nodiscard]] double highest_radiation(int month, int hour);

}  // namespace zel::excel_batch
