#include <functional>

#include "excel_batch/batch_frame.h"
#include "excel_batch/batch_texts.h"
#include "excel_batch/missing_data.h"
#include "excel_batch/workbook_input.h"
#include "platform/arithmetic_fault.h"
#include "platform/errors.h"
#include "workflow/rules/derived.h"
#include "workflow/run/notes.h"

namespace zel::excel_batch {
namespace {

// Long enough for all processors, short enough to stop at once.
constexpr std::size_t rows_of_a_block = 256;

/// A conductor, and what is not read from a workbook.
CalcCase start_case(const CalcCase& preset) {
    CalcCase c = preset;
    for (const Method method : all_methods) c.*flag_of(method) = 0;
    return c;
}

/// `S_00_io_excel_gesamt_rahmen_stat`.
class SteadySteps : public BatchSteps {
public:
    explicit SteadySteps(const BatchJob& job)
        : job_(job),
          kind_(job.Excel_Leiterdaten_Merker == 1 ? WorkbookKind::SteadyVar
                                                  : WorkbookKind::SteadyFix),
          fixed_(start_case(job.preset)) {}

    [[nodiscard]] std::string_view procedure() const override {
        return "S_00_io_excel_gesamt_rahmen_stat";
    }
    void read_fixed_input(Workbook& workbook, CellReading& reading) override {
        S_02_io_excel_Fixed_input_einlesen_pruefen_stat(workbook, kind_, job_.session.lang, fixed_,
                                                        reading);
    }
    PassEnd work(Workbook& workbook, const SheetOrigin& origin, BatchResult& result) override {
        const auto rows =
            kind_ == WorkbookKind::SteadyFix
                ? &SteadySteps::
                      S_03_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_rechnen_ausgeben_stat
                : &SteadySteps::
                      S_03_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_rechnen_ausgeben_stat_var_seildaten;
        return (this->*rows)(workbook, origin, result);
    }
    [[nodiscard]] bool keeps_rows_before(PassEnd end) const override {
        return end == PassEnd::Stopped;
    }

private:
    /// All rows have the conductor of the first sheet.
    PassEnd S_03_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_rechnen_ausgeben_stat(
        Workbook& workbook, const SheetOrigin& origin, BatchResult& result) const {
        return rated_rows(workbook, origin, result, [this](int /*row*/) {
            return missing_conductor_data(fixed_, kind_, 0, job_.session.lang);
        });
    }

    /// Each row has a conductor of its own.
    PassEnd
    S_03_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_rechnen_ausgeben_stat_var_seildaten(
        Workbook& workbook, const SheetOrigin& origin, BatchResult& result) const {
        return rated_rows(workbook, origin, result, [&](int row) {
            return missing_conductor_data(with_conductor_of(workbook, row, fixed_), kind_, row,
                                          job_.session.lang);
        });
    }

    /// What `missing_data` finds in a row is told of the first row that is concerned.
    PassEnd rated_rows(Workbook& workbook, const SheetOrigin& origin, BatchResult& result,
                       const std::function<std::vector<Box>(int row)>& missing_data) const {
        workbook.require_single_cells(result_area(kind_));
        workbook.clear(result_area(kind_));
        RowWork work = {row_of(kind_).first_row, steady_columns(kind_), rows_of_a_block};
        work.seen = [&, warned = false](int row) mutable {
            if (warned) return;
            const auto boxes = missing_data(row);
            tell(job_.session, boxes);
            warned = kind_ == WorkbookKind::SteadyFix || !boxes.empty();
        };
        work.check = [this](const RowTexts& row, CellReading& reading) {
            CalcCase c = fixed_;
            take_row(row, kind_, c, reading);
        };
        work.calculate = [this](const RowTexts& row, CellReading& reading, RowOutcome& outcome) {
            CalcCase c = fixed_;
            take_row(row, kind_, c, reading);
            if (reading.sound()) run_methods(c, outcome);
        };
        return work_rows(job_, origin, workbook, work, result);
    }

    void run_methods(CalcCase& c, RowOutcome& outcome) const {
        const ArithmeticScope arithmetic;
        const double angle = computed(S_Winkel_Wind_Leiter(c));
        S_Stromstaerke_buendel(c, DecimalSeparator::Comma);
        const bool sound = arithmetic.fault() == ArithmeticFault::None;
        const Session session = silent(job_.session);
        std::vector<SteadyResult> results;
        for (const ResultColumns& columns : steady_results) {
            if (!is_selected(c, columns.method)) continue;
            results.push_back(sound ? find_method(columns.method)->run(c, angle, session)
                                    : SteadyResult{std::string(failed_result), {}, {}, {}, {}});
            add(columns, c, results.back(), outcome);
        }
        if (sound) outcome.notes = remarkable(c, results);
    }

    /// Webs and Kirn have no status text: where they fail their cell stays empty.
    void add(const ResultColumns& columns, const CalcCase& c, const SteadyResult& method,
             RowOutcome& row) const {
        const bool current_sought = c.Leitertemp_Merker_db;
        const int column = current_sought ? columns.current(kind_) : columns.temperature(kind_);
        std::optional<double> value;
        if (method.sound())
            value = current_sought
                        ? rounded(*method.current_A * c.Anzahl_Teilleiter_db, current_mask)
                        : rounded(*method.temperature_C, temperature_mask);
        if (value) {
            row.cells.push_back({column, value});
            return;
        }
        ++row.errors;
        if (columns.method != Method::Kirn && columns.method != Method::Webs)
            row.cells.push_back({column, std::nullopt, failed_result});
    }

    const BatchJob& job_;
    WorkbookKind kind_;
    CalcCase fixed_;
};

}  // namespace

std::unique_ptr<BatchSteps> steady_steps(const BatchJob& job) {
    return std::make_unique<SteadySteps>(job);
}

}  // namespace zel::excel_batch
