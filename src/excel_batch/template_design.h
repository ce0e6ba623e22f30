#pragma once

#include <optional>
#include <string>

#include "excel_batch/workbook_contract.h"
#include "platform/workbook_design.h"
#include "steady/case/calc_case.h"

namespace zel::excel_batch {

/// An empty workbook of `kind`, labelled in `lang`, ready to be filled in. Cells with a usual value
/// have it. A `conductor` fills the cells of the conductor: those of `fixed_input`, or those of the
/// first row.
[[nodiscard]] WorkbookDesign template_design(WorkbookKind kind, LangId lang,
                                             const std::optional<CalcCase>& conductor);

/// What a file of that workbook may be called, without an ending.
[[nodiscard]] std::string template_name(WorkbookKind kind, LangId lang);

/// The title of that workbook.
[[nodiscard]] std::string template_title(WorkbookKind kind, LangId lang);

}  // namespace zel::excel_batch
