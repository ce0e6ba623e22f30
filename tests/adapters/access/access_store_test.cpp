#include "adapters/access/access_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <charconv>
#include <random>

#include "fakes/access_cases.h"
#include "fakes/scratch_folder.h"
#include "persistence/database/case_table.h"
#include "platform/errors.h"

namespace zel {
namespace {

using namespace std::chrono_literals;
using access_file::Cell;
using access_file::Type;
using access_file::Version;
using testing::HasSubstr;

struct Access : testing::Test {
    ScratchFolder folder;
    std::string path = folder.file("old.mdb");
    AccessStore store{ZEL_ACCESS_READER};

    std::unique_ptr<Database> written(const std::string& bytes) {
        folder.write("old.mdb", bytes);
        return store.open(path);
    }
};

/// What `action` is refused with; empty where it is not.
template <class Action>
std::string refusal_of(const Action& action) {
    try {
        action();
    } catch (const PlatformError& error) {
        EXPECT_THAT(error.told(LangId::German), HasSubstr("old.mdb"));
        return error.what();
    }
    return {};
}

std::vector<TableRow> rows_of(Database& database, const std::string& table,
                              std::span<const std::string> columns) {
    std::vector<TableRow> rows;
    database.each_row(table, columns, [&](RowKey, const TableRow& row) {
        rows.push_back(row);
        return true;
    });
    return rows;
}

/// The text that gives `cell` back to the last digit.
std::optional<std::string> text_of(const Cell& cell, Type type) {
    if (cell.index() == 0) return std::nullopt;
    if (const auto* text = std::get_if<std::string>(&cell)) return *text;
    const double value = std::get<double>(cell);
    char digits[32];
    const auto end = type == Type::Single
                         ? std::to_chars(digits, std::end(digits), static_cast<float>(value))
                         : std::to_chars(digits, std::end(digits), value);
    return std::string(digits, end.ptr);
}

class AccessVersions : public Access, public testing::WithParamInterface<Version> {};

TEST_P(AccessVersions, give_every_value_of_a_table_of_180_columns) {
    auto cases = access_table(case_tables(), "Fälle", 300);
    cases.moved = true;
    auto hidden = access_table(case_tables(), "Versteckt", 3);
    hidden.flags = access_file::hidden;
    const auto other = access_table(case_tables(), "Other", 1, 4);
    const auto database = written(access_file::bytes_of({hidden, cases, other}, GetParam()));
    EXPECT_FALSE(database->writable());
    const auto tables = database->tables();
    ASSERT_EQ(tables.size(), 2U);  // neither the hidden nor the system's own
    EXPECT_EQ(tables[0].name, "Fälle");
    EXPECT_EQ(tables[0].counted_rows, 300U);
    ASSERT_EQ(tables[0].columns.size(), 180U);
    EXPECT_EQ(tables[1].name, "Other");
    EXPECT_THAT(refusal_of([&] { (void)database->rows("Versteckt"); }), HasSubstr("no table"));

    const auto rows = rows_of(*database, "Fälle", tables[0].columns);
    const auto keys = database->rows("Fälle");
    ASSERT_EQ(rows.size(), 300U);
    ASSERT_EQ(keys.size(), 300U);
    for (std::size_t row = 0; row < rows.size(); ++row)
        for (std::size_t column = 0; column < 180; ++column)
            ASSERT_EQ(rows[row][column],
                      text_of(cases.rows[row][column], cases.columns[column].type))
                << row << " " << tables[0].columns[column];
    EXPECT_EQ(database->row("fälle", keys[299]), rows[299]);
}

TEST_P(AccessVersions, give_tables_of_many_pages) {
    access_file::Table table = {"T", {{"n", Type::Long}, {"text", Type::Memo}}, {}};
    for (int row = 0; row < 600; ++row)
        table.rows.push_back(
            {double(row), std::string(GetParam() == Version::Jet3 ? 1500 : 1800, 'x')});
    const auto database = written(access_file::bytes_of({table}, GetParam()));
    const auto keys = database->rows("T");
    ASSERT_EQ(keys.size(), 600U);
    EXPECT_EQ(database->row("T", keys[599]),
              (TableRow{"599", std::get<std::string>(table.rows[0][1])}));
}

INSTANTIATE_TEST_SUITE_P(All, AccessVersions,
                         testing::Values(Version::Jet3, Version::Jet4, Version::Ace));

TEST_F(Access, shows_each_type_as_text) {
    const access_file::Table table = {"T",
                                      {{"a", Type::Boolean},
                                       {"b", Type::Byte},
                                       {"c", Type::Integer},
                                       {"d", Type::Long},
                                       {"e", Type::Currency},
                                       {"f", Type::Single},
                                       {"g", Type::Double},
                                       {"h", Type::Date},
                                       {"i", Type::Memo},
                                       {"j", Type::Text, 50},
                                       {"k", Type::Picture}},
                                      {{1.0, 255.0, -32768.0, -2147483648.0, -12.5, 0.1, 0.1,
                                        46194.513888888891, "a\nb", "€ …", "x"},
                                       {0.0, 0.0, 0.0, 0.0, 20.0, 3e38, 1e-300, -1.25, "", "", "x"},
                                       std::vector<Cell>(11)}};
    const auto database = written(access_file::bytes_of({table}));
    const std::vector<std::string> columns = {"a", "b", "c", "d", "e", "F",
                                              "g", "h", "i", "j", "k", "none"};
    const std::vector<TableRow> expected = {
        {"-1",
         "255",
         "-32768",
         "-2147483648",
         "-12.5",
         "0.1",
         "0.1",
         "2026-06-21 12:20:00",
         "a\nb",
         "€ …",
         {},
         {}},
        {"0", "0", "0", "0", "20", "3e+38", "1e-300", "1899-12-29 06:00:00", "", "", {}, {}},
        {"0", {}, {}, {}, {}, {}, {}, {}, {}, {}, {}, {}}};
    EXPECT_EQ(rows_of(*database, "T", columns), expected);
}

TEST_F(Access, reads_no_further_than_wanted_and_the_file_that_was_opened) {
    const auto database = written(access_file::bytes_of({access_table(case_tables(), "T", 30)}));
    ASSERT_EQ(::unlink(path.c_str()), 0);
    int seen = 0;
    const std::vector<std::string> first = {"Projekt_db"};
    database->each_row("T", first, [&](RowKey key, const TableRow& row) {
        EXPECT_EQ(database->row("T", key)[0], row[0]);
        return ++seen < 7;
    });
    EXPECT_EQ(seen, 7);
    EXPECT_THAT(refusal_of([&] { (void)database->row("T", 1); }), HasSubstr("not there any more"));
}

TEST_F(Access, needs_no_password) {
    std::string bytes = access_file::bytes_of({access_table(case_tables(), "T", 2)});
    for (std::size_t place = 0x42; place < 0x52; ++place) bytes[place] ^= '\x5A';
    EXPECT_EQ(written(bytes)->rows("T").size(), 2U);
}

TEST_F(Access, refuses_every_change_and_names_the_way) {
    const auto database = written(access_file::bytes_of({access_table(case_tables(), "T", 1)}));
    const std::vector<std::function<void()>> changes = {
        [&] { database->create_table("U", {}); },
        [&] { database->add_row("T", {}); },
        [&] { database->delete_row("T", database->rows("T")[0]); },
        [&] { database->drop_table("T"); },
        [&] { database->whole([] {}); },
        [&] { (void)store.create(path); }};
    for (const auto& change : changes)
        EXPECT_THAT(refusal_of(change), HasSubstr("zel db import OLD.mdb NEW.mdb"));
}

TEST_F(Access, tells_what_it_cannot_read) {
    EXPECT_THAT(refusal_of([&] { (void)store.open(path); }), HasSubstr("No such file"));
    EXPECT_THAT(refusal_of([&] { (void)written(access_file::bytes_of({}, Version::Ace, 7)); }),
                HasSubstr("encrypted"));
    std::string bytes = access_file::bytes_of({access_table(case_tables(), "T", 30)});
    const std::string cut = bytes.substr(0, bytes.size() - 2 * 4096);
    EXPECT_THAT(refusal_of([&] { (void)written(cut); }), HasSubstr("damaged"));
    bytes.replace(bytes.size() - 4 * 4096, 4096, 4096, '\0');  // a page of rows
    const auto holed = written(bytes);
    EXPECT_THAT(refusal_of([&] { (void)holed->rows("T"); }), HasSubstr("damaged"));
    AccessStore none(folder.file("none"));
    EXPECT_THAT(refusal_of([&] { (void)none.open(path); }), HasSubstr("is missing"));
}

TEST_F(Access, outlives_a_reader_that_dies_hangs_or_tells_nonsense) {
    folder.write("old.mdb", access_file::bytes_of({}));
    const std::string reader = folder.file("reader");
    const struct {
        const char* script;
        const char* told;
        std::chrono::milliseconds limit = 20s;
    } rows[] = {
        {"exit 1", "damaged"},
        {"kill -SEGV $$", "damaged"},
        {"exit 127", "is missing"},
        {"exec sleep 100", "within 0 s", 300ms},
        {"head -c 70000 /dev/urandom >&3", "damaged"},
        {"printf '\\377\\377\\377\\377' >&3; exec sleep 100", "damaged"},
        {"printf '\\0\\0\\0\\0' >&3; exec sleep 100", "damaged"},
        {"printf '\\10\\0\\0\\0\\1\\0\\0\\0\\0\\0\\0\\0' >&3; exec sleep 100", "damaged"},
        {"printf '\\100\\0\\0\\0\\1' >&3; exec sleep 100", "within 0 s", 300ms},
    };
    for (const auto& [script, told, limit] : rows) {
        folder.write("reader", std::string("#!/bin/sh\nPATH=/usr/bin:/bin\n") + script + "\n");
        ASSERT_EQ(::chmod(reader.c_str(), 0755), 0);
        AccessStore broken(reader, limit);
        EXPECT_THAT(refusal_of([&] { (void)broken.open(path); }), HasSubstr(told)) << script;
    }
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a process is left";
}

/// Bytes turned over, a piece cut off, or a page emptied.
std::string damaged(std::string bytes, std::mt19937& chance) {
    const auto below = [&](std::size_t end) { return chance() % end; };
    switch (below(4)) {
        case 0: bytes.resize(below(bytes.size())); break;
        case 1: bytes.replace(below(bytes.size() / 4096) * 4096, 4096, 4096, '\0'); break;
        default:
            // Mostly in the pages that tell of the tables.
            for (std::size_t flips = 1 + below(20); flips > 0; --flips) {
                const std::size_t end = below(3) == 0 ? bytes.size() : 8 * 4096;
                bytes[below(end)] = static_cast<char>(chance());
            }
    }
    return bytes;
}

TEST_F(Access, outlives_damaged_files) {
    const std::string whole = access_file::bytes_of(
        {access_table(case_tables(), "T", 60), access_table(case_tables(), "U", 5, 20)});
    std::mt19937 chance(13);  // NOLINT(cert-msc51-cpp): the same files each time
    AccessStore patient(ZEL_ACCESS_READER, 500ms);
    int read = 0;
    for (int copy = 0; copy < 200; ++copy) {
        folder.write("old.mdb", damaged(whole, chance));
        const auto begin = std::chrono::steady_clock::now();
        const std::string refusal = refusal_of([&] {
            const auto database = patient.open(path);
            for (const TableInfo& table : database->tables())
                (void)rows_of(*database, table.name, table.columns);
            ++read;
        });
        EXPECT_LT(std::chrono::steady_clock::now() - begin, 5s);
        if (!refusal.empty()) {
            EXPECT_THAT(refusal, HasSubstr("damaged"));
        }
    }
    EXPECT_GT(read, 0);
    EXPECT_LT(read, 200);
    EXPECT_EQ(::waitpid(-1, nullptr, WNOHANG), -1) << "a process is left";
}

}  // namespace
}  // namespace zel
