#include <random>

#include "excel_batch/batch_fixture.h"
#include "excel_batch/batch_texts.h"
#include "platform/errors.h"

namespace zel::excel_batch {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class SteadyBatch : public Batch {};

struct ResultPlace {
    Method method;
    int fix;
    int var;
};

constexpr ResultPlace result_places[] = {
    {Method::TB601, 34, 72}, {Method::TB207, 36, 74}, {Method::Kirn, 38, 76},
    {Method::Webs, 40, 78},  {Method::TBB, 42, 80},
};

/// A row of any weather in either mode, with the current given in either way.
CalcCase any_row(const CalcCase& line, std::mt19937& random) {
    // As a person would type it: few digits, so that the cell holds the same number.
    const auto one_of = [&](int low, int high, double unit) {
        return typed(std::uniform_int_distribution<int>(low, high)(random) * unit);
    };
    CalcCase c = line;
    c.Windgeschwindigkeit_db = one_of(0, 100, 0.125);
    c.Winkel_W_S_db = one_of(0, 360, 1);
    c.Winkel_S_S_db = one_of(0, 360, 1);
    c.Umgebungstemperatur_db = one_of(-20, 45, 1);
    c.Globalstrahlung_db = one_of(0, 1370, 1);
    c.Emissionsverhaeltnis_db = one_of(3, 9, 0.1);
    c.Leitertemp_db = one_of(50, 150, 1);
    c.Anzahl_Teilleiter_db = static_cast<std::int16_t>(1 + random() % 4);
    c.Leitertemp_Merker_db = random() % 2 == 0;
    c.Stromstaerke_Merker_db = !c.Leitertemp_Merker_db;
    c.Stromstaerkebuendel_Merker_db = random() % 2 == 0;
    c.Stromstaerke_db = {};
    c.Stromstaerke_Buendel = {};
    (c.Stromstaerkebuendel_Merker_db ? c.Stromstaerke_Buendel : c.Stromstaerke_db) =
        one_of(100, 3000, 1);
    return c;
}

/// What the result page shows of a method, without the unit.
std::string shown_by_page(const SteadyRunResult& page, Method method) {
    for (const MethodResult& line : page.methods)
        if (line.method == method) {
            std::string text = line.result.substr(0, line.result.find_last_of(' '));
            if (line.result == " Error") return "Error";
            if (text.ends_with(",0")) text.resize(text.size() - 2);
            return text;
        }
    return {};
}

TEST_F(SteadyBatch, every_row_has_the_results_of_the_result_page) {
    for (const WorkbookKind kind : {WorkbookKind::SteadyFix, WorkbookKind::SteadyVar}) {
        const CalcCase line = line_of_all_methods();
        start_steady(kind, line);
        next_row = 5;
        std::mt19937 random(7);
        std::vector<CalcCase> cases;
        for (int i = 0; i < 300; ++i) add_row(cases.emplace_back(any_row(line, random)));
        const BatchResult result = run();
        ASSERT_EQ(result.end, BatchEnd::Done);
        EXPECT_EQ(result.rows, 300);
        EXPECT_EQ(result.active, 300);
        int errors = 0;
        RecordingDialogs unheard;
        for (std::size_t i = 0; i < cases.size(); ++i) {
            const SteadyRunResult page = RunSteady(
                cases[i], {LangId::English, DecimalSeparator::Comma, RunMode::Silent, unheard});
            ASSERT_TRUE(page.input_valid);
            for (const auto& [method, fix, var] : result_places) {
                const int column = kind == WorkbookKind::SteadyVar ? var : fix;
                const int other = cases[i].Leitertemp_Merker_db ? column + 1 : column;
                const std::string expected = shown_by_page(page, method);
                const int row = static_cast<int>(i) + 5;
                EXPECT_EQ(this->result(row, cases[i].Leitertemp_Merker_db ? column : column + 1),
                          expected)
                    << row << " " << key_of(method);
                EXPECT_EQ(this->result(row, other), "");
            }
            for (const MethodResult& line_of_page : page.methods)
                errors += line_of_page.outcome.sound() ? 0 : 1;
        }
        EXPECT_EQ(result.errors, errors);
    }
}

TEST_F(SteadyBatch, results_do_not_depend_on_the_number_of_threads) {
    const CalcCase line = line_of_all_methods();
    start_steady(WorkbookKind::SteadyFix, line);
    std::mt19937 random(3);
    for (int i = 0; i < 700; ++i) add_row(any_row(line, random));
    const MemorySheets before = workbook();
    threads = 1;
    ASSERT_TRUE(run().saved);
    const MemorySheets alone = workbook();
    workbook() = before;
    threads = 4;
    ASSERT_TRUE(run().saved);
    EXPECT_EQ(workbook(), alone);
    EXPECT_NE(workbook(), before);
}

TEST_F(SteadyBatch, old_results_go_and_other_cells_stay) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    set_fixed(8, 0);
    CalcCase row = line_of_all_methods();
    add_row(row);
    rows()[{5, 38}] = 1.0;     // of Kirn, which is not active now
    rows()[{2000, 43}] = 1.0;  // far below
    rows()[{5, 33}] = std::string("mine");
    rows()[{5, 44}] = std::string("mine");
    rows()[{4, 34}] = std::string("head");
    ASSERT_EQ(run().end, BatchEnd::Done);
    EXPECT_EQ(result(5, 38), "");
    EXPECT_EQ(result(2000, 43), "");
    EXPECT_EQ(result(5, 33), "mine");
    EXPECT_EQ(result(5, 44), "mine");
    EXPECT_EQ(result(4, 34), "head");
    EXPECT_EQ(result(5, 34), "1300");
}

