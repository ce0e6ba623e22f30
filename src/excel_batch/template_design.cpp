#include "excel_batch/template_design.h"

#include <algorithm>
#include <vector>

#include "excel_batch/input_cells.h"
#include "platform/text/number_text.h"

namespace zel::excel_batch {
namespace {

constexpr int label_column = 2;
constexpr int unit_column = 4;
constexpr int limit_column = 5;
constexpr double label_width = 58;
constexpr double input_width = 16;
constexpr double cell_width = 13;

constexpr Text titles[] = {
    {"Stationäre Berechnung, ein Leiter", "Steady-state calculation, one conductor"},
    {"Stationäre Berechnung, Leiterdaten je Zeile",
     "Steady-state calculation, conductor data per row"},
    {"Instationäre Berechnung (PATL / TATL)", "Transient calculation (PATL / TATL)"},
};

struct Heading {
    int row;
    Text text;
};

constexpr Heading steady_headings[] = {
    {4, {"Berechnungsverfahren", "Calculation methods"}},
    {10, {"Formeln", "Formulas"}},
    {18, {"Lage", "Location"}},
    {24, {"Umgebung", "Ambient conditions"}},
    {32, {"Zeitpunkt", "Date and time"}},
    {37, {"Leitung", "Line"}},
};
constexpr Heading conductor_headings[] = {
    {53, {"Leiter", "Conductor"}},
    {60, {"Widerstände", "Resistances"}},
    {76, {"Leiterlagen und Kern", "Conductor layers and core"}},
    {96, {"Radiale Wärmeleitung (nur Cigre TB 601)", "Radial conductivity (Cigre TB 601 only)"}},
};
constexpr Heading transient_headings[] = {
    {10, {"Leitung", "Line"}},
    {20, {"Leiter", "Conductor"}},
    {26, {"Widerstände", "Resistances"}},
    {63, {"Vorbelastungen", "Preloads"}},
};

constexpr Text mode_label = {"Berechnungsart (1 = Temperatur gegeben, 2 = Strom gegeben)",
                             "Kind of calculation (1 = temperature given, 2 = current given)"};
constexpr Text flag_label = {"1 = aktiv, leer = Ende", "1 = active, empty = end"};
constexpr Text identifier_label = {"Datenblattkennung", "Data sheet identifier"};

std::string decimal(double number, LangId lang) {
    return plain_number(number,
                        lang == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point);
}

bool limited(const Limits& limits) { return limits.low != -unlimited || limits.high != unlimited; }

std::string limit_text(const Limits& limits, LangId lang) {
    if (limits.high == unlimited) return "≥ " + decimal(limits.low, lang);
    return decimal(limits.low, lang) + " ... " + decimal(limits.high, lang);
}

std::string limit_text(const InputCell& cell, LangId lang) {
    if (!cell.required) return std::string(Text{"falls bekannt", "if known"}.in(lang));
    return limited(cell.limits) ? limit_text(cell.limits, lang) : std::string();
}

/// The rule that an area holds numbers within `limits`. The format has no open end.
DesignRule rule_of(const CellArea& area, const Limits& limits, bool whole) {
    constexpr double largest = 1e308;
    return {area, limits.low, std::min(limits.high, largest), whole};
}

using Content = std::variant<std::monostate, double, std::string>;

/// The value of a conductor's field; without a conductor what is usual. A code that is no choice
/// leaves the cell empty.
Content conductor_value(const InputCell& cell, const std::optional<CalcCase>& conductor) {
    const FieldKey& field = cell.field;
    if (!conductor) return field_of(field).nothing_at_0 ? Content{0.0} : Content{};
    if (const auto* entry = std::get_if<Entry CalcCase::*>(&field))
        return (*conductor.*(*entry)).value;
    const double code = *conductor.*std::get<std::int16_t CalcCase::*>(field);
    return cell.limits.holds(code) ? Content{code} : Content{};
}

class FixedSheet {
public:
    FixedSheet(WorkbookKind kind, LangId lang) : lang_(lang) {
        sheet_.name = fixed_sheet;
        sheet_.fixed_rows = identifier_row;
        sheet_.columns = {{1, 1, 3},
                          {label_column, label_column, label_width},
                          {input_column, input_column, input_width},
                          {unit_column, unit_column, input_width, CellLook::Note},
                          {limit_column, limit_column, input_width, CellLook::Note}};
        const KindRow& row = row_of(kind);
        add(1, label_column, template_title(kind, lang), CellLook::Title);
        add(identifier_row, label_column,
            std::string(lang == LangId::German ? row.german : row.english), CellLook::Heading);
        add(identifier_row, input_column, std::string(identifier_label.in(lang)), CellLook::Note);
    }

