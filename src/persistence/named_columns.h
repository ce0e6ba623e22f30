#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/text/csv.h"
#include "platform/text/number_text.h"
#include "steady/case/calc_case.h"

namespace zel {

/// A table of comma-separated values whose first row names the columns. Every refusal is an
/// `InputError` that names file, line and column.
class NamedColumns {
public:
    /// Refuses a table without a first row, one with a column twice, and a row of another length.
    NamedColumns(std::string_view text, std::string file);

    [[nodiscard]] const std::vector<std::string>& columns() const { return columns_; }
    [[nodiscard]] const std::vector<CsvRow>& rows() const { return rows_; }

    /// The cell of a row without the blanks around it; empty where the table has no such column.
    [[nodiscard]] std::string text(const CsvRow& row, std::string_view column) const;

    /// The same for one that must not be empty.
    [[nodiscard]] std::string needed_text(const CsvRow& row, std::string_view column) const;

    /// The number of a cell, with a text as typed under `separator`; without input where the cell
    /// is empty. Refuses what is no number or below `least`.
    [[nodiscard]] Entry number(const CsvRow& row, std::string_view column, double least,
                               DecimalSeparator separator) const;

    /// The whole number of a cell, 0 where it is empty. Refuses what is not from `least` to `most`
    /// or to the largest one.
    [[nodiscard]] std::int16_t whole_number(const CsvRow& row, std::string_view column,
                                            double least, double most) const;

    [[noreturn]] void refuse(const CsvRow& row, std::string_view column,
                             const std::string& reason) const;

private:
    std::string file_;
    std::vector<std::string> columns_;
    std::vector<CsvRow> rows_;
};

}  // namespace zel
