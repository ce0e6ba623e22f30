#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <string>

#include "adapters/posix/text_file.h"
#include "adapters/xlsx/new_xlsx.h"
#include "adapters/xlsx/xlsx_workbook.h"
#include "excel_batch/batch_run.h"
#include "excel_batch/input_cells.h"
#include "excel_batch/template_design.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "fakes/transient_cases.h"

// Whole batches on a workbook in memory: by four methods, with conductor columns (81 columns a
// row), and ratings of 30 to 60 s after five preloads. How their time splits into reading,
// calculating and writing.

namespace zel::excel_batch {
namespace {

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point begin) {
    return std::chrono::duration<double>(Clock::now() - begin).count();
}

CalcCase line() {
    CalcCase c = sunny_264_34();
    c.Winkel_S_S_db = typed(0);
    static_cast<ConductorData&>(c) = line_264_34();
    c.ACDC_R_Option_Merker_db = resistance_by_formula;
    return c;
}

double value_of(const CalcCase& c, const FieldKey& field) {
    if (const auto* entry = std::get_if<Entry CalcCase::*>(&field)) return (c.*(*entry)).value;
    return c.*std::get<std::int16_t CalcCase::*>(field);
}

/// A workbook with `rows` rows of changing weather.
std::string workbook_of(int rows) {
    const CalcCase c = line();
    std::string bytes = new_xlsx(template_design(WorkbookKind::SteadyVar, LangId::English, c), "");
    auto workbook = open_xlsx("bench.xlsx", bytes, [&](std::string_view b) { bytes = b; });
    workbook->select(fixed_sheet);
    for (const int row : {5, 6, 8, 9}) workbook->set_number(row, input_column, 1);
    workbook->set_number(7, input_column, 0);
    for (const InputCell& cell : line_cells())
        workbook->set_number(cell.fixed_row, input_column, value_of(c, cell.field));
    workbook->set_number(single_current_cell().fixed_row, input_column, 500);
    workbook->set_number(temperature_cell().fixed_row, input_column, 80);
    workbook->set_number(mode_row, input_column, 1);
    workbook->select(rows_sheet);
    for (int i = 0; i < rows; ++i) {
        const int row = row_of(WorkbookKind::SteadyVar).first_row + i;
        workbook->set_number(row, flag_column, 1);
        for (const auto& cells : {line_cells(), conductor_cells()})
            for (const InputCell& cell : cells)
                workbook->set_number(row, cell.column, value_of(c, cell.field));
        workbook->set_number(row, 10, 0.5 + 0.25 * (i % 20));
        workbook->set_number(row, 12, 35 - i % 40);
        workbook->set_number(row, single_current_cell().column, 800 + i % 900);
        workbook->set_number(row, temperature_cell().column, 80);
        workbook->set_number(row, mode_column, 1 + i % 2);
    }
    workbook->save();
    return bytes;
}

/// A workbook of ratings for a time, with `rows` rows.
std::string transient_workbook_of(int rows) {
    CalcCase c = line();
    static_cast<ConductorData&>(c) = with_masses(line_264_34());
    constexpr WorkbookKind kind = WorkbookKind::Transient;
    std::string bytes = new_xlsx(template_design(kind, LangId::English, c), "");
    auto workbook = open_xlsx("bench.xlsx", bytes, [&](std::string_view b) { bytes = b; });
    workbook->select(fixed_sheet);
    for (const InputCell& cell : transient_fixed_cells())
        workbook->set_number(cell.fixed_row, input_column, value_of(c, cell.field));
    for (int n = 0; n < 5; ++n)
        workbook->set_number(first_percent_row + n, input_column, 20 * n + 10);
    workbook->select(rows_sheet);
    for (int i = 0; i < rows; ++i) {
        const int row = row_of(kind).first_row + i;
        workbook->set_number(row, flag_column, 1);
        int column = 3;
        for (const double value : {0.5 + 0.25 * (i % 20), 45.0 + i % 45, 0.6, 0.6, 35.0 - i % 40,
                                   900.0, 80.0, 30.0 + i % 31})
            workbook->set_number(row, ++column, value);
    }
    workbook->save();
    return bytes;
}

/// Adds up what reading and writing take.
struct Times {
    double reading = 0;
    double writing = 0;
};

class TimedWorkbook : public Workbook {
public:
    TimedWorkbook(std::unique_ptr<Workbook> timed, Times& times)
        : timed_(std::move(timed)), times_(times) {}
    void select(std::string_view sheet) override {
        add(times_.reading, [&] { timed_->select(sheet); });
    }
    std::string text(int row, int column) override {
        std::string text;
        add(times_.reading, [&] { text = timed_->text(row, column); });
        return text;
    }
    void require_single_cells(const CellArea& area) override { timed_->require_single_cells(area); }
    void set_number(int row, int column, double value) override {
        timed_->set_number(row, column, value);
    }
    void set_text(int row, int column, std::string_view text) override {
        timed_->set_text(row, column, text);
    }
    void clear(const CellArea& area) override { timed_->clear(area); }
    void save() override {
        add(times_.writing, [&] { timed_->save(); });
    }

private:
    template <class Work>
    static void add(double& to, Work work) {
        const auto begin = Clock::now();
        work();
        to += seconds_since(begin);
    }

    std::unique_ptr<Workbook> timed_;
    Times& times_;
};

class TimedStore : public WorkbookStore {
public:
    TimedStore(const std::string& bytes, Times& times) : bytes_(bytes), times_(times) {}
    std::unique_ptr<Workbook> open(const std::string& path) override {
        const auto begin = Clock::now();
        auto workbook = open_xlsx(path, bytes_, [](std::string_view) {});
        times_.reading += seconds_since(begin);
        return std::make_unique<TimedWorkbook>(std::move(workbook), times_);
    }
    void create(const std::string& path, const WorkbookDesign& design,
                const std::string& title) override {
        write_text_file(path, new_xlsx(design, title));
    }

private:
    const std::string& bytes_;
    Times& times_;
};

class Unwatched : public BatchObserver {
public:
    void status(const std::string&) override {}
    void percent(double) override {}
    void active_rows(const std::string&) override {}
    void time_suffix(std::string_view) override {}
    bool cancelled() override { return false; }
};

void run_batches(benchmark::State& state, const std::string& bytes, WorkbookKind kind) {
    Times times;
    TimedStore store(bytes, times);
    Unwatched observer;
    RecordingDialogs dialogs;
    const Session session = {LangId::English, DecimalSeparator::Point, RunMode::Messages, dialogs};
    BatchJob job = {store, "bench.xlsx", session, observer};
    job.Excel_Leiterdaten_Merker = kind == WorkbookKind::SteadyVar ? 1 : 2;
    const auto begin = Clock::now();
    for (auto _ : state)
        if (run_batch(job).active != state.range(0)) state.SkipWithError("rows are missing");
    const double all = seconds_since(begin);
    const auto runs = static_cast<double>(state.iterations());
    state.counters["reading_s"] = times.reading / runs;
    state.counters["writing_s"] = times.writing / runs;
    state.counters["calculating_s"] = (all - times.reading - times.writing) / runs;
}

void steady_batch(benchmark::State& state) {
    run_batches(state, workbook_of(static_cast<int>(state.range(0))), WorkbookKind::SteadyVar);
}
BENCHMARK(steady_batch)->Arg(2000)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

void transient_batch(benchmark::State& state) {
    run_batches(state, transient_workbook_of(static_cast<int>(state.range(0))),
                WorkbookKind::Transient);
}
BENCHMARK(transient_batch)->Arg(2000)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace zel::excel_batch