    template <class Headings>
    void add_headings(const Headings& headings) {
        for (const auto& [row, text] : headings)
            add(row, label_column, std::string(text.in(lang_)), CellLook::Heading);
    }

    void add_choices(std::span<const ChoiceCell> cells, const Limits& limits,
                     const Content& value) {
        for (const ChoiceCell& cell : cells) {
            add_input(cell.row, cell.label, {}, value);
            sheet_.rules.push_back(
                rule_of({cell.row, input_column, cell.row, input_column}, limits, true));
        }
    }

    void add(const InputCell& cell, const Content& value = {}) {
        const FieldInfo& field = field_of(cell.field);
        add_input(cell.fixed_row, long_label_of(field), long_unit_of(field), value);
        add(cell.fixed_row, limit_column, limit_text(cell, lang_), CellLook::Note);
        if (limited(cell.limits))
            sheet_.rules.push_back(
                rule_of({cell.fixed_row, input_column, cell.fixed_row, input_column}, cell.limits,
                        cell.kind == CellKind::Whole));
    }

    void add_input(int row, const Text& label, std::string_view unit, const Content& value) {
        add(row, label_column, std::string(label.in(lang_)), CellLook::Label);
        add(row, input_column, value, CellLook::Input);
        if (!unit.empty()) add(row, unit_column, std::string(unit), CellLook::Note);
    }

    void add(int row, int column, Content content, CellLook look) {
        add_cell(sheet_, row, column, std::move(content), look);
    }

    SheetDesign take() { return std::move(sheet_); }

private:
    LangId lang_;
    SheetDesign sheet_;
};

class RowsSheet {
public:
    RowsSheet(WorkbookKind kind, LangId lang) : kind_(row_of(kind)), lang_(lang) {
        sheet_.name = rows_sheet;
        sheet_.fixed_rows = kind_.first_row - 1;
        sheet_.fixed_columns = flag_column;
        add_head(flag_column, flag_label, {}, {});
        add_rule(flag_column, Limits().between(1, 1), true);
        columns(flag_column, flag_column, CellLook::Input);
    }

    void add(const InputCell& cell, int column) {
        const FieldInfo& field = field_of(cell.field);
        add_head(column, long_label_of(field), long_unit_of(field), limit_text(cell, lang_));
        if (limited(cell.limits)) add_rule(column, cell.limits, cell.kind == CellKind::Whole);
        columns(column, column, CellLook::Input);
    }

    void add_head(int column, const Text& label, std::string_view unit, std::string limits) {
        // The headers of the TATL stand in the same row as those of the inputs.
        const bool room_below = kind_.first_row > header_row + 2;
        const int limit_row = room_below ? header_row + 2 : header_row - 1;
        add_cell(sheet_, header_row, column, std::string(label.in(lang_)), CellLook::ColumnHead);
        add_cell(sheet_, header_row + 1, column, std::string(unit), CellLook::Note);
        add_cell(sheet_, limit_row, column, std::move(limits), CellLook::Note);
    }

    void add_rule(int column, const Limits& limits, bool whole) {
        sheet_.rules.push_back(rule_of(
            {kind_.first_row, column, kind_.first_row + row_limit - 1, column}, limits, whole));
    }

    void columns(int first, int last, CellLook look) {
        sheet_.columns.push_back({first, last, cell_width, look});
    }

    void add_value(int column, Content content) {
        add_cell(sheet_, kind_.first_row, column, std::move(content), CellLook::Input);
    }

