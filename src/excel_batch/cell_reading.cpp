#include "excel_batch/cell_reading.h"

#include <algorithm>
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

struct Suitability {
    unsigned methods;
    FieldKey field;  // whose cell is told
    bool (*refuses)(const CalcCase&);
    BoxText box;
};

constexpr Suitability suitabilities[] = {
    {TBB,
     &CalcCase::conductor_type_db,
     [](const CalcCase& c) {
         return c.conductor_type_db == homogeneous_conductor ||
                c.conductor_type_db == steel_cored_conductor ||
                c.conductor_type_db == composite_core_conductor;
     },
     {Icon::Stop,
      incorrect.title,
      {"Es wurde das Berechnungsverfahren für Kreisringstrom-Schienen in Kombination mit Daten für ein Leiterseil ausgewählt.",
       "You have choosen the calculation method for tubular busbars in combination with datas for an overhead conductor."}}},
    {TB601 | TB207 | Webs | Kirn,
     &CalcCase::conductor_type_db,
     [](const CalcCase& c) { return c.conductor_type_db == tubular_busbar; },
     {Icon::Stop,
      incorrect.title,
      {"Es wurde ein Berechnungsverfahren für Leiterseile in Kombination mit Leiterdaten für Kreisring-Stromschienen ausgewählt.",
       "You have choosen a calculation method for overhead conductors in combination with datas for tubular busbars."}}},
    {TB601,
     &CalcCase::DrahtlagenzahlLeiter_db,
     [](const CalcCase& c) {
         return c.conductor_type_db == steel_cored_conductor && c.DrahtlagenzahlLeiter_db == 1;
     },
     {Icon::Stop,
      {"Seilauswahl nicht passend zur Berechnungsmethode",
       "Input not suitable for calculation method !"},
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
       "or another calculation method."}}},
};

void append_lines(Box& box, const std::string& text) {
    for (std::string& line : lines_of(text)) box.lines.push_back(std::move(line));
}

}  // namespace

void CellReading::refuse(const CellText& cell, const Text& permissible) {
    Box box = box_in(origin_.lang, cell_error,
                     {origin_.workbook, origin_.sheet, std::to_string(cell.column),
                      std::to_string(cell.row), cell.text});
    append_lines(box, std::string(permissible.in(origin_.lang)));
    refusals_.push_back(std::move(box));
}

void CellReading::refuse(Box box, const CellText& cell) {
    append_lines(box, fill(cell_place.in(origin_.lang), {origin_.sheet, std::to_string(cell.column),
                                                         std::to_string(cell.row), cell.text}));
    refusals_.push_back(std::move(box));
}

std::optional<double> CellReading::sound_number(const CellText& cell, const Limits* limits,
                                                CellKind kind) {
    const auto number = parse_number(cell.text, DecimalSeparator::Comma);
    const bool fits = number && (kind != CellKind::Whole || std::floor(*number) == *number);
    const bool inside = fits && (limits == nullptr || holds(*limits, *number));
    if (inside) return number;
    if (fits && limits->is_told())
        refuse(limit_box(*limits, origin_.lang), cell);
    else
        refuse(cell);
    return std::nullopt;
}

std::optional<double> CellReading::take_number(const Limits& limits, const CellText& cell) {
    return sound_number(cell, &limits, CellKind::Number);
}

void CellReading::take(const InputCell& input, const CellText& cell, CalcCase& c,
                       unsigned methods) {
    if ((input.methods & methods) == 0 || (!input.required && cell.text.empty())) return;
    auto number = sound_number(cell, input.limits, input.kind);
    if (number && input.check != nullptr)
        if (auto box = input.check(*number, methods, origin_.lang)) {
            refuse(std::move(*box), cell);
            number.reset();
        }
    if (const auto* entry = std::get_if<Entry CalcCase::*>(&input.field)) {
        if (number && holds_whole_numbers(*entry)) number = round_half_even(*number);
        c.*(*entry) = number ? Entry{std::string(cell.text), *number} : Entry{};
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

void CellReading::take_currents(const CellText& single, const CellText& bundle, CalcCase& c,
                                unsigned methods) {
    c.Stromstaerke_db = {};
    c.Stromstaerke_Buendel = {};
    c.Stromstaerkebuendel_Merker_db = !bundle.text.empty();
    if (single.text.empty() && bundle.text.empty())
        refuse(box_in(origin_.lang, no_current), single);
    else if (!single.text.empty() && !bundle.text.empty())
        refuse(box_in(origin_.lang, both_currents), bundle);
    else if (bundle.text.empty())
        take(single_current_cell(), single, c, methods);
    else
        take(bundle_current_cell(), bundle, c, methods);
}

void CellReading::take_mode(const CellText& cell, CalcCase& c) {
    const auto mode = take_choice(cell, {"1", "2"});
    c.Leitertemp_Merker_db = mode == 0;
    c.Stromstaerke_Merker_db = mode == 1;
}

void CellReading::check_conductor(const CalcCase& c, unsigned methods,
                                  std::span<const InputCell> cells,
                                  const std::function<CellText(const InputCell&)>& at) {
    for (const auto& [readers, field, refuses, box] : suitabilities) {
        if ((readers & methods) == 0 || !refuses(c)) continue;
        const auto cell =
            std::find_if(cells.begin(), cells.end(),
                         [&, &key = field](const auto& input) { return input.field == key; });
        refuse(box_in(origin_.lang, box), at(*cell));
    }
}

}  // namespace zel::excel_batch
