#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "excel_batch/batch_run.h"
#include "excel_batch/cell_reading.h"

// The passes over the rows of a workbook, as all batches make them.

namespace zel::excel_batch {

/// A value for a cell of a row.
struct ResultCell {
    int column;
    std::optional<double> number;
    std::string_view text{};  // a fixed wording, where there is no number
};

/// What became of one row.
struct RowOutcome {
    std::vector<WrongCell> refusals;  // the row was not calculated then
    std::vector<ResultCell> cells;
    int errors = 0;                       // results that could not be calculated
    std::vector<std::string_view> notes;  // codes of what is remarkable about the results
    std::string program_end;  // why the row had to end the program; empty where it had not
};

/// The number that `value` is when shown by `mask`; nothing where it is no finite number.
[[nodiscard]] std::optional<double> rounded(double value, std::string_view mask);

void tell(const Session& session, const std::vector<Box>& boxes);
/// Tells wrong cells: the observer all of them, the user box by box as far as he wants to see them.
/// What ends the run by them is told in boxes behind these.
void tell(const BatchJob& job, const std::vector<WrongCell>& cells);
/// Tells the observer alone.
void list(const BatchJob& job, const std::vector<WrongCell>& cells);
/// Wrong cells behind the first wrong row are listed up to so many.
inline constexpr std::size_t most_listed = 1000;

/// How the work on the rows ended.
enum class PassEnd : std::uint8_t {
    Done,
    Refused,  // before the first row was calculated
    Wrong,    // at a wrong row
    Stopped,  // on demand
};

/// What a kind of batch does with the rows of the sheet that is selected.
struct RowWork {
    int first_row = 1;
    std::span<const int> columns{};  // that are read of a row
    std::size_t block = 1;           // rows that are read before they are calculated side by side
    /// Shown each active row in the first pass; may be empty.
    std::function<void(int row)> seen{};
    /// Called between the passes with the number of active rows; any end but `Done` is that of the
    /// work. May be empty.
    std::function<PassEnd(int active)> prepare{};
    /// Reads a case out of the texts of a row, which tells wrong cells.
    std::function<void(const RowTexts&, CellReading&)> check{};
    /// Reads a case out of the texts of a row and calculates it, unless a cell is wrong.
    std::function<void(const RowTexts&, CellReading&, RowOutcome&)> calculate{};
};

/// The first pass counts the active rows down to the first empty flag; any flag but "1" is refused.
/// The second one calculates row by row down to the first empty flag, the row limit, a wrong row or
/// a stop, and writes the results. What is wrong in rows behind a wrong one is listed, so that all
/// can be mended at once. Tells what is wrong, and rows behind the limit; counts into
/// `result`. Throws `ProgramEnd`, which names the row, where one had to.
[[nodiscard]] PassEnd work_rows(const BatchJob& job, const SheetOrigin& origin, Workbook& workbook,
                                const RowWork& work, BatchResult& result);

}  // namespace zel::excel_batch
