#include <gtest/gtest.h>

#include <algorithm>

#include "excel_batch/cell_reading.h"
#include "fakes/test_data.h"
#include "platform/text/number_text.h"

// tests/data/workbook_cells.json holds every input cell: its field and places, texts that it takes
// (with the number, where that is another one), texts that its limits refuse with their wordings,
// and others that are no correct input at all.

namespace zel::excel_batch {
namespace {

using nlohmann::json;

const json cell_data = test_data("workbook_cells");
const SheetOrigin origin = {"a.xlsx", fixed_sheet, LangId::English};

CalcCase case_of(const json& methods) {
    CalcCase c;
    for (const Method method : all_methods)
        c.*flag_of(method) = std::count(methods.begin(), methods.end(), key_of(method)) > 0 ? 1 : 0;
    return c;
}

/// The number of a field, nothing where it is without input.
std::optional<double> number_of(const CalcCase& c, const FieldKey& field) {
    if (const auto* entry = std::get_if<Entry CalcCase::*>(&field))
        return (c.*(*entry)).given() ? std::optional((c.*(*entry)).value) : std::nullopt;
    return c.*std::get<std::int16_t CalcCase::*>(field);
}

struct Reading {
    std::vector<Box> boxes;
    std::optional<double> number;
};

std::vector<Box> boxes_of(const CellReading& reading) {
    std::vector<Box> boxes;
    for (const WrongCell& cell : reading.refusals()) boxes.push_back(cell.box);
    return boxes;
}

/// Reads `text` into a field that holds 7.
Reading read(const InputCell& cell, const std::string& text, const json& methods,
             LangId lang = LangId::English) {
    const SheetOrigin there = {origin.workbook, origin.sheet, lang};
    CellReading reading(there);
    CalcCase c = case_of(methods);
    if (const auto* entry = std::get_if<Entry CalcCase::*>(&cell.field))
        c.*(*entry) = {"7", 7};
    else
        c.*std::get<std::int16_t CalcCase::*>(cell.field) = 7;
    reading.take(cell, {1, 3, text}, c);
    return {boxes_of(reading), number_of(c, cell.field)};
}

/// The box of a number beyond its limits, by the wordings of `row`.
Box limit_box(const json& row, const std::string& text, LangId lang) {
    const std::string language = lang == LangId::German ? "de" : "en";
    const std::string title = "title_" + language;
    constexpr Text place = {
        "\nArbeitsblatt fixed_input : Spalte 3 / Zeile 1\nInkorrekter Eingabewert: ",
        "\nWorksheet fixed_input : column 3 / row 1\nIncorrect input value: "};
    return {Icon::Stop, row.value(title, cell_data.at(title)),
            lines_of(row.at(language).get<std::string>() + std::string(place.in(lang)) + text)};
}

class InputCells
    : public testing::TestWithParam<std::pair<const char*, std::vector<const InputCell*>>> {};

std::vector<const InputCell*> all(std::span<const InputCell> cells) {
    std::vector<const InputCell*> made;
    for (const InputCell& cell : cells) made.push_back(&cell);
    return made;
}

INSTANTIATE_TEST_SUITE_P(Of, InputCells,
                         testing::Values(std::pair{"line", all(line_cells())},
                                         std::pair{"currents and temperature",
                                                   std::vector{&single_current_cell(),
                                                               &bundle_current_cell(),
                                                               &temperature_cell()}},
                                         std::pair{"conductor", all(conductor_cells())},
                                         std::pair{"transient", all(transient_fixed_cells())},
                                         std::pair{"transient row", all(transient_row_cells())}));

TEST_P(InputCells, stand_in_their_places_and_keep_to_their_limits) {
    const auto& [name, cells] = GetParam();
    const json& rows = cell_data.at("cells").at(name);
    ASSERT_EQ(cells.size(), rows.size());
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const InputCell& cell = *cells[i];
        const json& row = rows[i];
        SCOPED_TRACE(row.dump());
        EXPECT_EQ(name_of(cell.field), row.at("field"));
        EXPECT_EQ(cell.fixed_row, row.value("row", 0));
        EXPECT_EQ(cell.column, row.value("column", 0));
        const json methods = {row.value("only", "TB207")};
        for (const json& taken : row.at("takes")) {
            const std::string text = taken.is_array() ? taken[0] : taken;
            const Reading reading = read(cell, text, methods);
            EXPECT_TRUE(reading.boxes.empty()) << text;
            EXPECT_EQ(reading.number, taken.is_array()
                                          ? taken[1].get<double>()
                                          : parse_number(text, DecimalSeparator::Comma));
        }
        for (const LangId lang : {LangId::German, LangId::English})
            for (const std::string text : row.value("refuses", json::array()))
                EXPECT_EQ(read(cell, text, methods, lang).boxes,
                          std::vector{limit_box(row, text, lang)});
        json wrong = row.value("wrong", json::array());
        wrong.push_back("x");
        if (!row.contains("optional")) wrong.push_back("");
        for (const std::string text : wrong) {
            const Reading reading = read(cell, text, methods);
            ASSERT_EQ(reading.boxes.size(), 1U) << text;
            EXPECT_EQ(reading.boxes[0].lines.at(4), "no correct input");
            EXPECT_EQ(reading.number.value_or(0), 0);
        }
        EXPECT_EQ(read(cell, "", methods).number == 7, row.contains("optional"));
        EXPECT_EQ(read(cell, "x", {"TB207"}).number == 7, row.contains("only"));
    }
}

TEST(CellReading, numbers_of_their_own_keep_to_their_limits) {
    for (const auto& [name, limits] : {std::pair{"percent", &percent_limits},
                                       {"time as an array", &time_limits},
                                       {"time by cell", &time_limits_by_cell}})
        for (const LangId lang : {LangId::German, LangId::English}) {
            const json& row = cell_data.at("numbers").at(name);
            const SheetOrigin there = {origin.workbook, origin.sheet, lang};
            CellReading reading(there);
            for (const std::string text : row.at("takes"))
                EXPECT_TRUE(reading.take_number(*limits, {1, 3, text})) << row;
            std::vector<Box> boxes;
            for (const std::string text : row.at("refuses")) {
                EXPECT_FALSE(reading.take_number(*limits, {1, 3, text})) << row;
                boxes.push_back(limit_box(row, text, lang));
            }
            EXPECT_EQ(boxes_of(reading), boxes);
        }
}

TEST(CellReading, the_frequency_goes_by_the_methods) {
    const InputCell& frequency = cell_of(line_cells(), &CalcCase::Netzfrequenz_db);
    for (const json& row : cell_data.at("frequencies"))
        EXPECT_EQ(read(frequency, row[1], row[0]).boxes.empty(), row[2]) << row;
}

TEST(CellReading, a_number_has_a_decimal_comma) {
    const InputCell& wind = cell_of(line_cells(), &CalcCase::Windgeschwindigkeit_db);
    for (const auto& [key, taken] : {std::pair{"takes", true}, {"refuses", false}})
        for (const std::string text : cell_data.at("decimal_comma").at(key))
            EXPECT_EQ(read(wind, text, json::array()).boxes.empty(), taken) << text;
}

}  // namespace
}  // namespace zel::excel_batch
