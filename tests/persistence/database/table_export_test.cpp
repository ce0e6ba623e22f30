#include "persistence/database/table_export.h"

#include <gtest/gtest.h>

#include "fakes/memory_stores.h"
#include "fakes/memory_tables.h"
#include "fakes/memory_workbook.h"
#include "persistence/database/case_table.h"
#include "persistence/database/saving.h"

namespace zel {
namespace {

/// A table of another hand with the columns of calculations that matter here.
struct Export : testing::Test {
    MemoryTableStore databases;
    std::unique_ptr<Database> database = databases.create("old.mdb");
    MemoryWorkbookStore workbooks;
    MemoryFiles files;

    Export() {
        const std::vector<TableColumn> columns = {
            {"Projekt_db"},         {"Datum_db"}, {"Bearbeiter_db"},
            {"Abteilung_db"},       {"Notiz"},    {"Umgebungstemperatur_db"},
            {"Reserve_149_single"}, {"DCR_20_db"}};
        database->create_table("Nord [1]/'", columns);
        add({"=1+1", " ", "Müller; Söhne", "a \"b\", c", "17", -5.5F, 1.0F, 0.1});
        add({"+49", "1.2.2026", "-", "@x", std::monostate{}, std::monostate{}, std::monostate{},
             "?"});
    }
    void add(const std::vector<ColumnValue>& row) {
        const TableInfo table = database->tables().front();
        std::vector<NamedValue> values;
        for (std::size_t i = 0; i < row.size(); ++i) values.emplace_back(table.columns[i], row[i]);
        database->add_row(table.name, values);
    }
    std::size_t write(const std::string& path, DecimalSeparator separator) {
        return export_table(*database, case_tables(), database->tables().front(), path, workbooks,
                            files, separator);
    }
};

TEST_F(Export, writes_lines_of_values) {
    EXPECT_EQ(write("/t.CSV", DecimalSeparator::Point), 2U);
    EXPECT_EQ(files.files["/t.CSV"],
              "\xEF\xBB\xBFProjekt_db,Datum_db,Bearbeiter_db,Abteilung_db,Notiz,"
              "Umgebungstemperatur_db,DCR_20_db\n"
              "'=1+1,,Müller; Söhne,\"a \"\"b\"\", c\",17,-5.5,0.1\n"
              "'+49,1.2.2026,'-,'@x,,,?\n");
    write("/t.csv", DecimalSeparator::Comma);
    EXPECT_EQ(files.files["/t.csv"],
              "\xEF\xBB\xBFProjekt_db;Datum_db;Bearbeiter_db;Abteilung_db;Notiz;"
              "Umgebungstemperatur_db;DCR_20_db\n"
              "'=1+1;;\"Müller; Söhne\";\"a \"\"b\"\", c\";17;-5,5;0,1\n"
              "'+49;1.2.2026;'-;'@x;;;?\n");
}

TEST_F(Export, writes_a_worksheet) {
    EXPECT_EQ(write("/t.xlsx", DecimalSeparator::Comma), 2U);
    const MemorySheet& sheet = workbooks.files.at("/t.xlsx").at("Nord _1__");

    using Cell = MemorySheet::mapped_type;
    EXPECT_EQ(sheet.at({1, 7}), Cell("DCR_20_db"));
    EXPECT_EQ(sheet.at({2, 1}), Cell("=1+1"));
    EXPECT_EQ(sheet.at({2, 5}), Cell("17"));
    EXPECT_EQ(sheet.at({2, 6}), Cell(-5.5));
    EXPECT_EQ(sheet.at({2, 7}), Cell(0.1));
    EXPECT_EQ(sheet.at({3, 7}), Cell("?"));
    EXPECT_FALSE(sheet.contains({3, 6}));
}

TEST_F(Export, refuses_other_endings) {
    EXPECT_THROW(write("/t.ods", DecimalSeparator::Point), InputError);
    EXPECT_THROW(write(".csv", DecimalSeparator::Point), InputError);
    EXPECT_TRUE(files.files.empty());
}

TEST_F(Export, saves_what_a_table_has_columns_for) {
    const TableInfo table = database->tables().front();
    std::vector<std::string> left_out;
    add_to_table(*database, table,
                 {{"Projekt_db", "P"}, {"wzsz_merker_db", std::int16_t{2}}, {"GMR_db", {}}},
                 left_out);
    EXPECT_EQ(left_out, std::vector<std::string>{"wzsz_merker_db"});
    EXPECT_EQ(database->row(table.name, database->rows(table.name).back())[0], "P");
    EXPECT_EQ(told_left_out(table, left_out, LangId::German)->lines.back(), "wzsz_merker_db");
    EXPECT_FALSE(told_left_out(table, {}, LangId::German));
}

}  // namespace
}  // namespace zel
