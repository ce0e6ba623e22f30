#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "excel_batch/batch_run.h"
#include "excel_batch/input_cells.h"
#include "excel_batch/template_design.h"
#include "fakes/memory_workbook.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "fakes/transient_cases.h"
#include "platform/errors.h"

namespace zel::excel_batch {

/// Records what a run shows, and may stop it.
class RecordingObserver : public BatchObserver {
public:
    void status(const std::string& line) override { statuses.push_back(line); }
    void percent(double percent) override { percents.push_back(percent); }
    void active_rows(const std::string& line) override { statuses.push_back(line); }
    void time_suffix(std::string_view text) override { suffix = text; }
    void rows_done(int done, int /*active*/) override { most_done = done; }
    void wrong_cell(const WrongCell& cell) override { wrong_cells.push_back(cell); }
    bool cancelled() override { return ++rows == stop_after; }

    std::vector<std::string> statuses;
    std::vector<double> percents;
    std::string suffix;
    std::vector<WrongCell> wrong_cells;
    int most_done = -1;
    int rows = 0;
    int stop_after = -1;
};

/// A line that TB 601, TB 207, Webs and Kirn rate.
inline CalcCase line_of_all_methods() {
    CalcCase c = sunny_264_34();
    c.Winkel_S_S_db = typed(0);
    static_cast<ConductorData&>(c) = line_264_34();
    c.ACDC_R_Option_Merker_db = resistance_by_formula;
    c.rechnung_cigre601_merker_db = 1;
    c.rechnung_webs_merker_db = 1;
    c.rechnung_kirn_merker_db = 1;
    return c;
}

/// The cells of a new workbook.
inline MemorySheets cells_of(const WorkbookDesign& design) {
    MemorySheets sheets;
    for (const SheetDesign& sheet : design) {
        MemorySheet& cells = sheets[sheet.name];
        for (const auto& [row, column, content, look] : sheet.cells) {
            if (const auto* number = std::get_if<double>(&content)) cells[{row, column}] = *number;
            if (const auto* text = std::get_if<std::string>(&content)) cells[{row, column}] = *text;
        }
    }
    return sheets;
}

/// A workbook in memory, filled from a case, and runs of it.
struct BatchOfRows {
    static constexpr const char* path = "/data/a.xlsx";

    MemorySheets& workbook() { return store.files[path]; }
    MemorySheet& fixed() { return workbook()[std::string(fixed_sheet)]; }
    MemorySheet& rows() { return workbook()[std::string(rows_sheet)]; }
    void set_fixed(int row, double value) { fixed()[{row, input_column}] = value; }

    /// A workbook with the methods, the line and the conductor of `c`, and no rows.
    void start(WorkbookKind wanted, const CalcCase& c) {
        kind = wanted;
        next_row = row_of(kind).first_row;
        workbook() = cells_of(template_design(kind, LangId::English, std::nullopt));
        const auto set = [&](std::span<const InputCell> cells) {
            for (const InputCell& cell : cells) set_fixed(cell.fixed_row, number_of(c, cell.field));
        };
        if (kind == WorkbookKind::Transient) {
            set(transient_fixed_cells());
            for (int n = 0; n < 3; ++n) set_fixed(first_percent_row + n, 30 * (n + 1));
            return;
        }
        for (const auto& choices : {method_cells(), formula_cells()})
            for (const ChoiceCell& cell : choices) set_fixed(cell.row, c.*cell.field);
        set(line_cells());
        set_fixed(44, 500);
        set_fixed(46, 80);
        set_fixed(47, 1);
        if (kind == WorkbookKind::SteadyFix) set(conductor_cells());
    }

    /// An active row with the line, the currents and the mode of `c`, and its conductor where rows
    /// have one.
    void add_row(const CalcCase& c) {
        const auto set = [&](int column, double value) { rows()[{next_row, column}] = value; };
        set(flag_column, 1);
        for (const InputCell& cell : line_cells()) set(cell.column, number_of(c, cell.field));
        const bool bundle = c.Stromstaerke_Buendel.given();
        const double current = c.Stromstaerke_db.given() ? c.Stromstaerke_db.value : 1;
        set((kind == WorkbookKind::SteadyVar) == bundle ? 30 : 29,
            bundle ? c.Stromstaerke_Buendel.value : current);
        set(31, c.Leitertemp_db.value);
        set(mode_column, c.Leitertemp_Merker_db ? 1 : 2);
        if (kind == WorkbookKind::SteadyVar)
            for (const InputCell& cell : conductor_cells())
                set(cell.column, number_of(c, cell.field));
        ++next_row;
    }

    /// A row of a transient workbook: wind (m/s) at `angle` to the conductor, time (s), limit (°C).
    void add_weather(double wind, double angle, double ambient, double seconds, double limit = 80) {
        int column = 3;
        rows()[{next_row, flag_column}] = 1.0;
        for (const double value : {wind, angle, 0.6, 0.6, ambient, 900.0, limit, seconds})
            rows()[{next_row, ++column}] = value;
        ++next_row;
    }

    BatchResult run() { return run(store); }
    BatchResult run(WorkbookStore& from) {
        const Session session = {lang, DecimalSeparator::Point, mode, dialogs};
        BatchJob job = {from, path, session, observer};
        job.preset = preset;
        job.data_folder = "/data";
        job.real_path = path;
        job.Excel_Leiterdaten_Merker = kind == WorkbookKind::SteadyVar ? 1 : 2;
        job.Excel_Zelle_Array_Schreiben_Merker = by_cell ? 1 : 2;
        job.threads = threads;
        return run_batch(job);
    }

    /// The text of a result cell after a run.
    std::string result(int row, int column) { return text_of(rows(), row, column); }

    static double number_of(const CalcCase& c, const FieldKey& field) {
        if (const auto* entry = std::get_if<Entry CalcCase::*>(&field)) return (c.*(*entry)).value;
        return c.*std::get<std::int16_t CalcCase::*>(field);
    }

    MemoryWorkbookStore store;
    ScriptedDialogs dialogs;
    RecordingObserver observer;
    LangId lang = LangId::English;
    RunMode mode = RunMode::Messages;
    CalcCase preset;
    bool by_cell = false;
    unsigned threads = 2;
    int next_row = 0;
    WorkbookKind kind = WorkbookKind::SteadyFix;
};

class Batch : public testing::Test, public BatchOfRows {};

}  // namespace zel::excel_batch
