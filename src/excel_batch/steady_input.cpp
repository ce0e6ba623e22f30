#include <algorithm>

#include "excel_batch/workbook_input.h"

namespace zel::excel_batch {
namespace {

using namespace steady_check;

constexpr BoxText busbar_beside_line = {
    Icon::Stop,
    limit_title,
    {"Die Berechnung für Kreisring-Stromschienen kann nicht\n"
     "parallel zur Berechnung von Leiterseilen durchgeführt werden.\n"
     "Bitte setzen Sie das Berechnungsverfahren für Kreisring-Stromschienen in Zelle C7 auf 0",
     "The calculation for tubular busbars can not be carried out\n"
     "parallel to the calculation of overhead conductors.\n"
     "Please set the calculation method for tubular busbars in cell C7 to 0"}};

bool take_methods(Workbook& workbook, WorkbookKind kind, LangId lang, CalcCase& c,
                  CellReading& reading) {
    for (const int place : method_order(kind)) {
        const auto& [field, row, label] = method_cells()[static_cast<std::size_t>(place)];
        c.*field = reading.take_choice(fixed_cell(workbook, row), {"0", "1"}) == 1 ? 1 : 0;
    }
    for (const auto& [field, row, label] : formula_cells()) {
        const auto choice = reading.take_choice(fixed_cell(workbook, row), {"1", "2"});
        if (choice) c.*field = static_cast<std::int16_t>(*choice + 1);
    }
    const unsigned methods = selected(c);
    if ((methods & TBB) == 0 || (methods & (TB601 | TB207 | Webs | Kirn)) == 0) return true;
    for (const ChoiceCell& cell : method_cells())
        if (cell.field == flag_of(Method::TBB))
            reading.refuse_as_told(box_in(lang, busbar_beside_line),
                                   fixed_cell(workbook, cell.row));
    return false;
}

/// The columns that a row of `kind` has.
std::vector<int> columns_of(WorkbookKind kind) {
    std::vector<int> columns;
    for (const InputCell& cell : line_cells()) columns.push_back(cell.column);
    for (const InputCell& cell : {single_current_cell(), bundle_current_cell(), temperature_cell()})
        columns.push_back(cell.column);
    columns.push_back(mode_column);
    if (kind == WorkbookKind::SteadyVar)
        for (const InputCell& cell : conductor_cells()) columns.push_back(cell.column);
    std::sort(columns.begin(), columns.end());
    return columns;
}

/// The cells of the conductor from left to right.
std::vector<InputCell> conductor_columns() {
    std::vector<InputCell> cells(conductor_cells().begin(), conductor_cells().end());
    std::sort(cells.begin(), cells.end(),
              [](const InputCell& a, const InputCell& b) { return a.column < b.column; });
    return cells;
}

}  // namespace

void S_02_io_excel_Fixed_input_einlesen_pruefen_stat(Workbook& workbook, WorkbookKind wanted,
                                                     LangId lang, CalcCase& c,
                                                     CellReading& reading) {
    const std::string identifier = workbook.text(identifier_row, identifier_column);
    if (auto refusal = identifier_refusal(identifier, wanted, lang))
        return reading.refuse_as_told(std::move(*refusal),
                                      {identifier_row, identifier_column, identifier});
    if (!take_methods(workbook, wanted, lang, c, reading)) return;
    const auto at = [&](const InputCell& cell) { return fixed_cell(workbook, cell.fixed_row); };
    for (const InputCell& cell : line_cells()) reading.take(cell, at(cell), c);
    reading.take_currents(at(single_current_cell()), at(bundle_current_cell()), c);
    reading.take(temperature_cell(), at(temperature_cell()), c);
    reading.take_mode(fixed_cell(workbook, mode_row), c);
    if (wanted == WorkbookKind::SteadyVar) return;
    for (const InputCell& cell : conductor_cells()) reading.take(cell, at(cell), c);
    reading.check_conductor(c, conductor_cells(), at);
}

std::span<const int> steady_columns(WorkbookKind kind) {
    static const std::vector<int> fix = columns_of(WorkbookKind::SteadyFix);
    static const std::vector<int> var = columns_of(WorkbookKind::SteadyVar);
    return kind == WorkbookKind::SteadyVar ? var : fix;
}

void take_row(const RowTexts& row, WorkbookKind kind, CalcCase& c, CellReading& reading) {
    static const std::vector<InputCell> conductor = conductor_columns();
    const auto at = [&](const InputCell& cell) { return row.cell(cell.column); };
    for (const InputCell& cell : line_cells()) reading.take(cell, at(cell), c);
    // In the form with conductor columns the two currents have changed places.
    const bool var = kind == WorkbookKind::SteadyVar;
    const CellText left = at(bundle_current_cell());
    const CellText right = at(single_current_cell());
    reading.take_currents(var ? left : right, var ? right : left, c);
    reading.take(temperature_cell(), at(temperature_cell()), c);
    reading.take_mode(row.cell(mode_column), c);
    if (!var) return;
    for (const InputCell& cell : conductor) reading.take(cell, at(cell), c);
    reading.check_conductor(c, conductor, at);
}

}  // namespace zel::excel_batch
