#include "excel_batch/workbook_input.h"

namespace zel::excel_batch {
namespace {

constexpr BoxText no_sub_conductors = {Icon::Stop,
                                       limit_title,
                                       {"Es wurde keine Angabe für Anzahl Teilleiter gemacht",
                                        "You havn't made an input for the number of conductors"}};

constexpr BoxText no_percent_value = {Icon::Stop,
                                      percent_title,
                                      {"Es muss mindestens ein bzw der erste PATL 1 Prozentwert\n"
                                       "im Wertebereich zwischen 1 und 99 %",
                                       "At least one / the first PATL 1 percentage value\n"
                                       "in the  range between 1 and 99 % must be specified"}};

constexpr BoxText too_many_percent_values = {
    Icon::Stop,
    percent_title,
    {"Es können höchstens {0} PATL Prozentwerte angegeben werden.",
     "No more than {0} PATL percentage values can be specified."}};

void take_percents(Workbook& workbook, LangId lang, TransientFixed& fixed, CellReading& reading) {
    for (int n = 0; n <= most_percent_values; ++n) {
        const CellText cell = fixed_cell(workbook, first_percent_row + n);
        if (cell.text.empty()) {
            if (n == 0) reading.refuse(box_in(lang, no_percent_value), cell);
            return;
        }
        if (n == most_percent_values)
            return reading.refuse(
                box_in(lang, too_many_percent_values, {std::to_string(most_percent_values)}), cell);
        if (const auto percent = reading.take_number(percent_limits, cell)) {
            fixed.percents.push_back(*percent);
            fixed.percent_texts.emplace_back(cell.text);
        }
    }
}

}  // namespace

void S_102_io_excel_Fixed_input_einlesen_pruefen_transient(Workbook& workbook, LangId lang,
                                                           TransientFixed& fixed,
                                                           CellReading& reading) {
    const std::string identifier = workbook.text(identifier_row, identifier_column);
    if (auto refusal = identifier_refusal(identifier, WorkbookKind::Transient, lang))
        return reading.refuse_as_told(std::move(*refusal),
                                      {identifier_row, identifier_column, identifier});
    CalcCase& c = fixed.c;
    for (const Method method : all_methods) c.*flag_of(method) = method == Method::TB601 ? 1 : 0;
    const auto at = [&](const InputCell& cell) { return fixed_cell(workbook, cell.fixed_row); };
    for (const InputCell& cell : transient_fixed_cells()) {
        const CellText text = at(cell);
        if (cell.field == FieldKey(&CalcCase::Anzahl_Teilleiter_db) && text.text.empty())
            reading.refuse(box_in(lang, no_sub_conductors), text);
        else
            reading.take(cell, text, c);
    }
    reading.check_conductor(c, transient_fixed_cells(), at);
    take_percents(workbook, lang, fixed, reading);
}

std::span<const int> transient_columns() {
    static const std::vector<int> columns = [] {
        std::vector<int> made;
        for (const InputCell& cell : transient_row_cells()) made.push_back(cell.column);
        made.push_back(time_column);
        return made;
    }();
    return columns;
}

double take_transient_row(const RowTexts& row, const Limits& time, CalcCase& c,
                          CellReading& reading) {
    for (const InputCell& cell : transient_row_cells())
        reading.take(cell, row.cell(cell.column), c);
    // The angle is to the conductor, which so lies to the north.
    c.Winkel_S_S_db = {"0", 0};
    return reading.take_number(time, row.cell(time_column)).value_or(0);
}

}  // namespace zel::excel_batch
