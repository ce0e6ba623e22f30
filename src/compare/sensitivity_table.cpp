#include <algorithm>
#include <cmath>

#include "compare/sensitivity.h"
#include "compare/text_table.h"

namespace zel {
namespace {

constexpr Text current_name = {"Empfindlichkeit Strom", "Sensitivity current"};
constexpr Text temperature_name = {"Empfindlichkeit Temperatur", "Sensitivity temperature"};
constexpr Text input_head = {"Eingabe", "Input"};
constexpr Text step_head = {"Schritt", "Step"};
constexpr Text unit_head = {"Einheit", "Unit"};
constexpr std::string_view fold_mark = " *";
constexpr Text fold_words = {
    "* Der Winkel zwischen Wind und Leiter wird durch Abziehen gefaltet: jenseits von 90° zählt er "
    "wieder ab 0°. Dieser Schritt führt darüber hinweg.",
    "* The angle between wind and line is folded by subtraction: beyond 90° it counts from 0° "
    "again. This step leads across."};
constexpr Text result_label = {"Ergebnis", "Result"};

std::string_view unit_of(const Sensitivity& found) { return found.of_temperature ? "K" : "A"; }
std::string_view result_unit(const Sensitivity& found) { return found.of_temperature ? "°C" : "A"; }

std::string change_text(double change, const Sensitivity& found, DecimalSeparator separator) {
    return (change > 0 ? "+" : "") +
           masked(change, found.of_temperature ? "0.000" : "0.00", separator) + " " +
           std::string(unit_of(found));
}

std::string name_of_input(const SensitivityLine& line, LangId lang) {
    return std::string(long_label_of(*line.field).in(lang));
}

std::string marked_name(const SensitivityLine& line, LangId lang) {
    return name_of_input(line, lang) + std::string(line.across_fold ? fold_mark : "");
}

}  // namespace

std::string step_label(const SensitivityLine& line, const Locale& locale) {
    const std::string unit(long_unit_of(*line.field));
    const std::string step = line.is_hundredth
                                 ? "1 %"
                                 : plain_number(std::abs(line.step), locale.separator) +
                                       (unit.empty() || unit == "°" ? unit : " " + unit);
    return name_of_input(line, locale.lang) + (line.step < 0 ? " − " : " + ") + step +
           std::string(line.across_fold ? fold_mark : "");
}

std::string fold_note(const Sensitivity& found, LangId lang) {
    const bool any = std::any_of(found.lines.begin(), found.lines.end(),
                                 [](const SensitivityLine& line) { return line.across_fold; });
    return std::string(any ? fold_words.in(lang) : "");
}

std::string sensitivity_text(const Sensitivity& found, const Locale& locale) {
    std::vector<std::vector<std::string>> lines = {{""},
                                                   {std::string(result_label.in(locale.lang))}};
    for (std::size_t i = 0; i < found.methods.size(); ++i) {
        lines.front().emplace_back(name_of(found.methods[i]));
        const auto& result = found.results[i];
        lines.back().push_back(
            result ? masked(*result, found.of_temperature ? "0.0" : "0", locale.separator) + " " +
                         std::string(result_unit(found))
                   : "-");
    }
    for (const SensitivityLine& line : found.lines) {
        lines.push_back({step_label(line, locale)});
        for (const auto& change : line.changes)
            lines.back().push_back(change ? change_text(*change, found, locale.separator) : "-");
    }
    const std::string note = fold_note(found, locale.lang);
    return text_table(lines) + (note.empty() ? "" : note + "\n");
}

SheetDesign sensitivity_sheet(const Sensitivity& found, const Locale& locale) {
    SheetDesign sheet;
    sheet.name = (found.of_temperature ? temperature_name : current_name).in(locale.lang);
    sheet.fixed_rows = 1;
    sheet.fixed_columns = 1;
    const int methods = static_cast<int>(found.methods.size());
    sheet.columns = {{1, 1, 40}, {2, 3, 12}, {4, 3 + methods, 16}};
    int row = 1;
    const auto add = [&](int column, std::variant<std::monostate, double, std::string> content,
                         CellLook look = CellLook::Plain) {
        add_cell(sheet, row, column, std::move(content), look);
    };
    int column = 0;
    for (const Text& head : {input_head, step_head, unit_head})
        add(++column, std::string(head.in(locale.lang)), CellLook::ColumnHead);
    for (const Method method : found.methods)
        add(++column, std::string(name_of(method)) + ", " + std::string(unit_of(found)),
            CellLook::ColumnHead);
    for (const SensitivityLine& line : found.lines) {
        ++row;
        add(1, marked_name(line, locale.lang), CellLook::Label);
        add(2, line.step);
        add(3, std::string(long_unit_of(*line.field)), CellLook::Note);
        column = 3;
        for (const auto& change : line.changes) {
            ++column;
            if (change) add(column, *change);
        }
    }
    const std::string note = fold_note(found, locale.lang);
    if (!note.empty()) add_cell(sheet, row + 2, 1, note, CellLook::Note);
    return sheet;
}

}  // namespace zel