TEST_F(SteadyBatch, a_row_takes_nothing_of_the_fixed_line) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    add_row(line_of_all_methods());
    rows().erase({5, 10});
    const auto boxes = refusal();
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_THAT(boxes[0].lines, testing::Contains("in column 10 / row 5 ."));
}

TEST_F(SteadyBatch, a_method_without_solution_shows_error_and_counts) {
    CalcCase line = line_of_all_methods();
    start_steady(WorkbookKind::SteadyFix, line);
    line.Leitertemp_db = typed(20);  // below the ambient temperature, in strong sun
    add_row(line);
    add_row(line_of_all_methods());
    const BatchResult result = run();
    EXPECT_EQ(result.end, BatchEnd::Done);
    EXPECT_TRUE(result.saved);
    EXPECT_EQ(result.errors, 2);
    EXPECT_EQ(this->result(5, 34), "Error");
    EXPECT_EQ(this->result(5, 36), "Error");
    EXPECT_EQ(this->result(6, 34), "1300");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SteadyBatch, a_numeric_fault_leaves_the_cell_of_Kirn_empty_and_counts) {
    CalcCase line = line_of_all_methods();
    start_steady(WorkbookKind::SteadyFix, line);
    line.Emissionsverhaeltnis_db = typed(0.9);  // divides by 0.9 less the emissivity
    add_row(line);
    const BatchResult result = run();
    EXPECT_EQ(result.errors, 1);
    EXPECT_EQ(this->result(5, 38), "");
    EXPECT_NE(this->result(5, 40), "");
}

TEST_F(SteadyBatch, a_tube_is_rated_by_the_busbar_method) {
    CalcCase tube = line_of_all_methods();
    for (const Method method : all_methods) tube.*flag_of(method) = 0;
    tube.rechnung_TBB_merker_db = 1;
    tube.conductor_type_db = tubular_busbar;
    tube.conductor_shape_db = 2;
    tube.Seildurchmesser_db = typed(120);
    tube.DrahtdurchmesserLeiter_db = typed(8);
    start_steady(WorkbookKind::SteadyFix, tube);
    fixed().erase({61, 3});  // and 97 to 99 are read for TB 601 only
    for (const int row : {97, 98, 99}) set_fixed_text(row, "none");
    tube.Anzahl_Teilleiter_db = 1;
    add_row(tube);
    ASSERT_EQ(run().end, BatchEnd::Done);
    RecordingDialogs unheard;
    const SteadyRunResult page =
        RunSteady(tube, {LangId::English, DecimalSeparator::Comma, RunMode::Silent, unheard});
    EXPECT_EQ(result(5, 42), shown_by_page(page, Method::TBB));
    for (int column = 34; column < 42; ++column) EXPECT_EQ(result(5, column), "");
}

TEST_F(SteadyBatch, without_methods_nothing_is_written) {
    CalcCase none = line_of_all_methods();
    for (const Method method : all_methods) none.*flag_of(method) = 0;
    start_steady(WorkbookKind::SteadyFix, none);
    add_row(none);
    const BatchResult result = run();
    EXPECT_EQ(result.end, BatchEnd::Done);
    EXPECT_EQ(result.active, 1);
    EXPECT_EQ(result.errors, 0);
    for (int column = 34; column <= 43; ++column) EXPECT_EQ(this->result(5, column), "");
}

