#include "excel_batch/missing_data.h"

#include <string>

#include "excel_batch/cell_reading.h"
#include "steady/case/case_fields.h"

namespace zel::excel_batch {
namespace {

using namespace steady_check;

constexpr BoxText missing_data = {
    Icon::Warning,
    {"Fehlende Leiterdaten", "Missing conductor data"},
    {"Beim Leiter {3}erfolgte keine Angabe zu: {0}\n"
     "Der Wert wird gelesen von: {1}\n"
     "Bitte füllen Sie {2} aus oder wählen Sie vor der Berechnung einen Leiter.",
     "The conductor {3}hasn't a value for: {0}\n"
     "It is read by: {1}\n"
     "Please fill in {2}, or choose a conductor before the calculation."}};

struct MissingField {
    FieldKey field;
    unsigned methods;  // that read it
    bool (*reads)(const CalcCase&);
};

bool any(const CalcCase&) { return true; }

bool has_core(const CalcCase& c) {
    return c.conductor_type_db == steel_cored_conductor ||
           c.conductor_type_db == composite_core_conductor;
}

constexpr MissingField of_steady[] = {
    {&CalcCase::DrahtdurchmesserLeiter_db, TB601 | TB207 | TBB, any},
    {&CalcCase::DC_Resist_Leiter_db, TB601 | TBB | Webs, any},
    {&CalcCase::KerndurchmesserTraeger_db, TB601, has_core},
};

// Both make the mass of the conductor layers.
constexpr MissingField of_transient[] = {
    {&CalcCase::DrahtzahlLeiter_db, TB601, any},
    {&CalcCase::Dichte_Leiterwerkstoff1_db, TB601, any},
};

std::span<const MissingField> fields_of(WorkbookKind kind) {
    if (kind == WorkbookKind::Transient) return of_transient;
    return of_steady;
}

bool is_zero(const CalcCase& c, const FieldKey& field) {
    if (const auto* entry = std::get_if<Entry CalcCase::*>(&field)) return (c.*(*entry)).value == 0;
    return c.*std::get<std::int16_t CalcCase::*>(field) == 0;
}

std::string names_of(unsigned methods) {
    std::string names;
    for (const Method method : all_methods) {
        if ((bit(method) & methods) == 0) continue;
        if (!names.empty()) names += ", ";
        names += name_of(method);
    }
    return names;
}

std::string place_of(const InputCell& cell, WorkbookKind kind, LangId lang) {
    constexpr Text fixed = {"Zelle C{0} in Arbeitsblatt {1}", "cell C{0} of worksheet {1}"};
    constexpr Text column = {"Spalte {0} in Arbeitsblatt {1}", "column {0} of worksheet {1}"};
    if (kind == WorkbookKind::SteadyVar)
        return fill(column.in(lang), {std::to_string(cell.column), rows_sheet});
    return fill(fixed.in(lang), {std::to_string(cell.fixed_row), fixed_sheet});
}

}  // namespace

std::vector<Box> missing_conductor_data(const CalcCase& c, WorkbookKind kind, int row,
                                        LangId lang) {
    constexpr Text in_row = {"in Zeile {0} ", "in row {0} "};
    std::vector<Box> boxes;
    const unsigned methods = selected(c);
    const auto cells =
        kind == WorkbookKind::Transient ? transient_fixed_cells() : conductor_cells();
    const std::string of_row =
        row == 0 ? std::string() : fill(in_row.in(lang), {std::to_string(row)});
    for (const auto& [field, readers, reads] : fields_of(kind)) {
        if ((readers & methods) == 0 || !reads(c) || !is_zero(c, field)) continue;
        boxes.push_back(
            box_in(lang, missing_data,
                   {long_label_of(field_of(field)).in(lang), names_of(readers & methods),
                    place_of(cell_of(cells, field), kind, lang), of_row}));
    }
    return boxes;
}

CalcCase with_conductor_of(Workbook& workbook, int row, const CalcCase& fixed) {
    CalcCase c = fixed;
    const SheetOrigin nowhere;
    CellReading passed_over(nowhere);
    const auto take = [&](const FieldKey& field) {
        const InputCell& cell = cell_of(conductor_cells(), field);
        passed_over.take(cell, {row, cell.column, workbook.text(row, cell.column)}, c);
    };
    take(&CalcCase::conductor_type_db);
    for (const MissingField& missing : of_steady) take(missing.field);
    return c;
}

}  // namespace zel::excel_batch
