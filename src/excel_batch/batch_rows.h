#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "excel_batch/batch_run.h"
#include "excel_batch/cell_reading.h"
#include "platform/workbook.h"

// What the row loops of all batches share.

namespace zel::excel_batch {

/// A value for a cell of a row.
struct ResultCell {
    int column;
    std::optional<double> number;
    std::string_view text{};  // a fixed wording, where there is no number
};

/// What became of one row.
struct RowOutcome {
    std::vector<Box> refusals;  // of wrong cells; the row was not calculated then
    std::vector<ResultCell> cells;
    int errors = 0;           // results that could not be calculated
    std::string program_end;  // why the row had to end the program; empty where it had not
};

void write(Workbook& workbook, int row, const std::vector<ResultCell>& cells);

/// The number that `value` is when shown by `mask`; nothing where it is no finite number.
[[nodiscard]] std::optional<double> rounded(double value, std::string_view mask);

/// The first pass: counts the active rows down to the first empty flag, and shows each to `seen`.
/// Any flag but "1" is refused and ends it.
[[nodiscard]] int count_active_rows(Workbook& workbook, int first_row, CellReading& reading,
                                    const std::function<void(int row)>& seen);

/// Steps in which the percentage of `active` rows is shown.
[[nodiscard]] double percent_step(int active);

/// How the work on the rows ended.
enum class PassEnd : std::uint8_t {
    Done,
    Refused,  // before the first row was calculated
    Wrong,    // at a wrong row
    Stopped,  // on demand
};

/// A pass over the rows.
struct RowPass {
    /// Reads what the row needs, in the order of the rows.
    std::function<void(std::size_t slot, int row)> read;
    /// Calculates what was read into `slot`; rows of a block side by side.
    std::function<RowOutcome(std::size_t slot)> calculate;
    /// Takes a sound outcome, in the order of the rows.
    std::function<void(int row, const RowOutcome& outcome)> take;
    std::size_t block = 1;  // rows that are read before they are calculated
};

/// The second pass: row by row down to the first empty flag, the row limit, or a wrong row, whose
/// refusals are told. Rows behind the limit are told of. `active` rows are expected. Counts into
/// `result`. Throws `ProgramEnd`, which names the row, where one had to.
[[nodiscard]] PassEnd walk_rows(const BatchJob& job, const SheetOrigin& origin, Workbook& workbook,
                                int first_row, int active, const RowPass& pass,
                                BatchResult& result);

}  // namespace zel::excel_batch
