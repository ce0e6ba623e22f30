#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "excel_batch/batch_run.h"
#include "excel_batch/template_design.h"
#include "fakes/memory_workbook.h"
#include "fakes/scripted_dialogs.h"
#include "fakes/steady_cases.h"
#include "fakes/tb601_cases.h"
#include "platform/errors.h"
#include "workflow/run/steady_run.h"

namespace zel::excel_batch {

/// Records what a run shows, and may stop it.
class RecordingObserver : public BatchObserver {
public:
    void status(const std::string& line) override { statuses.push_back(line); }
    void percent(double percent) override { percents.push_back(percent); }
    void active_rows(const std::string& line) override { statuses.push_back(line); }
    void time_suffix(std::string_view text) override { suffix = text; }
    bool cancelled() override { return ++rows == stop_after; }

    std::vector<std::string> statuses;
    std::vector<double> percents;
    std::string suffix;
    int rows = 0;
    int stop_after = -1;
};

/// Where a field stands in the steady workbooks: row of `fixed_input`, column of the rows.
struct SteadyPlace {
    Entry CalcCase::*field;
    int fixed_row;
    int column;
};

inline constexpr SteadyPlace line_places[] = {
    {&CalcCase::Hoehe_ueber_NN_db, 19, 4},
    {&CalcCase::Winkel_S_S_db, 20, 5},
    {&CalcCase::geogr_Breite_db, 21, 6},
    {&CalcCase::geo_laeng_db, 22, 7},
    {&CalcCase::geo_laeng_zeit_db, 23, 8},
    {&CalcCase::Windgeschwindigkeit_db, 25, 10},
    {&CalcCase::Winkel_W_S_db, 26, 11},
    {&CalcCase::Umgebungstemperatur_db, 27, 12},
    {&CalcCase::Bodentemp_db, 28, 13},
    {&CalcCase::Bodenart_db, 29, 14},
    {&CalcCase::Globalstrahlung_db, 30, 15},
    {&CalcCase::Bewoelkungsgrad_db, 31, 16},
    {&CalcCase::Tag_db, 33, 18},
    {&CalcCase::Monat_db, 34, 19},
    {&CalcCase::Stunden_db, 35, 20},
    {&CalcCase::Minuten_db, 36, 21},
    {&CalcCase::Feldlaenge_db, 38, 23},
    {&CalcCase::Hoehendifferenz_db, 39, 24},
    {&CalcCase::Netzfrequenz_db, 40, 25},
    {&CalcCase::Emissionsverhaeltnis_db, 41, 26},
    {&CalcCase::Absorptionsverhaeltnis_db, 42, 27},
};

inline constexpr SteadyPlace conductor_places[] = {
    {&CalcCase::Seildurchmesser_db, 57, 40},
    {&CalcCase::GMR_db, 59, 42},
    {&CalcCase::DCR_20_db, 62, 45},
    {&CalcCase::DrahtdurchmesserLeiter_db, 77, 59},
    {&CalcCase::Mantelquerschnitt_db, 79, 61},
    {&CalcCase::DC_Resist_Leiter_db, 83, 71},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_linear_db, 84, 63},
    {&CalcCase::T_Koeff_DC_Resist_Leiter_quadrat_db, 85, 64},
    {&CalcCase::DC_Resist_traeger_db, 86, 65},
    {&CalcCase::KernquerschnittTraeger_db, 87, 66},
    {&CalcCase::KerndurchmesserTraeger_db, 88, 67},
    {&CalcCase::radialthermalconductivity_unter_KPT_db, 97, 68},
    {&CalcCase::KniepunktTemperatur_db, 98, 69},
    {&CalcCase::radialthermalconductivity_ueber_KPT_db, 99, 70},
};

struct CodePlace {
    std::int16_t CalcCase::*field;
    int fixed_row;
    int column;
};

