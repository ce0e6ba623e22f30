#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace zel::xlsx {

/// A worksheet in which formulas are looked for.
struct FormulaSheet {
    std::string name;
    std::string part;
    std::set<int> changed_columns;  // in which cells were set or cleared
    std::set<int> kept_columns;     // whose values were read, and hold whatever they depend on
    /// The XML text, which may be large: called when it is needed.
    std::function<std::string()> text{};
};

/// Formulas keep the value that was last calculated for them. Gives the texts, by part, of the
/// sheets with formulas whose value may come from a changed column, without these values: a
/// spreadsheet program calculates a formula that has none when it opens the workbook. `names` are
/// the names that the workbook defines, with their formulas.
[[nodiscard]] std::map<std::string, std::string> without_stale_values(
    const std::vector<FormulaSheet>& sheets, const std::map<std::string, std::string>& names);

}  // namespace zel::xlsx
