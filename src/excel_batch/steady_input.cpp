#include "excel_batch/steady_input.h"

#include <algorithm>

#include "excel_batch/field_labels.h"
#include "excel_batch/identifier_check.h"

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

constexpr BoxText missing_data = {
    Icon::Warning,
    {"Fehlende Leiterdaten", "Missing conductor data"},
    {"Beim Leiter {3}erfolgte keine Angabe zu: {0}\n"
     "Der Wert wird gelesen von: {1}\n"
     "Bitte füllen Sie {2} aus oder wählen Sie vor der Berechnung einen Leiter.",
     "The conductor {3}hasn't a value for: {0}\n"
     "It is read by: {1}\n"
     "Please fill in {2}, or choose a conductor before the calculation."}};

/// A cell of `fixed_input` with its text, which must stay until the cell is read.
class FixedCells {
public:
    explicit FixedCells(Workbook& workbook) : workbook_(workbook) {}
    CellText at(int row) {
        text_ = workbook_.text(row, input_column);
        return {row, input_column, text_};
    }

private:
    Workbook& workbook_;
    std::string text_;
};

bool take_methods(FixedCells& cells, WorkbookKind kind, LangId lang, CalcCase& c,
                  CellReading& reading) {
    for (const int place : method_order(kind)) {
        const auto& [field, row, label] = method_cells()[static_cast<std::size_t>(place)];
        c.*field = reading.take_choice(cells.at(row), {"0", "1"}) == 1 ? 1 : 0;
    }
    for (const auto& [field, row, label] : formula_cells()) {
        const auto choice = reading.take_choice(cells.at(row), {"1", "2"});
        if (choice) c.*field = static_cast<std::int16_t>(*choice + 1);
    }
    const unsigned methods = selected(c);
    if ((methods & TBB) == 0 || (methods & (TB601 | TB207 | Webs | Kirn)) == 0) return true;
    reading.refuse(box_in(lang, busbar_beside_line));
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

struct MissingField {
    Entry CalcCase::*field;
    unsigned methods;  // that read it
    bool (*reads)(const CalcCase&);
};

constexpr MissingField fields_that_may_miss[] = {
    {&CalcCase::DrahtdurchmesserLeiter_db, TB601 | TB207 | TBB,
     [](const CalcCase&) { return true; }},
    {&CalcCase::DC_Resist_Leiter_db, TB601 | TBB | Webs, [](const CalcCase&) { return true; }},
    {&CalcCase::KerndurchmesserTraeger_db, TB601,
     [](const CalcCase& c) {
         return c.conductor_type_db == steel_cored_conductor ||
                c.conductor_type_db == composite_core_conductor;
     }},
};

std::string names_of(unsigned methods) {
    std::string names;
    for (const Method method : all_methods) {
        if ((bit(method) & methods) == 0) continue;
        if (!names.empty()) names += ", ";
        names += find_method(method)->name;
    }
    return names;
}

const InputCell& conductor_cell(const FieldKey& field) {
    const auto cells = conductor_cells();
    return *std::find_if(cells.begin(), cells.end(),
                         [&](const InputCell& cell) { return cell.field == field; });
}

std::string place_of(const InputCell& cell, WorkbookKind kind, LangId lang) {
    if (kind == WorkbookKind::SteadyFix)
        return fill(Text{"Zelle C{0} in Arbeitsblatt {1}", "cell C{0} of worksheet {1}"}.in(lang),
                    {std::to_string(cell.fixed_row), fixed_sheet});
    return fill(Text{"Spalte {0} in Arbeitsblatt {1}", "column {0} of worksheet {1}"}.in(lang),
                {std::to_string(cell.column), rows_sheet});
}

}  // namespace

