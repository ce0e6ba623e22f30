#pragma once

#include <string>
#include <vector>

#include "excel_batch/cell_reading.h"

// What the workbooks hold, read cell by cell. A wrong identifier, and methods that exclude each
// other, end the reading of a sheet `fixed_input`, which is selected; every other wrong cell is
// told through `reading`.

namespace zel::excel_batch {

/// `S_02_io_excel_Fixed_input_einlesen_pruefen_stat`: reads a workbook of `wanted` into `c`, whose
/// conductor stands where no cell names it.
void S_02_io_excel_Fixed_input_einlesen_pruefen_stat(Workbook& workbook, WorkbookKind wanted,
                                                     LangId lang, CalcCase& c,
                                                     CellReading& reading);

/// The columns that a row of a steady workbook of `kind` names, by rising numbers.
[[nodiscard]] std::span<const int> steady_columns(WorkbookKind kind);

/// Takes a row into `c`, which holds what the sheet `fixed_input` gave. An empty cell keeps nothing
/// of it.
void take_row(const RowTexts& row, WorkbookKind kind, CalcCase& c, CellReading& reading);

/// The sheet `fixed_input` of a transient workbook.
struct TransientFixed {
    CalcCase c;
    std::vector<double> percents{};            // preloads in percent of the PATL
    std::vector<std::string> percent_texts{};  // as they stand in their cells
};

/// `S_102_io_excel_Fixed_input_einlesen_pruefen_transient`: TB 601 is on, whatever the case holds.
void S_102_io_excel_Fixed_input_einlesen_pruefen_transient(Workbook& workbook, LangId lang,
                                                           TransientFixed& fixed,
                                                           CellReading& reading);

/// The columns that a row of a transient workbook names.
[[nodiscard]] std::span<const int> transient_columns();

/// Takes a row into `c`: its angle is that of the wind to the conductor. Gives the time of the TATL
/// in s, whose limits are `time`.
double take_transient_row(const RowTexts& row, const Limits& time, CalcCase& c,
                          CellReading& reading);

}  // namespace zel::excel_batch
