#include "persistence/database/table_import.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "adapters/access/access_store.h"
#include "adapters/sqlite/sqlite_store.h"
#include "fakes/access_cases.h"
#include "fakes/scratch_folder.h"
#include "persistence/database/case_table.h"
#include "platform/errors.h"

namespace zel {
namespace {

using access_file::Cell;
using access_file::Type;

bool go_on(std::size_t /*done*/, std::size_t /*of*/) { return true; }

std::vector<std::string> told(const ImportResult& result) {
    std::vector<std::string> lines;
    for (const auto& [table, row, column, reason] : result.left_out)
        lines.push_back(fill("{0} {1} {2}: {3}", {table, std::to_string(row), column, reason.en}));
    return lines;
}

struct Import : testing::Test {
    ScratchFolder folder;
    std::string path = folder.file("new.mdb");
    SqliteStore store;

    std::unique_ptr<Database> access(const std::string& bytes) {
        folder.write("old.mdb", bytes);
        return AccessStore(ZEL_ACCESS_READER).open(folder.file("old.mdb"));
    }
    std::unique_ptr<Database> access(const std::vector<access_file::Table>& tables) {
        return access(access_file::bytes_of(tables));
    }
    ImportResult import(Database& from, const ImportProgress& progress = go_on) {
        return import_tables(from, case_tables(), store, path, progress);
    }
};

TEST_F(Import, copies_whole_tables_and_tells_how_far_it_is) {
    auto hidden = access_table(case_tables(), "Versteckt", 3);
    hidden.flags = access_file::hidden;
    const auto old = access({access_table(case_tables(), "Fälle", 300), hidden,
                             access_table(case_tables(), "Others", 2)});
    std::vector<std::size_t> steps;
    const ImportResult result = import(*old, [&](std::size_t done, std::size_t of) {
        EXPECT_EQ(of, 302U);
        steps.push_back(done);
        return true;
    });
    EXPECT_EQ(steps.size(), 302U);
    EXPECT_EQ(steps.back(), 302U);
    ASSERT_EQ(result.tables.size(), 2U);
    EXPECT_EQ(result.tables[0].rows, 300U);
    EXPECT_TRUE(result.left_out.empty());
    const auto made = store.open(path);
    ASSERT_EQ(made->tables().size(), 2U);
    const auto columns = made->tables()[0].columns;
    EXPECT_EQ(columns, old->tables()[0].columns);
    const auto old_keys = old->rows("Fälle");
    const auto new_keys = made->rows("Fälle");
    ASSERT_EQ(new_keys.size(), old_keys.size());
    for (std::size_t row = 0; row < new_keys.size(); ++row)
        ASSERT_EQ(made->row("Fälle", new_keys[row]), old->row("Fälle", old_keys[row])) << row;
}

TEST_F(Import, gives_old_tables_all_columns) {
    const auto old = store.create(folder.file("old.mdb"));
    const auto& columns = case_tables().columns;
    old->create_table("T", std::span(columns).first(100));
    const std::vector<NamedValue> row = {{"Projekt_db", "x"}, {"Wind6_db", 1.0F}};
    old->add_row("T", std::span(row).first(1));
    EXPECT_TRUE(import(*old).left_out.empty());
    const auto made = store.open(path);
    const TableInfo table = made->tables().front();
    EXPECT_EQ(table.columns.size(), 180U);
    EXPECT_FALSE(refused_table(case_tables(), table, LangId::English));
    TableRow expected(180);
    expected[0] = "x";
    EXPECT_EQ(made->row("T", made->rows("T")[0]), expected);
}

TEST_F(Import, tells_what_it_leaves_out) {
    access_file::Table table = {
        "T",
        {{"Projekt_db", Type::Memo},
         {"Datum_db", Type::Date},
         {"Bearbeiter_db", Type::Text, 50},
         {"Abteilung_db", Type::Text, 50},
         {"Tag_db", Type::Double},
         {"Leitertemp_db", Type::Text, 50},
         {"Wind1_db", Type::Double},
         {"Foto", Type::Text, 20}},
        {{std::string(101, 'x'), 46194.0, "", " ", 21.5, "80,5", 1e300, "f"},
         {"y", 46194.0, "B", "A", 40000.0, " 80.5 ", 0.1, "f"}}};
    std::string bytes = access_file::bytes_of({table, {"Other", {{"a"}}, {}}});
    bytes[3 * 4096 + 16] = 3;  // the rows that the first table counts
    const auto old = access(bytes);
    const ImportResult result = import(*old);
    EXPECT_EQ(
        told(result),
        (std::vector<std::string>{
            "Other 0 : holds no such cases", "T 0 Foto: the column does not belong to such cases",
            "T 1 Projekt_db: the text was cut to 100 characters",
            "T 1 Tag_db: \"21.5\" was rounded to a whole number",
            "T 1 Leitertemp_db: \"80,5\" is no number",
            "T 1 Wind1_db: \"1e+300\" is beyond the range of the column",
            "T 2 Tag_db: \"40000\" is beyond the range of the column",
            "T 0 : the file counts 3 rows, 2 can be read; it is probably damaged"}));
    const auto made = store.open(path);
    const std::vector<std::string> columns = {"Projekt_db", "Datum_db",      "Bearbeiter_db",
                                              "Tag_db",     "Leitertemp_db", "Wind1_db"};
    std::vector<TableRow> rows;
    made->each_row("T", columns, [&](RowKey, const TableRow& row) {
        rows.push_back(row);
        return true;
    });
    const std::vector<TableRow> expected = {
        {std::string(100, 'x'), "2026-06-21", " ", "22", std::nullopt, std::nullopt},
        {"y", "2026-06-21", "B", std::nullopt, "80.5", "0.1"}};
    EXPECT_EQ(rows, expected);
}

TEST_F(Import, makes_nothing_where_it_fails) {
    const auto fault_of = [&](Database& from, const ImportProgress& progress = go_on) {
        try {
            (void)import(from, progress);
        } catch (const PlatformError& error) {
            EXPECT_FALSE(std::filesystem::exists(path));
            return error.fault();
        }
        return PlatformFault::InvalidCall;
    };
    const auto old = access({access_table(case_tables(), "T", 9)});
    EXPECT_EQ(fault_of(*old, [](std::size_t done, std::size_t) { return done < 5; }),
              PlatformFault::DialogCancelled);
    EXPECT_EQ(fault_of(*access({{"Other", {{"a"}}, {}}})), PlatformFault::NoRecords);
    std::string bytes = access_file::bytes_of({access_table(case_tables(), "T", 30)});
    bytes.replace(bytes.size() - 4 * 4096, 4096, 4096, '\0');
    EXPECT_EQ(fault_of(*access(bytes)), PlatformFault::Unforeseen);
    folder.write("new.mdb", "mine");
    EXPECT_THROW((void)import(*old), PlatformError);
    EXPECT_EQ(folder.read("new.mdb"), "mine");
}

}  // namespace
}  // namespace zel