    SheetDesign take() { return std::move(sheet_); }

private:
    const KindRow& kind_;
    LangId lang_;
    SheetDesign sheet_;
};

SheetDesign steady_fixed(WorkbookKind kind, LangId lang, const std::optional<CalcCase>& conductor) {
    FixedSheet sheet(kind, lang);
    sheet.add_headings(steady_headings);
    sheet.add_choices(method_cells(), Limits().between(0, 1), {});
    sheet.add_choices(formula_cells(), Limits().between(1, 2), 2.0);
    for (const InputCell& cell : line_cells()) sheet.add(cell);
    for (const InputCell* cell :
         {&single_current_cell(), &bundle_current_cell(), &temperature_cell()})
        sheet.add(*cell);
    sheet.add_input(mode_row, mode_label, {}, {});
    if (kind == WorkbookKind::SteadyVar) return sheet.take();
    sheet.add_headings(conductor_headings);
    for (const InputCell& cell : conductor_cells())
        sheet.add(cell, conductor_value(cell, conductor));
    return sheet.take();
}

void add_steady_results(RowsSheet& sheet, WorkbookKind kind, LangId lang) {
    constexpr Text current = {"Stromstärke {0}", "Current {0}"};
    constexpr Text temperature = {"Temperatur {0}", "Temperature {0}"};
    for (const ResultColumns& columns : steady_results) {
        const std::string_view name = name_of(columns.method);
        const std::string head_of_current = fill(current.in(lang), {name});
        const std::string head_of_temperature = fill(temperature.in(lang), {name});
        sheet.add_head(columns.current(kind), {head_of_current, head_of_current}, "A", {});
        sheet.add_head(columns.temperature(kind), {head_of_temperature, head_of_temperature}, "°C",
                       {});
        sheet.columns(columns.current(kind), columns.current(kind), CellLook::WholeResult);
        sheet.columns(columns.temperature(kind), columns.temperature(kind), CellLook::TenthResult);
    }
}

SheetDesign steady_rows(WorkbookKind kind, LangId lang, const std::optional<CalcCase>& conductor) {
    RowsSheet sheet(kind, lang);
    for (const InputCell& cell : line_cells()) sheet.add(cell, cell.column);
    // In the form with conductor columns the two currents have changed places.
    const bool var = kind == WorkbookKind::SteadyVar;
    const InputCell& single = single_current_cell();
    const InputCell& bundle = bundle_current_cell();
    sheet.add(single, var ? bundle.column : single.column);
    sheet.add(bundle, var ? single.column : bundle.column);
    sheet.add(temperature_cell(), temperature_cell().column);
    sheet.add_head(mode_column, mode_label, {}, {});
    sheet.add_rule(mode_column, Limits().between(1, 2), true);
    sheet.columns(mode_column, mode_column, CellLook::Input);
    if (var)
        for (const InputCell& cell : conductor_cells()) {
            sheet.add(cell, cell.column);
            sheet.add_value(cell.column, conductor_value(cell, conductor));
        }
    add_steady_results(sheet, kind, lang);
    return sheet.take();
}

SheetDesign transient_fixed(LangId lang, const std::optional<CalcCase>& conductor) {
    FixedSheet sheet(WorkbookKind::Transient, lang);
    sheet.add_headings(transient_headings);
    for (const InputCell& cell : transient_fixed_cells())
        sheet.add(cell, cell.fixed_row < first_conductor_row ? Content{}
                                                             : conductor_value(cell, conductor));
    for (int n = 1; n <= most_percent_values; ++n) {
        const std::string label = "PATL " + std::to_string(n);
        const int row = first_percent_row + n - 1;
        sheet.add_input(row, {label, label}, "%", {});
        sheet.add(row, limit_column, limit_text(percent_limits, lang), CellLook::Note);
    }
    return sheet.take();
}

SheetDesign transient_rows(LangId lang) {
    RowsSheet sheet(WorkbookKind::Transient, lang);
    for (const InputCell& cell : transient_row_cells()) {
        sheet.add(cell, cell.column);
        if (cell.field == FieldKey(&CalcCase::Winkel_W_S_db))
            sheet.add_head(cell.column, wind_to_conductor, "°", limit_text(cell, lang));
    }
    sheet.add_head(time_column, time_label, "s", limit_text(time_limits, lang));
    sheet.add_rule(time_column, time_limits, false);
    sheet.columns(time_column, time_column, CellLook::Input);
    sheet.add_head(patl_column, {"PATL", "PATL"}, "A", {});
    sheet.columns(patl_column, patl_column + most_percent_values, CellLook::WholeResult);
    return sheet.take();
}

}  // namespace

WorkbookDesign template_design(WorkbookKind kind, LangId lang,
                               const std::optional<CalcCase>& conductor) {
    if (kind == WorkbookKind::Transient)
        return {transient_fixed(lang, conductor), transient_rows(lang)};
    return {steady_fixed(kind, lang, conductor), steady_rows(kind, lang, conductor)};
}

std::string template_name(WorkbookKind kind, LangId lang) {
    constexpr Text names[] = {{"Vorlage_stationaer", "template_steady"},
                              {"Vorlage_stationaer_Leiter", "template_steady_conductors"},
                              {"Vorlage_instationaer", "template_transient"}};
    return std::string(names[static_cast<std::size_t>(kind)].in(lang));
}

std::string template_title(WorkbookKind kind, LangId lang) {
    return std::string(titles[static_cast<std::size_t>(kind)].in(lang));
}

}  // namespace zel::excel_batch
