#include <random>

#include "excel_batch/batch_fixture.h"
#include "excel_batch/batch_rows.h"
#include "excel_batch/batch_texts.h"
#include "workflow/run/steady_run.h"

namespace zel::excel_batch {
namespace {

using testing::HasSubstr;

class SteadyBatch : public Batch {};

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
    if (c.conductor_type_db == tubular_busbar) c.Anzahl_Teilleiter_db = 1;
    c.Leitertemp_Merker_db = random() % 2 == 0;
    c.Stromstaerke_Merker_db = !c.Leitertemp_Merker_db;
    c.Stromstaerkebuendel_Merker_db = random() % 2 == 0;
    c.Stromstaerke_db = {};
    c.Stromstaerke_Buendel = {};
    (c.Stromstaerkebuendel_Merker_db ? c.Stromstaerke_Buendel : c.Stromstaerke_db) =
        one_of(100, 3000, 1);
    return c;
}

CalcCase tube_of_the_busbar_method() {
    CalcCase tube = line_of_all_methods();
    for (const Method method : all_methods) tube.*flag_of(method) = 0;
    tube.rechnung_TBB_merker_db = 1;
    tube.conductor_type_db = tubular_busbar;
    tube.conductor_shape_db = 2;
    tube.Seildurchmesser_db = typed(120);
    tube.DrahtdurchmesserLeiter_db = typed(8);
    return tube;
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
    CalcCase other_choices = line_of_all_methods();
    other_choices.Formel_merker1_db = 1;
    other_choices.wzsz_merker_db = 1;
    std::mt19937 random(7);
    for (const CalcCase& line : {line_of_all_methods(), other_choices, tube_of_the_busbar_method()})
        for (const WorkbookKind wanted : {WorkbookKind::SteadyFix, WorkbookKind::SteadyVar}) {
            start(wanted, line);
            std::vector<CalcCase> cases;
            for (int i = 0; i < 60; ++i) add_row(cases.emplace_back(any_row(line, random)));
            const BatchResult result = run();
            ASSERT_EQ(result.end, BatchEnd::Done);
            int errors = 0;
            for (std::size_t i = 0; i < cases.size(); ++i) {
                RecordingDialogs unheard;
                const SteadyRunResult page = RunSteady(
                    cases[i], {LangId::English, DecimalSeparator::Comma, RunMode::Silent, unheard});
                ASSERT_TRUE(page.input_valid);
                const int row = static_cast<int>(i) + 5;
                for (const ResultColumns& columns : steady_results) {
                    int column = columns.current(kind);
                    int other = columns.temperature(kind);
                    if (!cases[i].Leitertemp_Merker_db) std::swap(column, other);
                    EXPECT_EQ(this->result(row, column), shown_by_page(page, columns.method))
                        << row << " " << key_of(columns.method);
                    EXPECT_EQ(this->result(row, other), "");
                }
                for (const MethodResult& line_of_page : page.methods)
                    errors += line_of_page.outcome.sound() ? 0 : 1;
            }
            EXPECT_EQ(result.errors, errors);
        }
}

TEST_F(SteadyBatch, results_do_not_depend_on_the_number_of_threads) {
    std::mt19937 random(3);
    start(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 300; ++i) add_row(any_row(line_of_all_methods(), random));
    const MemorySheets before = workbook();
    threads = 1;
    ASSERT_TRUE(run().saved);
    const MemorySheets alone = std::exchange(workbook(), before);
    threads = 4;
    ASSERT_TRUE(run().saved);
    EXPECT_EQ(workbook(), alone);
    EXPECT_NE(workbook(), before);
}

TEST_F(SteadyBatch, cells_that_no_method_reads_may_hold_anything) {
    const CalcCase tube = tube_of_the_busbar_method();
    start(WorkbookKind::SteadyFix, tube);
    fixed().erase({61, 3});  // read for TB 601 only, as the others
    for (const int row : {97, 98, 99}) fixed()[{row, 3}] = std::string("none");
    EXPECT_EQ(run().end, BatchEnd::Done);
}

TEST_F(SteadyBatch, a_failing_save_comes_through) {
    start(WorkbookKind::SteadyFix, line_of_all_methods());
    store.at_save = [] { throw OutputError("/data/a.xlsx: No space left on device"); };
    EXPECT_THROW((void)run(), OutputError);
}

TEST_F(SteadyBatch, wrong_cells_are_all_listed_even_where_the_user_leaves_their_boxes) {
    for (const bool leaves : {false, true}) {
        dialogs = {};
        observer = {};
        dialogs.leaves_chains = leaves;
        start(WorkbookKind::SteadyFix, line_of_all_methods());
        set_fixed(19, 5000);
        fixed()[{46, 3}] = std::string("80.5");
        const BatchResult result = run();
        EXPECT_EQ(dialogs.shown.size(), leaves ? 2U : 3U)
            << "the last tells that the run has ended";
        EXPECT_EQ(cells_text(observer.wrong_cells, LangId::English),
                  "fixed_input\tC19\t5000\tMaximum value for altitude is 4500 m above sea level ! "
                  "Minimum value for altitude is 0 m above sea level !\n"
                  "fixed_input\tC46\t80.5\tno correct input\n");
        EXPECT_EQ(end_line(result, LangId::English),
                  "Nothing was saved, the workbook is unchanged.");
    }
}

TEST_F(SteadyBatch, wrong_cells_behind_the_first_wrong_row_are_listed_without_boxes) {
    start(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 4; ++i) add_row(line_of_all_methods());
    for (const auto& [row, column] : {std::pair{5, 4}, {6, 4}, {6, 10}, {8, 12}})
        rows()[{row, column}] = std::string("x");
    EXPECT_FALSE(run().saved);
    std::vector<std::string> cells;
    for (const WrongCell& cell : observer.wrong_cells) cells.push_back(cell.name());
    EXPECT_EQ(joined(cells, " "), "D5 D6 J6 L8");
    EXPECT_EQ(dialogs.shown.size(), 3U) << "one cell, the row, the run";
}

TEST_F(SteadyBatch, the_end_line_counts_the_rows_that_stand_in_the_workbook) {
    start(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 5; ++i) add_row(line_of_all_methods());
    observer.stop_after = 2;
    EXPECT_EQ(end_line(run(), LangId::English), "2 of 5 active rows are calculated and saved.");
    EXPECT_EQ(observer.most_done, 2);
}

TEST_F(SteadyBatch, merged_cells_are_refused_in_the_result_area_alone) {
    for (const auto& [wanted, last_input, first_result] :
         {std::tuple{WorkbookKind::SteadyFix, 33, 34}, {WorkbookKind::SteadyVar, 71, 72}}) {
        start(wanted, line_of_all_methods());
        store.merged = {{2, 1, 4, 81}, {5, 2, 100004, last_input}};
        EXPECT_NO_THROW((void)run());
        store.merged = {{100004, last_input, 100005, first_result}};
        EXPECT_THROW((void)run(), WorkbookError);
    }
}

TEST_F(SteadyBatch, a_row_that_ends_the_program_is_named) {
    CalcCase c = line_of_all_methods();
    start(WorkbookKind::SteadyVar, c);
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

TEST_F(SteadyBatch, the_shipped_templates_are_refused_whatever_the_case) {
    start(WorkbookKind::SteadyFix, line_of_all_methods());
    const std::string name = "Template_calc_h_german_80.xlsx";
    store.files["/elsewhere/" + name] = workbook();
    const Session session = {lang, DecimalSeparator::Point, mode, dialogs};
    for (const auto& [there, end] : {std::pair{"/data/" + name, BatchEnd::Refused},
                                     {"/DATA/template_CALC_h_german_80.XLSX", BatchEnd::Refused},
                                     {"/elsewhere/" + name, BatchEnd::Done}}) {
        dialogs.shown.clear();
        BatchJob job = {store, there, session, observer};
        job.data_folder = "/data";
        job.real_path = job.path;
        EXPECT_EQ(run_batch(job).end, end) << there;
        if (end == BatchEnd::Done) continue;
        ASSERT_EQ(dialogs.shown.size(), 1U);
        EXPECT_EQ(joined(dialogs.shown[0].lines, "\n"),
                  "The file name:\n" + there.substr(6) +
                      "\nis used in this directory.\nYou are not allowed to create another\n"
                      "excel workbook with this name ! \nPlease correct your input !");
    }
}

/// Opens the workbook of a memory store as another kind of it.
template <class Kind>
class StoreOf : public WorkbookStore {
public:
    explicit StoreOf(MemoryWorkbookStore& memory) : memory_(memory) {}
    std::unique_ptr<Workbook> open(const std::string& name) override {
        return std::make_unique<Kind>(memory_, name);
    }
    void create(const std::string& path, const WorkbookDesign& design,
                const std::string& title) override {
        memory_.create(path, design, title);
    }

private:
    MemoryWorkbookStore& memory_;
};

/// A flag that changes between the passes, as a formula of the hour may.
class Changing : public MemoryWorkbook {
public:
    using MemoryWorkbook::MemoryWorkbook;
    std::string text(int row, int column) override {
        std::string text = MemoryWorkbook::text(row, column);
        if (row != 6 || column != 2 || text.empty()) return text;
        return ++asked_ == 1 ? "1" : text;
    }

private:
    int asked_ = 0;
};

TEST_F(SteadyBatch, in_the_second_pass_a_row_may_be_inactive) {
    start(WorkbookKind::SteadyFix, line_of_all_methods());
    for (int i = 0; i < 3; ++i) add_row(line_of_all_methods());
    StoreOf<Changing> changing(store);
    rows()[{6, 2}] = 2.0;
    const BatchResult inactive = run(changing);
    EXPECT_EQ(inactive.end, BatchEnd::Done);
    EXPECT_EQ(inactive.rows, 3);
    EXPECT_EQ(inactive.active, 2);
    EXPECT_EQ(inactive.inactive, 1);
    rows()[{6, 2}] = 3.0;
    EXPECT_EQ(run(changing).end, BatchEnd::Refused);
    ASSERT_FALSE(dialogs.shown.empty());
    EXPECT_EQ(dialogs.shown[0].lines.back(),
              "permissible input values: 1 = active / 2 = inaktive / empty = end of calculation");
}

/// As many rows as are asked for, each active.
class Endless : public MemoryWorkbook {
public:
    using MemoryWorkbook::MemoryWorkbook;
    std::string text(int row, int /*column*/) override { return row <= last ? "1" : ""; }
    int last = 0;
};

TEST_F(SteadyBatch, percents_go_in_steps_and_rows_beyond_the_limit_are_told) {
    start(WorkbookKind::SteadyFix, line_of_all_methods());
    const Session session = {lang, DecimalSeparator::Point, mode, dialogs};
    const BatchJob job = {store, path, session, observer};
    Endless workbook(store, path);
    RowWork work = {5};
    work.calculate = [](const RowTexts&, CellReading&, RowOutcome&) {};
    // Steps of 10, 1, 0.1 and 0.01 % from 4 to 99 %.
    for (const auto& [active, shown] : {std::pair{100, 10U},
                                        {101, 95U},
                                        {1000, 95U},
                                        {1001, 950U},
                                        {10000, 950U},
                                        {10001, 9500U},
                                        {100000, 9500U},
                                        {100001, 9500U}}) {
        observer = {};
        workbook.last = active + 4;
        BatchResult result;
        EXPECT_TRUE(dialogs.shown.empty());
        EXPECT_EQ(work_rows(job, {"a.xlsx", rows_sheet}, workbook, work, result), PassEnd::Done);
        EXPECT_EQ(result.rows, std::min(active, 100000));
        EXPECT_EQ(observer.percents.size(), shown) << active;
    }
    ASSERT_EQ(dialogs.shown.size(), 1U);
    EXPECT_EQ(joined(dialogs.shown[0].lines, "\n"),
              "No more than 100000 rows can be calculated.\n"
              "Row 100005 and those behind it were not calculated.");
}

TEST(BatchTexts, the_elapsed_time_has_hours_minutes_and_seconds) {
    EXPECT_EQ(duration_text(7), "0 h 00 min 07 sec");
    EXPECT_EQ(duration_text(3723.4), "1 h 02 min 03 sec");
}

}  // namespace
}  // namespace zel::excel_batch
