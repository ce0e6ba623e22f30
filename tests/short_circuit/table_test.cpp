#include "short_circuit/short_circuit_table.h"

#include <gtest/gtest.h>

#include <map>

#include "fakes/short_circuit_cases.h"
#include "fakes/test_data.h"

namespace zel {
namespace {

using nlohmann::json;

TEST(ShortCircuitTable, has_its_columns_in_order) {
    constexpr const char* types[] = {"", "Text", "Integer", "Single", "Double"};
    std::vector<std::string> columns;
    for (const auto& [name, type, length] : short_circuit_tables().columns)
        columns.push_back(name + " " + types[static_cast<std::size_t>(type)] +
                          (length > 0 ? "(" + std::to_string(length) + ")" : ""));
    EXPECT_EQ(json(columns), test_data("database").at("short-circuit columns"));
}

TEST(ShortCircuitTable, fills_free_columns_but_four) {
    std::vector<CutText> cut;
    ShortCircuitCase c;
    c.Datum_ks = std::string(19, 'x') + "ö12";
    const auto values = KS82_Tabellendaten_speichern(c, cut);
    EXPECT_EQ(cut.size(), 1U);
    std::map<std::string, ColumnValue> stored(values.begin(), values.end());
    EXPECT_EQ(stored["Datum_ks"], ColumnValue(std::string(19, 'x') + "ö"));
    EXPECT_EQ(stored["Reserve_126_single"], ColumnValue(0.0F));
    EXPECT_EQ(stored["Reserve_12_double"], ColumnValue(0.0));
    EXPECT_EQ(stored["Reserve_40_Text"], ColumnValue(""));
    EXPECT_EQ(stored["Projekt_ks"], ColumnValue(" "));
    std::vector<std::string> absent;
    for (const TableColumn& column : short_circuit_tables().columns)
        if (!stored.contains(column.name)) absent.push_back(column.name);
    EXPECT_EQ(absent, (std::vector<std::string>{"Reserve_11_double", "Reserve_16_double",
                                                "Reserve_17_single", "Reserve_18_single"}));
}

TEST(ShortCircuitTable, reads_a_selection_that_no_entry_stands_for_as_none) {
    const TableInfo table{"T", {"strombegrenzschalter_KS", "generatornah", "Leitermaterial_ks"}};
    const StoredRow row(table, {"3", "2", "5"});
    const auto read = KS72_Daten_einlesen(row, {LangId::English, DecimalSeparator::Point});
    EXPECT_EQ(read.form.content().Strombegrenzschalter_ks, 0);
    EXPECT_EQ(read.form.content().Leitermaterial_ks, 5);
}

}  // namespace
}  // namespace zel