inline constexpr CodePlace code_places[] = {
    {&CalcCase::conductor_type_db, 54, 38},       {&CalcCase::conductor_shape_db, 55, 39},
    {&CalcCase::GMR_Merker_db, 58, 41},           {&CalcCase::ACDC_R_Option_Merker_db, 61, 44},
    {&CalcCase::DrahtlagenzahlLeiter_db, 78, 60}, {&CalcCase::DrahtzahlTraeger_db, 80, 62},
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

/// A workbook in memory, filled cell by cell, and runs of it.
struct BatchOfRows {
    static constexpr const char* path = "/data/a.xlsx";

    MemorySheets& workbook() { return store.files[path]; }
    MemorySheet& fixed() { return workbook()["fixed_input"]; }
    MemorySheet& rows() { return workbook()["variable_input_result"]; }
    void set_fixed(int row, double value) { fixed()[{row, 3}] = value; }
    void set_fixed_text(int row, const char* text) { fixed()[{row, 3}] = std::string(text); }

    void start(WorkbookKind kind) {
        kind_ = kind;
        workbook() = cells_of(template_design(kind, lang, std::nullopt));
    }

    /// A steady workbook with the methods, the line and the conductor of `c`, and no rows.
    void start_steady(WorkbookKind kind, const CalcCase& c) {
        start(kind);
        set_fixed(5, c.rechnung_cigre601_merker_db);
        set_fixed(6, c.rechnung_cigre207_merker_db);
        set_fixed(7, c.rechnung_TBB_merker_db);
        set_fixed(8, c.rechnung_kirn_merker_db);
        set_fixed(9, c.rechnung_webs_merker_db);
        set_fixed(11, c.Formel_merker1_db);
        set_fixed(12, c.wzsz_merker_db);
        for (const auto& [field, row, column] : line_places) set_fixed(row, (c.*field).value);
        set_fixed(43, c.Anzahl_Teilleiter_db);
        set_fixed(44, 500);
        set_fixed(46, 80);
        set_fixed(47, 1);
        if (kind == WorkbookKind::SteadyVar) return;
        for (const auto& [field, row, column] : conductor_places) set_fixed(row, (c.*field).value);
        for (const auto& [field, row, column] : code_places) set_fixed(row, c.*field);
    }

    /// An active row with the line, the currents and the mode of `c`, and its conductor where rows
    /// have one.
    void add_row(const CalcCase& c) {
        const int row = next_row++;
        const auto set = [&](int column, double value) { rows()[{row, column}] = value; };
        set(2, 1);
        for (const auto& [field, fixed_row, column] : line_places) set(column, (c.*field).value);
        set(28, c.Anzahl_Teilleiter_db);
        const bool bundle = c.Stromstaerke_Buendel.given();
        const int single_column = kind_ == WorkbookKind::SteadyVar ? 29 : 30;
        const int bundle_column = kind_ == WorkbookKind::SteadyVar ? 30 : 29;
        if (bundle)
            set(bundle_column, c.Stromstaerke_Buendel.value);
        else
            set(single_column, c.Stromstaerke_db.given() ? c.Stromstaerke_db.value : 1);
        set(31, c.Leitertemp_db.value);
        set(32, c.Leitertemp_Merker_db ? 1 : 2);
        if (kind_ != WorkbookKind::SteadyVar) return;
        for (const auto& [field, fixed_row, column] : conductor_places)
            set(column, (c.*field).value);
        for (const auto& [field, fixed_row, column] : code_places) set(column, c.*field);
        for (int column = 46; column <= 58; ++column) set(column, 0);
    }

    BatchResult run() {
        const Session session = {lang, DecimalSeparator::Point, mode, dialogs};
        BatchJob job = {store, path, session, observer};
        job.preset = preset;
        job.data_folder = "/data";
        job.real_path = path;
        job.Excel_Leiterdaten_Merker = kind_ == WorkbookKind::SteadyVar ? 1 : 2;
        job.Excel_Zelle_Array_Schreiben_Merker = by_cell ? 1 : 2;
        job.threads = threads;
        return run_batch(job);
    }

    /// The boxes of a run that is refused with nothing saved.
    std::vector<Box> refusal() {
        const int saved = store.saved;
        dialogs.shown.clear();
        const BatchResult result = run();
        EXPECT_EQ(result.end, BatchEnd::Refused);
        EXPECT_FALSE(result.saved);
        EXPECT_EQ(store.saved, saved);
        return dialogs.shown;
    }

    /// The text of a result cell after a run.
    std::string result(int row, int column) { return text_of(rows(), row, column); }

    MemoryWorkbookStore store;
    ScriptedDialogs dialogs;
    RecordingObserver observer;
    LangId lang = LangId::English;
    RunMode mode = RunMode::Messages;
    CalcCase preset;
    bool by_cell = false;
    unsigned threads = 2;
    int next_row = 5;

private:
    WorkbookKind kind_ = WorkbookKind::SteadyFix;
};

class Batch : public testing::Test, public BatchOfRows {};

}  // namespace zel::excel_batch