TEST_F(SteadyBatch, an_empty_first_flag_ends_with_no_rows) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    const BatchResult result = run();
    EXPECT_EQ(result.end, BatchEnd::Done);
    EXPECT_TRUE(result.saved);
    EXPECT_EQ(result.rows, 0);
    EXPECT_THAT(observer.statuses, testing::Contains("number of active calculation rows: 0"));
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(SteadyBatch, the_run_is_shown_step_by_step) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 4; ++i) add_row(line_of_all_methods());
    const BatchResult result = run();
    EXPECT_THAT(observer.statuses,
                ElementsAre("Excel workbook: a.xlsxwill be opened.",
                            "Calculation excel sheet    fixed_input   in progress... ",
                            "Calculation of excel sheetfixed_inputhas finished.",
                            "number of active calculation rows: 4",
                            "Calculation of worksheet   variable_input_result   is finished."));
    EXPECT_THAT(observer.percents, ElementsAre(1, 2, 3, 4, 20, 50, 70, 99, 99, 100));
    EXPECT_EQ(joined(result.summary, "|"),
              "4 data sets with  4 active data sets |and 0 inactive data sets|calculated.|"
              "The results can be viewed now with Excel within the file: a.xlsx   |"
              "in worksheet:   variable_input_result");
    lang = LangId::German;
    observer.statuses.clear();
    EXPECT_EQ(joined(run().summary, "|"),
              "Es wurden insgesamt   4 Datensätze verarbeitet| davon 4 aktive Datensätze |"
              "sowie 0 inaktive Datensätze.|Die rückgeschriebenen Berechnungsergebnisse können nun "
              "mit Excel in der Arbeitsmappe: a.xlsx   |"
              "im Arbeitsblatt:   variable_input_result   eingesehen werden.");
    EXPECT_THAT(observer.statuses,
                ElementsAre("Arbeitsmappe:a.xlsxwird geöffnet.",
                            "Arbeitsblatt   fixed_input   wird bearbeitet",
                            "Bearbeitung Arbeitsblatt fixed_input ist abgeschlossen.",
                            "Anzahl aktiver Berechnungszeilen: 4",
                            "Bearbeitung Arbeitsblatt   variable_input_result   ist "
                            "abgeschlossen."));
}

TEST_F(SteadyBatch, a_stop_keeps_the_rows_up_to_it) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 5; ++i) add_row(line_of_all_methods());
    observer.stop_after = 2;
    const BatchResult result = run();
    EXPECT_EQ(result.end, BatchEnd::Stopped);
    EXPECT_TRUE(result.saved);
    EXPECT_EQ(result.active, 2);
    EXPECT_EQ(this->result(6, 34), "1300");
    EXPECT_EQ(this->result(7, 34), "");
}

TEST_F(SteadyBatch, a_wrong_row_saves_nothing_of_the_rows_before_it) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 3; ++i) add_row(line_of_all_methods());
    rows()[{7, 12}] = std::string("20.5");
    const auto boxes = refusal();
    ASSERT_EQ(boxes.size(), 3U);
    EXPECT_EQ(result(5, 34), "");
    EXPECT_THAT(observer.percents.back(), 0);
}

TEST_F(SteadyBatch, a_failing_save_comes_through) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    store.at_save = [] { throw OutputError("/data/a.xlsx: No space left on device"); };
    EXPECT_THROW((void)run(), OutputError);
}

TEST_F(SteadyBatch, a_row_that_ends_the_program_is_named) {
    CalcCase c = line_of_all_methods();
    start_steady(WorkbookKind::SteadyVar, c);
    add_row(c);
    c.Seildurchmesser_db = typed(1e-6);
    add_row(c);
    try {
        (void)run();
        FAIL();
    } catch (const ProgramEnd& end) {
        EXPECT_STREQ(end.what(), "variable_input_result, row 6: Webs: Reynolds number below 0.1");
    }
    EXPECT_EQ(store.saved, 0);
}

TEST(BatchTexts, the_elapsed_time_has_hours_minutes_and_seconds) {
    EXPECT_EQ(duration_text(7), "0 h 00 min 07 sec");
    EXPECT_EQ(duration_text(3723.4), "1 h 02 min 03 sec");
}

TEST_F(SteadyBatch, silent_runs_show_no_box) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    set_fixed(19, 5000);
    mode = RunMode::Silent;
    EXPECT_THAT(refusal(), IsEmpty());
}

