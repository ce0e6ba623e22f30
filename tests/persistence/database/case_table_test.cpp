#include "persistence/database/case_table.h"

#include <gtest/gtest.h>

#include "fakes/memory_stores.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/test_data.h"
#include "persistence/case_file.h"
#include "persistence/database/table_names.h"

namespace zel {
namespace {

using nlohmann::json;

const json table_data = test_data("database");

std::string declared(const TableColumn& column) {
    constexpr const char* types[] = {"", "Text", "Integer", "Single", "Double"};
    const std::string type = types[static_cast<std::size_t>(column.type)];
    return column.name + " " +
           (column.length > 0 ? type + "(" + std::to_string(column.length) + ")" : type);
}

TEST(CaseTable, has_its_columns_in_order) {
    std::vector<std::string> columns;
    for (const TableColumn& column : case_tables().columns) columns.push_back(declared(column));
    EXPECT_EQ(json(columns), table_data.at("case columns"));
}

/// A row of a table that has only the columns of `values`.
StoredRow row_of(const json& values) {
    TableInfo table{"T", {}};
    TableRow row;
    for (const auto& [name, text] : values.items()) {
        table.columns.push_back(name);
        row.emplace_back(text.get<std::string>());
    }
    return {table, row};
}

/// The inputs of a case by their names.
json shown(const CalcCase& c) {
    json named;
    for (const auto& [key, value] : values_of(c))
        std::visit([&, name = key](const auto& held) { named[name] = held; }, value);
    return named;
}

struct Reading : testing::Test {
    MemorySettings shared;
    MemorySettings user;
    Settings settings{shared, user, "/data"};
    ScriptedDialogs dialogs;
    Session session = {{LangId::English, DecimalSeparator::Point}, RunMode::Messages, dialogs};
};

TEST_F(Reading, follows_its_rules) {
    for (const json& row : table_data.at("reading")) {
        CalcCase c;
        CalcCase expected;
        set_fields(c, row.value("from", json::object()));
        expected.Anzahl_Teilleiter_db = 1;  // of any row that tells no number
        set_fields(expected, row.at("becomes"));
        expected.Formel_merker1_db = c.Formel_merker1_db = settings.now().Formel_merker;
        expected.Gravi_merker1_db = c.Gravi_merker1_db = settings.now().Gravi_merker;
        expected.wzsz_merker_db = c.wzsz_merker_db = settings.now().wzsz_merker;
        dialogs.shown.clear();
        S30_Access_Daten_einlesen(row_of(row.at("row")), c, settings, session);
        EXPECT_EQ(shown(c), shown(expected)) << row.at("why");
        std::vector<std::string> first_lines;
        for (const Box& box : dialogs.shown) first_lines.push_back(box.lines.front());
        EXPECT_EQ(json(first_lines), row.value("boxes", json::array())) << row.at("why");
    }
}

TEST(TableNames, lack_their_characters) {
    for (const json& row : table_data.at("names"))
        EXPECT_EQ(refused_character(row[0].get<std::string>()).value_or(""), row[1]) << row;
}

TEST(TableNames, of_the_program_are_refused_in_its_folder) {
    const auto refused = [](const char* path) {
        return reserved_case_database(path, "/calc", LangId::English);
    };
    EXPECT_EQ(refused("/calc/STCAS.MDB").box->lines.front(),
              "The file name stcas.mdb in this directory");
    EXPECT_EQ(refused("/calc/worstcas.mdb").box->lines.front(),
              "The file name worstca.mdb in this directory");
    EXPECT_TRUE(refused("/calc/st_cases.mdb").refused);
    EXPECT_FALSE(refused("/calc/st_cases.mdb").box);
    EXPECT_FALSE(refused("/other/stcas.mdb").refused);
    EXPECT_TRUE(reserved_short_circuit_database("/any/St_Cases.mdb").box);
    EXPECT_FALSE(reserved_short_circuit_database("/any/cases.mdb").refused);
}

}  // namespace
}  // namespace zel
