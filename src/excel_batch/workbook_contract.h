#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

#include "platform/message_box.h"
#include "platform/workbook.h"
#include "steady/case/calc_case.h"
#include "workflow/run/steady_methods.h"

// The form of the workbooks: their kinds, and where flags, choices and results stand. The inputs
// stand in input_cells.h. Rows and columns count from 1.

namespace zel::excel_batch {

inline constexpr std::string_view fixed_sheet = "fixed_input";
inline constexpr std::string_view rows_sheet = "variable_input_result";

inline constexpr int input_column = 3;  // of `fixed_sheet`: all inputs stand in C
inline constexpr int identifier_row = 2;
inline constexpr int identifier_column = 2;
inline constexpr int flag_column = 2;     // of `rows_sheet`: 1 active, 2 inactive
inline constexpr int row_limit = 100000;  // rows that one run takes

enum class WorkbookKind : std::uint8_t {
    SteadyFix,  // the conductor stands in `fixed_sheet`
    SteadyVar,  // each row has its own conductor
    Transient,
};

struct KindRow {
    WorkbookKind kind;
    std::string_view german;  // what cell B2 of `fixed_sheet` holds
    std::string_view english;
    int first_row;            // with a calculation
    int first_result_column;  // everything from there on is the program's
    int last_result_column;
};

inline constexpr std::array kinds = {
    KindRow{WorkbookKind::SteadyFix, "DS80b_G_Conductor_fix", "DS80b_E_Conductor_fix", 5, 34, 43},
    KindRow{WorkbookKind::SteadyVar, "DS80b_G_Conductor_var", "DS80b_E_Conductor_var", 5, 72, 81},
    KindRow{WorkbookKind::Transient, "DS81a_G_Conductor_fix_transient",
            "DS81a_E_Conductor_fix_transient", 4, 13, 34},
};

[[nodiscard]] constexpr const KindRow& row_of(WorkbookKind kind) {
    return kinds[static_cast<std::size_t>(kind)];
}

/// The kind that a text in cell B2 names, or nothing.
[[nodiscard]] std::optional<WorkbookKind> kind_of(std::string_view identifier);

/// What a workbook that is to be looked at is for, if anything. Throws `WorkbookError`.
[[nodiscard]] std::optional<WorkbookKind> kind_of(Workbook& workbook);

/// The refusal of a workbook whose cell B2 does not hold an identifier of the wanted kind.
[[nodiscard]] std::optional<Box> identifier_refusal(std::string_view identifier,
                                                    WorkbookKind wanted, LangId lang);

/// All result cells of a workbook.
[[nodiscard]] CellArea result_area(WorkbookKind kind);

/// Whether `path` is one of the templates in `data_folder` that the program ships, which stay as
/// they are. Large and small letters are the same.
[[nodiscard]] bool is_shipped_template(std::string_view path, std::string_view data_folder);

/// A cell of `fixed_sheet` with a number that stands for a choice.
struct ChoiceCell {
    std::int16_t CalcCase::*field;
    int row;
    Text label;
};

/// The methods, each "1" where it is active and "0" where not.
[[nodiscard]] std::span<const ChoiceCell> method_cells();
/// The same in the order in which the form without conductor columns reads them.
[[nodiscard]] std::array<int, 5> method_order(WorkbookKind kind);

/// Skin effect of Webs and summer time, each "1" or "2". They hold for the run.
[[nodiscard]] std::span<const ChoiceCell> formula_cells();

/// "1" where the conductor temperature is given, "2" where the current is.
inline constexpr int mode_row = 47;     // of `fixed_sheet`
inline constexpr int mode_column = 32;  // of `rows_sheet`

/// In a transient workbook the conductor stands below this row of `fixed_sheet`, the preloads in
/// percent of the PATL from the next one down to the first empty cell.
inline constexpr int first_conductor_row = 21;
inline constexpr int first_percent_row = 64;
inline constexpr int most_percent_values = 21;

/// Its rows have the time of the TATL, and the angle of the wind is that to the conductor.
inline constexpr int time_column = 11;
inline constexpr Text time_label = {"TATL-Zeitdauer", "TATL-time"};
inline constexpr Text wind_to_conductor = {"Winkel Wind zu Leiter", "Angle wind to conductor"};

/// The PATL of a row; the TATL of each percent value stand to the right of it.
inline constexpr int patl_column = 13;
inline constexpr int header_row = 2;

/// Where the steady results of a method stand: the current, and beside it the temperature.
struct ResultColumns {
    Method method;
    int fix;  // in the form without conductor columns
    int var;

    [[nodiscard]] int current(WorkbookKind kind) const {
        return kind == WorkbookKind::SteadyVar ? var : fix;
    }
    [[nodiscard]] int temperature(WorkbookKind kind) const { return current(kind) + 1; }
};

/// In the order in which the methods run.
inline constexpr std::array steady_results = {
    ResultColumns{Method::TB601, 34, 72}, ResultColumns{Method::TB207, 36, 74},
    ResultColumns{Method::Kirn, 38, 76},  ResultColumns{Method::Webs, 40, 78},
    ResultColumns{Method::TBB, 42, 80},
};

inline constexpr std::string_view current_mask = "####0";
inline constexpr std::string_view temperature_mask = "###0.0";
inline constexpr std::string_view patl_mask = "####0";
inline constexpr std::string_view tatl_mask = "######0";
inline constexpr std::string_view failed_result = "Error";

}  // namespace zel::excel_batch