void S_02_io_excel_Fixed_input_einlesen_pruefen_stat(Workbook& workbook, WorkbookKind wanted,
                                                     LangId lang, CalcCase& c,
                                                     CellReading& reading) {
    const std::string identifier = workbook.text(identifier_row, identifier_column);
    if (auto refusal = identifier_refusal(identifier, wanted, lang))
        return reading.refuse(std::move(*refusal));
    FixedCells cells(workbook);
    if (!take_methods(cells, wanted, lang, c, reading)) return;
    const unsigned methods = selected(c);
    for (const InputCell& cell : line_cells())
        reading.take(cell, cells.at(cell.fixed_row), c, methods);
    FixedCells bundle(workbook);
    reading.take_currents(cells.at(single_current_cell().fixed_row),
                          bundle.at(bundle_current_cell().fixed_row), c, methods);
    reading.take(temperature_cell(), cells.at(temperature_cell().fixed_row), c, methods);
    reading.take_mode(cells.at(mode_row), c);
    if (wanted == WorkbookKind::SteadyVar) return;
    for (const InputCell& cell : conductor_cells())
        reading.take(cell, cells.at(cell.fixed_row), c, methods);
    reading.check_conductor(c, methods);
}

RowTexts row_texts(Workbook& workbook, WorkbookKind kind, int row) {
    static const std::vector<int> fix = columns_of(WorkbookKind::SteadyFix);
    static const std::vector<int> var = columns_of(WorkbookKind::SteadyVar);
    const std::vector<int>& columns = kind == WorkbookKind::SteadyVar ? var : fix;
    RowTexts texts = {row, {}};
    texts.texts.resize(static_cast<std::size_t>(columns.back()) + 1);
    for (const int column : columns)
        texts.texts[static_cast<std::size_t>(column)] = workbook.text(row, column);
    return texts;
}

void take_row(const RowTexts& row, WorkbookKind kind, CalcCase& c, CellReading& reading) {
    static const std::vector<InputCell> conductor = conductor_columns();
    const unsigned methods = selected(c);
    for (const InputCell& cell : line_cells())
        reading.take(cell, row.cell(cell.column), c, methods);
    // In the form with conductor columns the two currents have changed places.
    const bool var = kind == WorkbookKind::SteadyVar;
    const int single = single_current_cell().column;
    const int bundle = bundle_current_cell().column;
    reading.take_currents(row.cell(var ? bundle : single), row.cell(var ? single : bundle), c,
                          methods);
    reading.take(temperature_cell(), row.cell(temperature_cell().column), c, methods);
    reading.take_mode(row.cell(mode_column), c);
    if (!var) return;
    for (const InputCell& cell : conductor) reading.take(cell, row.cell(cell.column), c, methods);
    reading.check_conductor(c, methods);
}

CalcCase with_conductor_of(Workbook& workbook, int row, const CalcCase& fixed) {
    CalcCase c = fixed;
    const SheetOrigin nowhere;
    CellReading passed_over(nowhere);
    const auto take = [&](const FieldKey& field) {
        const InputCell& cell = conductor_cell(field);
        const std::string text = workbook.text(row, cell.column);
        passed_over.take(cell, {row, cell.column, text}, c, selected(c));
    };
    take(&CalcCase::conductor_type_db);
    for (const MissingField& missing : fields_that_may_miss) take(missing.field);
    return c;
}

std::vector<Box> missing_conductor_data(const CalcCase& c, WorkbookKind kind, int row,
                                        LangId lang) {
    std::vector<Box> boxes;
    const unsigned methods = selected(c);
    const std::string of_row =
        row == 0 ? std::string()
                 : fill(Text{"in Zeile {0} ", "in row {0} "}.in(lang), {std::to_string(row)});
    for (const auto& [field, readers, reads] : fields_that_may_miss) {
        if ((readers & methods) == 0 || !reads(c) || (c.*field).value != 0) continue;
        const InputCell& cell = conductor_cell(field);
        boxes.push_back(box_in(lang, missing_data,
                               {label_of(cell.field).label.in(lang), names_of(readers & methods),
                                place_of(cell, kind, lang), of_row}));
    }
    return boxes;
}

}  // namespace zel::excel_batch
