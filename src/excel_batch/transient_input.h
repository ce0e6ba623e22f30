#pragma once

#include <string>
#include <vector>

#include "excel_batch/cell_reading.h"
#include "excel_batch/transient_contract.h"
#include "platform/workbook.h"

// What a transient workbook holds, read cell by cell.

namespace zel::excel_batch {

/// The sheet `fixed_input` of a transient workbook.
struct TransientFixed {
    CalcCase c;
    std::vector<double> percents;            // preloads in percent of the PATL
    std::vector<std::string> percent_texts;  // as they stand in their cells
};

/// `S_102_io_excel_Fixed_input_einlesen_pruefen_transient`: reads the sheet `fixed_input`, which is
/// selected. TB 601 is on, whatever the case holds. A wrong identifier ends it.
void S_102_io_excel_Fixed_input_einlesen_pruefen_transient(Workbook& workbook, LangId lang,
                                                           TransientFixed& fixed,
                                                           CellReading& reading);

/// The texts of the columns 4 to 11 of a row.
struct TransientRowTexts {
    int row = 0;
    std::vector<std::string> texts;  // by column
};

[[nodiscard]] TransientRowTexts transient_row_texts(Workbook& workbook, int row);

/// Takes a row into `c`: its angle is that of the wind to the conductor. Gives the time of the TATL
/// in s, whose limits are `time`.
double take_transient_row(const TransientRowTexts& row, const Limits& time, CalcCase& c,
                          CellReading& reading);

}  // namespace zel::excel_batch
