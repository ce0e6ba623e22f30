#pragma once

#include <string>
#include <vector>

#include "excel_batch/cell_reading.h"
#include "excel_batch/workbook_contract.h"
#include "platform/workbook.h"

// What a steady workbook holds, read cell by cell.

namespace zel::excel_batch {

/// `S_02_io_excel_Fixed_input_einlesen_pruefen_stat`: reads the sheet `fixed_input`, which is
/// selected, as a workbook of `wanted` into `c`, whose conductor stands where no cell names it.
/// Every wrong cell is told through `reading`; a wrong identifier and methods that exclude each
/// other end it.
void S_02_io_excel_Fixed_input_einlesen_pruefen_stat(Workbook& workbook, WorkbookKind wanted,
                                                     LangId lang, CalcCase& c,
                                                     CellReading& reading);

/// The texts of one row of the sheet `variable_input_result`, by column.
struct RowTexts {
    int row = 0;
    std::vector<std::string> texts;

    [[nodiscard]] CellText cell(int column) const {
        return {row, column, texts[static_cast<std::size_t>(column)]};
    }
};

/// Reads the cells of `row` that a steady workbook of `kind` names.
[[nodiscard]] RowTexts row_texts(Workbook& workbook, WorkbookKind kind, int row);

/// Takes a row into `c`, which holds what the sheet `fixed_input` gave. An empty cell keeps nothing
/// of it.
void take_row(const RowTexts& row, WorkbookKind kind, CalcCase& c, CellReading& reading);

}  // namespace zel::excel_batch
