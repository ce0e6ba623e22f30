#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/text/csv.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "steady/case/calc_case.h"

namespace zel {

/// A table of comma-separated values whose first row names the columns. Every refusal is an
/// `InputError` that names file, line and column. It refers to its text.
class NamedColumns {
public:
    /// Refuses a table without a first row, and one with a damaged one or a column twice.
    NamedColumns(std::string_view text, std::string file);
    NamedColumns(const NamedColumns&) = delete;
    NamedColumns& operator=(const NamedColumns&) = delete;

    /// Refuses a row that cannot be taken apart, is no UTF-8, or has another number of cells than
    /// there are columns.
    void check(const CsvRow& row) const;

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
                             const Reason& reason) const;

private:
    std::string file_;
    std::vector<std::string> columns_;
    std::unordered_map<std::string_view, std::size_t> places_;  // of the columns
    std::vector<CsvRow> rows_;
};

}  // namespace zel
