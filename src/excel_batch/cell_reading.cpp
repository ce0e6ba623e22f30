#include "excel_batch/cell_reading.h"

#include <cmath>

#include "platform/rounding.h"
#include "platform/text/number_text.h"

namespace zel::excel_batch {
namespace {

using namespace steady_check;

constexpr BoxText cell_error = {Icon::Stop,
                                limit_title,
                                {"Es wurde in der Excel-Arbeitsmappe:\n"
                                 "{0}\n"
                                 "im Arbeitsblatt:\n"
                                 "{1}\n"
                                 "keine korrekte Eingabe\n"
                                 "in Spalte {2} / Zeile {3} gemacht.\n"
                                 "Inkorrekter Eingabewert:\n"
                                 "{4}\n"
                                 "Bitte korrigieren Sie ihre Eingabe !",
                                 "There is within the excel workbook:\n"
                                 "{0}\n"
                                 "in worksheet:\n"
                                 "{1}\n"
                                 "no correct input\n"
                                 "in column {2} / row {3} .\n"
                                 "Incorrect input value:\n"
                                 "{4}\n"
                                 "Please correct your input !"}};

constexpr Text cell_place = {"Arbeitsblatt {0} : Spalte {1} / Zeile {2}\n"
                             "Inkorrekter Eingabewert: {3}",
                             "Worksheet {0} : column {1} / row {2}\n"
                             "Incorrect input value: {3}"};

constexpr BoxText both_currents = {
    Icon::Stop,
    limit_title,
    {"Es darf nur entweder die Stromstärke des Teilleiters\n"
     "oder die Stromstärke des gesamten Bündelleiters angegeben werden.",
     "You have to edit exclusively the current of the single conductor\n"
     "or the current of the whole conductor bundle"}};

constexpr BoxText no_current = {Icon::Stop,
                                incomplete_title,
                                {"Es wurde keine Angabe zur\n"
                                 "Stromstaerke gemacht.",
                                 "You havn't made an input for the current !"}};

// The kind of the conductor against the methods, each with the field whose cell is told.
constexpr BoxText other_kind = {Icon::Stop, incorrect.title, {"{0}"}};
constexpr BoxText unsuitable = {Icon::Stop,
                                {"Seilauswahl nicht passend zur Berechnungsmethode",
                                 "Input not suitable for calculation method !"},
                                {"{0}"}};

using Suitability = zel::Check<CalcCase, FieldKey>;

constexpr Suitability suitabilities[] = {
    {{read_by<TBB>,
      [](const CalcCase& c) {
          return c.conductor_type_db == homogeneous_conductor ||
                 c.conductor_type_db == steel_cored_conductor ||
                 c.conductor_type_db == composite_core_conductor;
      },
      &other_kind, &CalcCase::conductor_type_db},
     {"Es wurde das Berechnungsverfahren für Kreisringstrom-Schienen in Kombination mit Daten für ein Leiterseil ausgewählt.",
      "You have choosen the calculation method for tubular busbars in combination with datas for an overhead conductor."}},
    {{read_by<TB601 | TB207 | Webs | Kirn>,
      [](const CalcCase& c) { return c.conductor_type_db == tubular_busbar; }, &other_kind,
      &CalcCase::conductor_type_db},
     {"Es wurde ein Berechnungsverfahren für Leiterseile in Kombination mit Leiterdaten für Kreisring-Stromschienen ausgewählt.",
      "You have choosen a calculation method for overhead conductors in combination with datas for tubular busbars."}},
    {{read_by<TB601>,
      [](const CalcCase& c) {
          return c.conductor_type_db == steel_cored_conductor && c.DrahtlagenzahlLeiter_db == 1;
      },
      &unsuitable, &CalcCase::DrahtlagenzahlLeiter_db},
     {"Das ausgewählte Seil ist ein Verbundleiter mit EINER Lage Leitermaterial\n"
      "und einem magnetischen Kern. \n"
      "Dies Seile sind im vorliegenden Programm von der Berechnung nach Cigre TB 601\n"
      "aufgrund ihrer großen magnetischen Verlust ausgeschlossen\n"
      "und auch nicht für hochbelastete Leitungen geeignet.\n"
      "Weitere Erläuterungen siehe Benutzerhandbuch VOR\n"
      "Bitte wählen sie ein anderes Seil oder ein anderes Berechnungsverfahren.",
      "The chosen conductor ist a SINGLE layer conductor with a magentic core.\n"
      "Within this application the calculation by Cigre TB 601\n"
      "is excluded because of their big magnetic losses / transformer effects\n"
      "at high currents.This conductor are absolutely not suitable \n"
      "for overhead lines with high ampacitiy / current densities.\n"
      "For further information see userbook ZEL\n"
      "Please choose another conductor\n"
      "or another calculation method."}},
};

/// What is told of a number beyond its limits: its upper and its lower bound.
Box limit_box(const Limits& limits, LangId lang) {
    constexpr Text upper = {"Maximal", "Maximum"};
    constexpr Text lower = {"Minimal", "Minimum"};
    Box box = {Icon::Stop, std::string(limits.title_or(limit_title).in(lang)), {}};
    const auto add = [&](const Text& line, const Text& side, double bound) {
        if (!line.de.empty())
            box.lines.push_back(
                fill(line.in(lang), {side.in(lang), plain_number(bound, DecimalSeparator::Comma)}));
    };
    add(limits.above, upper, limits.high);
    add(limits.below, lower, limits.low);
    return box;
}

void append_lines(Box& box, const std::string& text) {
    for (std::string& line : lines_of(text)) box.lines.push_back(std::move(line));
}

}  // namespace

CellText fixed_cell(Workbook& workbook, int row) {
    return {row, input_column, workbook.text(row, input_column)};
}

RowTexts row_texts(Workbook& workbook, std::span<const int> columns, int row) {
    RowTexts texts = {row, {}};
    if (!columns.empty()) texts.texts.resize(static_cast<std::size_t>(columns.back()) + 1);
    for (const int column : columns)
        texts.texts[static_cast<std::size_t>(column)] = workbook.text(row, column);
    return texts;
}

void CellReading::refuse(const CellText& cell, const Text& permissible) {
    Box box = box_in(origin_.lang, cell_error,
                     {origin_.workbook, origin_.sheet, std::to_string(cell.column),
                      std::to_string(cell.row), cell.text});
    append_lines(box, std::string(permissible.in(origin_.lang)));
    refusals_.push_back({std::move(box), std::string(origin_.sheet), cell.row, cell.column,
                         cell.text, std::string(permissible.in(origin_.lang))});
}

void CellReading::refuse(Box box, const CellText& cell) {
    refuse_as_told(std::move(box), cell);
    append_lines(refusals_.back().box,
                 fill(cell_place.in(origin_.lang), {origin_.sheet, std::to_string(cell.column),
                                                    std::to_string(cell.row), cell.text}));
}

void CellReading::refuse_as_told(Box box, const CellText& cell) {
    std::string reason = joined(box.lines, " ");
    refusals_.push_back({std::move(box), std::string(origin_.sheet), cell.row, cell.column,
                         cell.text, std::move(reason)});
}

std::optional<double> CellReading::sound_number(const CellText& cell, const Limits& limits,
                                                CellKind kind) {
    const auto number = parse_number(cell.text, DecimalSeparator::Comma);
    const bool fits = number && (kind != CellKind::Whole || std::floor(*number) == *number);
    if (fits && limits.holds(*number)) return number;
    if (Box box = limit_box(limits, origin_.lang); fits && !box.lines.empty())
        refuse(std::move(box), cell);
    else
        refuse(cell);
    return std::nullopt;
}

std::optional<double> CellReading::take_number(const Limits& limits, const CellText& cell) {
    return sound_number(cell, limits, CellKind::Number);
}

void CellReading::take(const InputCell& input, const CellText& cell, CalcCase& c) {
    const unsigned methods = selected(c);
    if ((input.methods & methods) == 0 || (!input.required && cell.text.empty())) return;
    auto number = sound_number(cell, input.limits, input.kind);
    if (number && input.check != nullptr)
        if (auto box = input.check(*number, methods, origin_.lang)) {
            refuse(std::move(*box), cell);
            number.reset();
        }
    if (const auto* entry = std::get_if<Entry CalcCase::*>(&input.field)) {
        if (number && field_of(*entry).rounded) number = round_half_even(*number);
        c.*(*entry) = number ? Entry{cell.text, *number} : Entry{};
        return;
    }
    const auto whole = number ? round_to_int16(*number) : 0;
    if (!whole) refuse(cell);
    c.*std::get<std::int16_t CalcCase::*>(input.field) = whole.value_or(0);
}

std::optional<int> CellReading::take_choice(const CellText& cell,
                                            std::initializer_list<const char*> texts,
                                            const Text& permissible) {
    int place = 0;
    for (const std::string_view text : texts) {
        if (cell.text == text) return place;
        ++place;
    }
    refuse(cell, permissible);
    return std::nullopt;
}

void CellReading::take_currents(const CellText& single, const CellText& bundle, CalcCase& c) {
    c.Stromstaerke_db = {};
    c.Stromstaerke_Buendel = {};
    c.Stromstaerkebuendel_Merker_db = !bundle.text.empty();
    if (single.text.empty() && bundle.text.empty())
        refuse(box_in(origin_.lang, no_current), single);
    else if (!single.text.empty() && !bundle.text.empty())
        refuse(box_in(origin_.lang, both_currents), bundle);
    else if (bundle.text.empty())
        take(single_current_cell(), single, c);
    else
        take(bundle_current_cell(), bundle, c);
}

void CellReading::take_mode(const CellText& cell, CalcCase& c) {
    const auto mode = take_choice(cell, {"1", "2"});
    c.Leitertemp_Merker_db = mode == 0;
    c.Stromstaerke_Merker_db = mode == 1;
}

void CellReading::check_conductor(const CalcCase& c, std::span<const InputCell> cells,
                                  const std::function<CellText(const InputCell&)>& at) {
    for (const Suitability& check : suitabilities)
        if (check.refuses(c)) refuse(check.box(origin_.lang), at(cell_of(cells, check.rule.place)));
}

}  // namespace zel::excel_batch
