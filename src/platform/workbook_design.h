#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

#include "platform/workbook.h"

// A new workbook as a value.

namespace zel {

enum class CellLook : std::uint8_t {
    Plain,
    Title,    // large
    Heading,  // above a group of cells
    Label,
    Note,         // units and limits
    Input,        // to be filled in
    ColumnHead,   // wraps its text
    WholeResult,  // a number without decimals
    TenthResult,  // a number with one decimal
};

struct DesignCell {
    int row;
    int column;
    std::variant<std::monostate, double, std::string> content;
    CellLook look = CellLook::Plain;
};

/// Look and width of all cells of some columns; a width of 0 is the usual one.
struct DesignColumns {
    int first;
    int last;
    double width = 0;  // characters
    CellLook look = CellLook::Plain;
};

/// What the user may enter into the cells of an area.
struct DesignRule {
    CellArea area;
    double low;
    double high;
    bool whole = false;
};

struct SheetDesign {
    std::string name;
    std::vector<DesignCell> cells;
    std::vector<DesignColumns> columns;
    std::vector<DesignRule> rules;
    int fixed_rows = 0;  // stay in sight
    int fixed_columns = 0;
};

using WorkbookDesign = std::vector<SheetDesign>;

/// Adds a cell, set field by field: g++ 12 takes the aggregate for partly uninitialised.
void add_cell(SheetDesign& sheet, int row, int column,
              std::variant<std::monostate, double, std::string> content,
              CellLook look = CellLook::Plain);

}  // namespace zel
