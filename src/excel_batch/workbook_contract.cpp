#include "excel_batch/workbook_contract.h"

#include <algorithm>
#include <string>

namespace zel::excel_batch {
namespace {

constexpr std::array<std::string_view, 7> template_names = {
    "Template_calc_h_german_80.xlsx",
    "Template_calc_v_german_80.xlsx",
    "Template_calc_h_english_80.xlsx",
    "Template_calc_german_81a_cfix_transient.xlsx",
    "Template_calc_english_81a_cfix_transient.xlsx",
    "Template_out_german.xlsx",
    "Template_out_english.xlsx",
};

constexpr ChoiceCell methods[] = {
    {&CalcCase::rechnung_cigre601_merker_db, 5, {"Cigre TB 601 (1 / 0)", "Cigre TB 601 (1 / 0)"}},
    {&CalcCase::rechnung_cigre207_merker_db, 6, {"Cigre TB 207 (1 / 0)", "Cigre TB 207 (1 / 0)"}},
    {&CalcCase::rechnung_TBB_merker_db,
     7,
     {"Puffer / Kreisring-Stromschiene (1 / 0)", "Puffer / tubular busbar (1 / 0)"}},
    {&CalcCase::rechnung_kirn_merker_db, 8, {"Kirn (1 / 0)", "Kirn (1 / 0)"}},
    {&CalcCase::rechnung_webs_merker_db, 9, {"Webs (1 / 0)", "Webs (1 / 0)"}},
};

constexpr ChoiceCell formulas[] = {
    {&CalcCase::Formel_merker1_db,
     11,
     {"Skin-Effekt nach Webs (1 = ABB, 2 = Kiessling)",
      "Skin effect by Webs (1 = ABB, 2 = Kiessling)"}},
    {&CalcCase::wzsz_merker_db,
     12,
     {"Sommer-/ Winterzeit berücksichtigen (1 = ja, 2 = nein)",
      "Consider summertime / wintertime (1 = yes, 2 = no)"}},
};

}  // namespace

std::optional<WorkbookKind> kind_of(std::string_view identifier) {
    for (const KindRow& row : kinds)
        if (identifier == row.german || identifier == row.english) return row.kind;
    return std::nullopt;
}

std::optional<WorkbookKind> kind_of(Workbook& workbook) {
    try {
        workbook.select(fixed_sheet);
    } catch (const WorkbookError& error) {
        if (error.fault() == WorkbookFault::NoSheet) return std::nullopt;
        throw;
    }
    return kind_of(workbook.text(identifier_row, identifier_column));
}

CellArea result_area(WorkbookKind kind) {
    const KindRow& row = row_of(kind);
    return {row.first_row, row.first_result_column, row.first_row + row_limit - 1,
            row.last_result_column};
}

bool is_shipped_template(std::string_view path, std::string_view data_folder) {
    const std::string folder = std::string(data_folder) + "/";
    return std::any_of(template_names.begin(), template_names.end(), [&](std::string_view name) {
        return same_name(path, folder + std::string(name));
    });
}

std::span<const ChoiceCell> method_cells() { return methods; }

std::array<int, 5> method_order(WorkbookKind kind) {
    if (kind == WorkbookKind::SteadyFix) return {0, 1, 3, 4, 2};
    return {0, 1, 2, 3, 4};
}

std::span<const ChoiceCell> formula_cells() { return formulas; }

}  // namespace zel::excel_batch