TEST_F(SteadyBatch, the_choices_of_the_workbook_hold) {
    const CalcCase line = line_of_all_methods();
    start_steady(WorkbookKind::SteadyFix, line);
    add_row(line);
    (void)run();
    const std::string by_Kiessling = result(5, 40);
    set_fixed(11, 1);
    (void)run();
    CalcCase c = line;
    c.Formel_merker1_db = 1;
    RecordingDialogs unheard;
    const SteadyRunResult page =
        RunSteady(c, {LangId::English, DecimalSeparator::Comma, RunMode::Silent, unheard});
    EXPECT_EQ(result(5, 40), shown_by_page(page, Method::Webs));
    EXPECT_NE(result(5, 40), by_Kiessling);
}

// Older workbooks have no cells for three fields of the conductor.

TEST_F(SteadyBatch, fields_without_a_cell_are_those_of_the_preset_conductor) {
    const CalcCase line = line_of_all_methods();
    for (const WorkbookKind kind : {WorkbookKind::SteadyFix, WorkbookKind::SteadyVar}) {
        start_steady(kind, line);
        next_row = 5;
        add_row(line);
        for (const int row : {77, 83, 88}) fixed().erase({row, 3});
        for (const int column : {59, 67, 71}) rows().erase({5, column});
        preset = line;
        dialogs.shown.clear();
        ASSERT_EQ(run().end, BatchEnd::Done);
        EXPECT_THAT(dialogs.shown, IsEmpty());
        EXPECT_EQ(result(5, kind == WorkbookKind::SteadyFix ? 34 : 72), "1300");
        preset = {};
        (void)run();
        ASSERT_EQ(dialogs.shown.size(), 3U);
        EXPECT_EQ(dialogs.shown[0].icon, Icon::Warning);
        const std::string text = joined(dialogs.shown[0].lines, "\n");
        EXPECT_THAT(text, HasSubstr("Wire diameter"));
        EXPECT_THAT(text, HasSubstr("Cigre TB 601, Cigre TB 207"));
        EXPECT_THAT(text, HasSubstr(kind == WorkbookKind::SteadyFix
                                        ? "cell C77 of worksheet fixed_input"
                                        : "column 59 of worksheet variable_input_result"));
        EXPECT_THAT(joined(dialogs.shown[1].lines, "\n"), HasSubstr("Cigre TB 601, Webs"));
        EXPECT_EQ(result(5, kind == WorkbookKind::SteadyFix ? 34 : 72), "Error");
    }
}

TEST_F(SteadyBatch, other_conductor_data_do_not_come_from_the_preset) {
    start_steady(WorkbookKind::SteadyFix, line_of_all_methods());
    preset = line_of_all_methods();
    fixed().erase({57, 3});
    EXPECT_THAT(refusal()[0].lines, testing::Contains("in column 3 / row 57 ."));
}

/// Every row is as the first one, without end.
class EndlessWorkbook : public MemoryWorkbook {
public:
    using MemoryWorkbook::MemoryWorkbook;
    void select(std::string_view sheet) override {
        repeats_ = sheet == rows_sheet;
        MemoryWorkbook::select(sheet);
    }
    std::string text(int row, int column) override {
        return MemoryWorkbook::text(repeats_ ? std::min(row, 5) : row, column);
    }

private:
    bool repeats_ = false;
};

class EndlessStore : public WorkbookStore {
public:
    explicit EndlessStore(MemoryWorkbookStore& store) : store_(store) {}
    std::unique_ptr<Workbook> open(const std::string& path) override {
        return std::make_unique<EndlessWorkbook>(store_, path);
    }

private:
    MemoryWorkbookStore& store_;
};

TEST_F(SteadyBatch, rows_beyond_the_limit_are_told) {
    CalcCase none = line_of_all_methods();
    for (const Method method : all_methods) none.*flag_of(method) = 0;
    start_steady(WorkbookKind::SteadyFix, none);
    add_row(none);
    EndlessStore endless(store);
    const Session session = {lang, DecimalSeparator::Point, mode, dialogs};
    const BatchResult result = run_batch({endless, path, session, observer});
    EXPECT_EQ(result.end, BatchEnd::Done);
    EXPECT_EQ(result.rows, 100000);
    ASSERT_EQ(dialogs.shown.size(), 1U);
    EXPECT_THAT(joined(dialogs.shown[0].lines, " "), HasSubstr("Row 100005 and those behind it"));
    // From 4 % to 99 % in steps of a hundredth.
    EXPECT_GT(observer.percents.size(), 9000U);
}

}  // namespace
}  // namespace zel::excel_batch
