#include <benchmark/benchmark.h>
#include <unistd.h>

#include <filesystem>

#include "adapters/sqlite/sqlite_store.h"
#include "adapters/xlsx/new_xlsx.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "persistence/database/case_table.h"
#include "persistence/database/saving.h"
#include "persistence/database/table_export.h"
#include "persistence/database/table_import.h"

// Databases on the disk: one row saved, and a table of many rows listed, browsed, exported
// and imported.

namespace zel {
namespace {

std::vector<NamedValue> row_of_case() {
    CalcCase c = sunny_264_34();
    static_cast<ConductorData&>(c) = line_264_34();
    c.Projekt_db = "380 kV line";
    std::vector<CutText> cut;
    return S30_Access_Daten_speichern(c, cut);
}

/// A database whose table "T" has `rows` rows.
class Filled {
public:
    explicit Filled(std::int64_t rows) {
        const auto row = row_of_case();
        NewDatabase made(store, path);
        made.database().whole([&] {
            case_tables().create(made.database(), "T");
            for (std::int64_t i = 0; i < rows; ++i) made.database().add_row("T", row);
        });
        made.keep();
    }
    ~Filled() { std::filesystem::remove(path); }
    Filled(const Filled&) = delete;
    Filled& operator=(const Filled&) = delete;
    std::unique_ptr<Database> open() { return store.open(path); }

private:
    SqliteStore store;
    std::string path = std::filesystem::temp_directory_path() /
                       ("zel-bench-" + std::to_string(::getpid()) + ".mdb");
};

void save_one_row(benchmark::State& state) {
    Filled filled(0);
    const auto row = row_of_case();
    for (auto _ : state) filled.open()->add_row("T", row);
}
BENCHMARK(save_one_row)->Unit(benchmark::kMillisecond);

/// What a window reads to show its list.
void list_rows(benchmark::State& state) {
    Filled filled(state.range(0));
    for (auto _ : state) {
        std::size_t characters = 0;
        filled.open()->each_row("T", case_tables().list_columns,
                                [&](RowKey /*key*/, const TableRow& row) {
                                    characters += row.front().value_or("").size();
                                    return true;
                                });
        benchmark::DoNotOptimize(characters);
    }
}
BENCHMARK(list_rows)->Arg(10000)->Unit(benchmark::kMillisecond);

/// One row of many, as the scroll bar of a window asks for it.
void show_one_row(benchmark::State& state) {
    Filled filled(state.range(0));
    const auto database = filled.open();
    const TableInfo table = record_table(*database, case_tables(), "T");
    const auto keys = database->rows("T");
    std::size_t next = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(stored_row(*database, table, keys[next++ * 7919 % keys.size()]));
}
BENCHMARK(show_one_row)->Arg(10000)->Unit(benchmark::kMillisecond);

void export_csv(benchmark::State& state) {
    Filled filled(state.range(0));
    const auto database = filled.open();
    const TableInfo table = record_table(*database, case_tables(), "T");
    for (auto _ : state)
        benchmark::DoNotOptimize(
            csv_of(table_as_sheet(*database, case_tables(), table), DecimalSeparator::Point));
}
BENCHMARK(export_csv)->Arg(10000)->Unit(benchmark::kMillisecond);

void export_workbook(benchmark::State& state) {
    Filled filled(state.range(0));
    const auto database = filled.open();
    const TableInfo table = record_table(*database, case_tables(), "T");
    for (auto _ : state)
        benchmark::DoNotOptimize(new_xlsx({table_as_sheet(*database, case_tables(), table)}, "T"));
}
BENCHMARK(export_workbook)->Arg(10000)->Unit(benchmark::kMillisecond);

void import_rows(benchmark::State& state) {
    Filled filled(state.range(0));
    const auto database = filled.open();
    SqliteStore store;
    const std::string path =
        std::filesystem::temp_directory_path() / ("zel-import-" + std::to_string(::getpid()));
    for (auto _ : state) {
        benchmark::DoNotOptimize(import_tables(*database, case_tables(), store, path,
                                               [](std::size_t, std::size_t) { return true; }));
        std::filesystem::remove(path);
    }
}
BENCHMARK(import_rows)->Arg(10000)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zel
