#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/errors.h"

// Workbooks of a spreadsheet program, changed in place. Rows and columns count from 1.

namespace zel {

enum class WorkbookFault : std::uint8_t {
    Missing,   // nothing stands under the name
    Denied,    // no right to read or to replace it
    Locked,    // open in another program
    Changed,   // another program wrote it after it was read
    Damaged,   // no workbook, or none that can be understood
    NoSheet,   // a worksheet is missing
    Entwined,  // cells to be overwritten are merged, or a formula reaches from them into others
};

/// The row of the central error table that tells `fault`.
[[nodiscard]] constexpr PlatformFault platform_fault(WorkbookFault fault) {
    switch (fault) {
        case WorkbookFault::Missing: return PlatformFault::FileNotFound;
        case WorkbookFault::Denied: return PlatformFault::DatabaseDenied;
        case WorkbookFault::Locked: return PlatformFault::FileOpen;
        case WorkbookFault::NoSheet: return PlatformFault::SheetMissing;
        default: return PlatformFault::Unforeseen;  // the cause is told below the message
    }
}

/// A workbook that cannot be read or changed. `what()` names it, the place in it and the reason.
/// `subject()` is the worksheet that is missing.
class WorkbookError : public InputError {
public:
    WorkbookError(WorkbookFault fault, Reason reason, std::string sheet = {})
        : InputError(std::move(reason), platform_fault(fault), std::move(sheet)), fault_(fault) {}
    [[nodiscard]] WorkbookFault fault() const { return fault_; }

private:
    WorkbookFault fault_;
};

struct CellArea {
    int first_row;
    int first_column;
    int last_row;
    int last_column;

    [[nodiscard]] bool holds(int row, int column) const {
        return row >= first_row && row <= last_row && column >= first_column &&
               column <= last_column;
    }
    [[nodiscard]] bool meets(const CellArea& other) const {
        return first_row <= other.last_row && other.first_row <= last_row &&
               first_column <= other.last_column && other.first_column <= last_column;
    }
};

/// An open workbook. Nothing of what is set reaches the file before `save`.
class Workbook {
public:
    virtual ~Workbook() = default;

    /// The cells of this worksheet are meant from now on. Throws `WorkbookError` (`NoSheet`).
    virtual void select(std::string_view sheet) = 0;

    /// What the cell holds, as text: a number with a decimal comma and at most 15 digits, a date as
    /// "31.12.2026" or "31.12.2026 23:59:59", a truth value as "TRUE" or "FALSE", an error as
    /// "#N/A", a formula as its last result. Empty where there is no cell. Reading is fastest row
    /// by row.
    [[nodiscard]] virtual std::string text(int row, int column) = 0;

    /// Throws `WorkbookError` (`Entwined`) where cells of the area are merged with others: what is
    /// written into all but the first of them is not shown.
    virtual void require_single_cells(const CellArea& area) = 0;

    /// The cell becomes a number or a text; its format stays.
    virtual void set_number(int row, int column, double value) = 0;
    virtual void set_text(int row, int column, std::string_view text) = 0;

    /// Empties the cells of the area; their formats stay.
    virtual void clear(const CellArea& area) = 0;

    /// Replaces the file, whole or not at all, and ends the use of this workbook. What was not set
    /// or cleared stays as it was. Throws `WorkbookError` (`Changed`, `Locked`, `Entwined`) and
    /// `OutputError`; the former file is then unharmed.
    virtual void save() = 0;
};

struct SheetDesign;

/// Where workbooks are found by their name.
class WorkbookStore {
public:
    virtual ~WorkbookStore() = default;

    /// Makes a workbook of the worksheets of `design` in place of what stood under the name, whole
    /// or not at all. Throws `OutputError`.
    virtual void create(const std::string& path, const std::vector<SheetDesign>& design,
                        const std::string& title) = 0;

    /// Opens a workbook to be changed. Throws `WorkbookError`.
    [[nodiscard]] virtual std::unique_ptr<Workbook> open(const std::string& path) = 0;
};

}  // namespace zel
