#include "adapters/sqlite/sqlite_store.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <thread>

#include "fakes/scratch_folder.h"
#include "platform/errors.h"

namespace zel {
namespace {

const std::vector<TableColumn> columns = {{"Name", ColumnType::Text, 5},
                                          {"n", ColumnType::Integer},
                                          {"x", ColumnType::Single},
                                          {"y", ColumnType::Double}};
const std::vector<std::string> all = {"Name", "n", "x", "y"};

/// The number of the failure of `action`; 0 where it does not fail.
template <class Action>
int fault_of(Action action) {
    try {
        (void)action();
    } catch (const PlatformError& error) {
        return static_cast<int>(error.fault());
    }
    return 0;
}

struct Store : testing::Test {
    ScratchFolder folder;
    std::string path = folder.file("a.mdb");
    SqliteStore store;

    void made(const std::string& name) {
        const auto database = store.create(name);
        database->create_table("T", columns);
        database->put_in_place();
    }
    std::vector<TableRow> rows_of(Database& database, const std::string& table) {
        std::vector<TableRow> rows;
        database.each_row(table, all, [&](RowKey key, const TableRow& row) {
            EXPECT_EQ(database.row(table, key), row);
            rows.push_back(row);
            return true;
        });
        return rows;
    }
};

TEST_F(Store, gives_values_back_in_the_precision_of_their_columns) {
    const auto database = store.create(path);
    database->create_table("T [1] `x`", columns);
    const std::vector<NamedValue> row = {
        {"name", "äöü € \"'"}, {"n", std::int16_t{-32768}}, {"x", 0.1F}, {"y", 0.1}};
    database->add_row("T [1] `x`", row);
    database->add_row("t [1] `X`", {});
    database->put_in_place();
    const auto again = store.open(path);
    ASSERT_EQ(again->tables().size(), 1U);
    EXPECT_EQ(again->tables()[0].columns, all);
    const std::vector<TableRow> expected = {{"äöü € \"'", "-32768", "0.1", "0.1"},
                                            TableRow(all.size())};
    EXPECT_EQ(rows_of(*again, "T [1] `x`"), expected);
}

TEST_F(Store, finds_rows_again_by_their_keys) {
    const auto database = store.create(path);
    database->create_table("T", columns);
    for (std::int16_t n = 1; n <= 3; ++n) database->add_row("T", std::vector<NamedValue>{{"n", n}});
    const auto keys = database->rows("T");
    database->delete_row("T", keys[0]);
    EXPECT_EQ(database->row("T", keys[2])[1], "3");
    EXPECT_EQ(database->rows("T").size(), 2U);
    EXPECT_EQ(fault_of([&] { return database->row("T", keys[0]); }), 3021);
    database->drop_table("T");
    EXPECT_TRUE(database->tables().empty());
}

TEST_F(Store, takes_back_what_broke_off) {
    const auto database = store.create(path);
    const auto fails = [&] {
        database->whole([&] {
            database->create_table("T", columns);
            database->add_row("T", std::vector<NamedValue>{{"no such column", 1.0}});
        });
        return 0;
    };
    EXPECT_NE(fault_of(fails), 0);
    EXPECT_TRUE(database->tables().empty());
}

TEST_F(Store, makes_a_file_when_a_new_one_is_put_in_its_place) {
    store.create(path)->create_table("T", columns);  // is gone again
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    const auto database = store.create(path);
    made(path);
    EXPECT_NE(fault_of([&] { return database->put_in_place(), 0; }), 0);
    EXPECT_EQ(store.open(path)->tables().size(), 1U);
}

TEST_F(Store, tells_failures_by_their_numbers) {
    EXPECT_EQ(fault_of([&] { return store.open(path); }), 3024);
    EXPECT_EQ(fault_of([&] { return store.create(folder.file("none/a.mdb")); }), 76);
    folder.write("text.mdb", std::string(5000, 'x'));
    EXPECT_EQ(fault_of([&] { return store.open(folder.file("text.mdb")); }), 3343);
    folder.write("empty.mdb", "");
    EXPECT_EQ(fault_of([&] { return store.open(folder.file("empty.mdb")); }), 3343);
    for (const char* const no_file : {"", ":memory:", "file:none.mdb?mode=memory"})
        EXPECT_EQ(fault_of([&] { return store.open(no_file); }), 3024) << no_file;
    made(path);
    EXPECT_EQ(fault_of([&] { return store.create(path); }), 3204);
    const auto database = store.open(path);
    EXPECT_EQ(fault_of([&] { return database->create_table("t", columns), 0; }), 3010);
    EXPECT_EQ(fault_of([&] { return database->rows("U"); }), 26469);
    const auto other = store.open(path);
    database->whole([&] {
        EXPECT_EQ(fault_of([&] { return other->add_row("T", {}), 0; }), 3356);
        EXPECT_EQ(other->rows("T").size(), 0U);  // reading goes on meanwhile
    });
}

TEST_F(Store, keeps_every_row_that_was_told_when_the_program_is_killed) {
    made(path);
    std::size_t told = 0;
    for (int round = 0; round < 10; ++round) {
        int ends[2];
        ASSERT_EQ(::pipe(ends), 0);
        const pid_t child = ::fork();
        if (child == 0) {
            const auto database = store.open(path);
            for (;;) {
                database->add_row("T", std::vector<NamedValue>{{"x", 1.5F}});
                if (::write(ends[1], "+", 1) != 1) ::_exit(1);
            }
        }
        ::close(ends[1]);
        char sign = 0;
        ASSERT_EQ(::read(ends[0], &sign, 1), 1);
        ++told;
        std::this_thread::sleep_for(std::chrono::milliseconds(3 * round));
        ::kill(child, SIGKILL);
        ::waitpid(child, nullptr, 0);
        while (::read(ends[0], &sign, 1) == 1) ++told;
        ::close(ends[0]);
        EXPECT_GE(store.open(path)->rows("T").size(), told);
    }
}

TEST_F(Store, a_large_value_out_of_a_few_bytes_is_refused) {
    store.create(path)->put_in_place();
    SQLite::Database other(path, SQLite::OPEN_READWRITE);
    other.exec("CREATE TABLE T (n INTEGER, fits AS (hex(zeroblob(n))))");
    other.exec("INSERT INTO T (n) VALUES (8000000), (8388609)");
    const auto database = store.open(path);
    const std::vector<RowKey> keys = database->rows("T");
    EXPECT_EQ(database->row("T", keys[0])[1]->size(), 16000000U);
    try {
        (void)database->row("T", keys[1]);
        FAIL();
    } catch (const InputError& error) {
        EXPECT_EQ(error.what(), path + ": a row or a value is larger than 16 MiB");
    }
}

}  // namespace
}  // namespace zel
