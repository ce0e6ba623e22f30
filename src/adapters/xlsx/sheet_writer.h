#pragma once

#include <string>
#include <vector>

#include "adapters/xlsx/cell_edits.h"
#include "adapters/xlsx/sheet.h"

namespace zel::xlsx {

struct EditedSheet {
    std::string xml;
    bool lost_formula = false;  // a formula was overwritten
};

/// The XML text of a worksheet with `edits`; all bytes but those of changed cells are kept. A
/// changed cell keeps its format, a new one takes that of its row or column. Throws
/// `WorkbookError`: `Entwined` where a formula that is overwritten also fills cells that are not.
[[nodiscard]] EditedSheet edited_sheet(std::string_view xml, const SheetIndex& index,
                                       const CellEdits& edits);

}  // namespace zel::xlsx
