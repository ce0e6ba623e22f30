#include "excel_batch/batch_fixture.h"
#include "excel_batch/field_labels.h"
#include "excel_batch/input_cells.h"

namespace zel::excel_batch {
namespace {

constexpr WorkbookKind all_kinds[] = {WorkbookKind::SteadyFix, WorkbookKind::SteadyVar,
                                      WorkbookKind::Transient};

TEST(Identifiers, each_kind_is_told_in_two_languages) {
    EXPECT_EQ(kind_of("DS80b_G_Conductor_fix"), WorkbookKind::SteadyFix);
    EXPECT_EQ(kind_of("DS80b_E_Conductor_fix"), WorkbookKind::SteadyFix);
    EXPECT_EQ(kind_of("DS80b_G_Conductor_var"), WorkbookKind::SteadyVar);
    EXPECT_EQ(kind_of("DS80b_E_Conductor_var"), WorkbookKind::SteadyVar);
    EXPECT_EQ(kind_of("DS81a_G_Conductor_fix_transient"), WorkbookKind::Transient);
    EXPECT_EQ(kind_of("DS81a_E_Conductor_fix_transient"), WorkbookKind::Transient);
    for (const char* other : {"", "DS80b_g_Conductor_fix", "DS80b_G_Conductor_fix "})
        EXPECT_FALSE(kind_of(other)) << other;
}

TEST(Templates, have_the_identifier_of_their_kind_and_language) {
    for (const WorkbookKind kind : all_kinds) {
        const std::string german =
            text_of(cells_of(template_design(kind, LangId::German, {}))["fixed_input"], 2, 2);
        const std::string english =
            text_of(cells_of(template_design(kind, LangId::English, {}))["fixed_input"], 2, 2);
        EXPECT_EQ(kind_of(german), kind);
        EXPECT_EQ(kind_of(english), kind);
        EXPECT_NE(german, english);
    }
}

/// Whether a cell of the sheet is laid out for input.
bool is_input(const SheetDesign& sheet, int row, int column) {
    return std::any_of(sheet.cells.begin(), sheet.cells.end(), [&](const DesignCell& cell) {
        return cell.row == row && cell.column == column && cell.look == CellLook::Input;
    });
}

TEST(Templates, lay_out_every_input_cell_once) {
    for (const WorkbookKind kind : all_kinds) {
        const WorkbookDesign design = template_design(kind, LangId::English, {});
        std::vector<InputCell> cells;
        const auto add = [&](std::span<const InputCell> table) {
            cells.insert(cells.end(), table.begin(), table.end());
        };
        if (kind == WorkbookKind::Transient)
            add(transient_fixed_cells());
        else
            add(line_cells());
        if (kind == WorkbookKind::SteadyFix) add(conductor_cells());
        for (const InputCell& cell : cells) {
            EXPECT_TRUE(is_input(design[0], cell.fixed_row, 3)) << cell.fixed_row;
            EXPECT_EQ(text_of(cells_of(design)["fixed_input"], cell.fixed_row, 2),
                      label_of(cell.field).label.en);
        }
    }
}

TEST(Templates, rows_are_empty_but_for_the_heads) {
    for (const WorkbookKind kind : {WorkbookKind::SteadyFix, WorkbookKind::Transient}) {
        const MemorySheets sheets = cells_of(template_design(kind, LangId::German, {}));
        for (const auto& [place, content] : sheets.at("variable_input_result"))
            EXPECT_LT(place.first, row_of(kind).first_row) << place.second;
    }
}

TEST_F(Batch, a_filled_template_with_a_conductor_runs) {
    const CalcCase line = line_of_all_methods();
    for (const WorkbookKind kind : {WorkbookKind::SteadyFix, WorkbookKind::SteadyVar}) {
        start_steady(kind, line);
        next_row = 5;
        const MemorySheets typed_in = workbook();
        add_row(line);
        const MemorySheets with_row = workbook();
        // The same conductor comes with the template.
        workbook() = cells_of(template_design(kind, LangId::German, line));
        const auto missing = [](MemorySheet& to, const MemorySheet& from) {
            for (const auto& [place, content] : from) to.try_emplace(place, content);
        };
        missing(fixed(), typed_in.at("fixed_input"));
        missing(rows(), with_row.at("variable_input_result"));
        ASSERT_EQ(run().end, BatchEnd::Done);
        EXPECT_EQ(result(5, kind == WorkbookKind::SteadyFix ? 34 : 72), "1300");
    }
}

}  // namespace
}  // namespace zel::excel_batch
