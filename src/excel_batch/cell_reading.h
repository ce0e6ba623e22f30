#pragma once

#include <functional>
#include <initializer_list>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "excel_batch/batch_run.h"
#include "excel_batch/input_cells.h"
#include "excel_batch/workbook_contract.h"
#include "platform/workbook.h"

namespace zel::excel_batch {

/// Where the cells stand that are read, for what is told of a wrong one.
struct SheetOrigin {
    std::string workbook;
    std::string_view sheet;
    LangId lang = LangId::English;
};

/// A cell as it stands in the workbook.
struct CellText {
    int row;
    int column;
    std::string text;
};

/// The cell in column C of the sheet `fixed_input`, which is selected.
[[nodiscard]] CellText fixed_cell(Workbook& workbook, int row);

/// The texts of one row of the sheet `variable_input_result`, by column.
struct RowTexts {
    int row = 0;
    std::vector<std::string> texts;

    [[nodiscard]] CellText cell(int column) const {
        return {row, column, texts[static_cast<std::size_t>(column)]};
    }
};

/// Reads the cells of `row` in `columns`, of which the last is the largest.
[[nodiscard]] RowTexts row_texts(Workbook& workbook, std::span<const int> columns, int row);

/// Takes cells into a case. A wrong one is told by a box and leaves its field without input; the
/// reading goes on, so that every wrong cell is told.
class CellReading {
public:
    explicit CellReading(const SheetOrigin& origin) : origin_(origin) {}

    /// The number of `cell` goes to its field, unless no active method reads it. A number has a
    /// decimal comma; a point makes the text no number.
    void take(const InputCell& input, const CellText& cell, CalcCase& c);

    /// The number of `cell` where it is within `limits`.
    std::optional<double> take_number(const Limits& limits, const CellText& cell);

    /// The text must be one of `texts`; gives its place among them.
    std::optional<int> take_choice(const CellText& cell, std::initializer_list<const char*> texts,
                                   const Text& permissible = {});

    /// Exactly one of the currents of a sub-conductor and of the bundle is given.
    void take_currents(const CellText& single, const CellText& bundle, CalcCase& c);

    /// "1": the conductor temperature is given; "2": the current is.
    void take_mode(const CellText& cell, CalcCase& c);

    /// Refuses methods of `c` that do not go with its conductor, which was taken from `cells`; `at`
    /// shows one of them.
    void check_conductor(const CalcCase& c, std::span<const InputCell> cells,
                         const std::function<CellText(const InputCell&)>& at);

    /// The cell holds no correct input; `permissible` tells what it may hold.
    void refuse(const CellText& cell, const Text& permissible = {});
    /// `box` is told, followed by the place of the cell.
    void refuse(Box box, const CellText& cell);
    /// `box` is told as it is; it is about the cell, or about the sheet that begins with it.
    void refuse_as_told(Box box, const CellText& cell);

    [[nodiscard]] bool sound() const { return refusals_.empty(); }
    [[nodiscard]] const std::vector<WrongCell>& refusals() const { return refusals_; }
    [[nodiscard]] std::vector<WrongCell> take_refusals() { return std::move(refusals_); }

private:
    [[nodiscard]] std::optional<double> sound_number(const CellText& cell, const Limits& limits,
                                                     CellKind kind);

    const SheetOrigin& origin_;
    std::vector<WrongCell> refusals_;
};

}  // namespace zel::excel_batch
