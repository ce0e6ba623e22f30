#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/xlsx/xlsx_archive.h"

namespace zel::xlsx {

struct SheetPart {
    std::string name;  // as the user sees it
    std::string part;
};

/// Which parts of the archive make up the workbook: their names are nowhere fixed and follow from
/// the relationships.
struct WorkbookParts {
    std::string workbook;
    std::string relationships;  // of the workbook part
    std::vector<SheetPart> sheets;
    std::string shared_strings;  // empty where there is none
    std::string styles;
    std::string calculation_chain;
    std::map<std::string, std::string> names;  // that the workbook defines, with their formulas
    bool from_1904 = false;                    // dates count from 1904
};

/// Throws `WorkbookError` (`Damaged`).
[[nodiscard]] WorkbookParts workbook_parts(const Archive& archive);

/// Takes the calculation chain away, which names formulas that are gone. Spreadsheet programs make
/// a new one.
void drop_calculation_chain(Archive& archive, const WorkbookParts& parts);

/// Asks spreadsheet programs to calculate all formulas when they open the workbook.
void demand_calculation(Archive& archive, const WorkbookParts& parts);

}  // namespace zel::xlsx
