#include <memory>

#include "excel_batch/batch_frame.h"
#include "excel_batch/batch_texts.h"
#include "excel_batch/missing_data.h"
#include "excel_batch/steady_input.h"
#include "platform/arithmetic_fault.h"
#include "platform/errors.h"
#include "workflow/rules/derived.h"

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

/// One row as it is calculated, beside others.
class SteadyRow {
public:
    SteadyRow(const BatchJob& job, WorkbookKind kind, const CalcCase& fixed,
              const SheetOrigin& origin)
        : job_(job), kind_(kind), fixed_(fixed), origin_(origin) {}

    [[nodiscard]] RowOutcome calculate(const RowTexts& row) const {
        RowOutcome outcome;
        CalcCase c = fixed_;
        CellReading reading(origin_);
        take_row(row, kind_, c, reading);
        if (!reading.sound()) {
            outcome.refusals = reading.take_refusals();
            return outcome;
        }
        try {
            run_methods(c, outcome);
        } catch (const ProgramEnd& end) {
            outcome.program_end = end.what();
        }
        return outcome;
    }

private:
    void run_methods(CalcCase& c, RowOutcome& outcome) const {
        const ArithmeticScope arithmetic;
        const double angle = computed(S_Winkel_Wind_Leiter(c));
        S_Stromstaerke_buendel(c, DecimalSeparator::Comma);
        const bool sound = arithmetic.fault() == ArithmeticFault::None;
        const Session session = silent(job_.session);
        for (const ResultColumns& columns : steady_results)
            if (is_selected(c, columns.method))
                add(columns, c,
                    sound ? find_method(columns.method)->run(c, angle, session)
                          : MethodOutcome{std::string(failed_result), {}, {}, {}, {}},
                    outcome);
    }

    /// Webs and Kirn have no status text: where they fail their cell stays empty.
    void add(const ResultColumns& columns, const CalcCase& c, const MethodOutcome& method,
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
    const CalcCase& fixed_;
    const SheetOrigin& origin_;
};

/// The rows of a steady workbook:
/// `S_03_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_rechnen_ausgeben_stat`, and
/// `..._stat_var_seildaten` with conductor columns.
class SteadyRows {
public:
    SteadyRows(const BatchJob& job, WorkbookKind kind, const CalcCase& fixed, Workbook& workbook,
               const SheetOrigin& origin)
        : job_(job), kind_(kind), fixed_(fixed), workbook_(workbook), origin_(origin) {}

    PassEnd work(BatchResult& result) {
        workbook_.clear(result_area(kind_));
        CellReading flags(origin_);
        const int first_row = row_of(kind_).first_row;
        const int active = count_active_rows(workbook_, first_row, flags,
                                             [this](int row) { warn_of_missing_data(row); });
        for (const Box& box : flags.refusals()) job_.session.tell(box);
        if (!flags.sound()) return PassEnd::Refused;
        job_.observer.active_rows(
            fill(active_rows_line.in(job_.session.lang), {std::to_string(active)}));
        return walk(first_row, active, result);
    }

private:
    PassEnd walk(int first_row, int active, BatchResult& result) {
        const SteadyRow one(job_, kind_, fixed_, origin_);
        std::vector<RowTexts> texts(rows_of_a_block);
        const PassEnd end = walk_rows(
            job_, origin_, workbook_, first_row, active,
            {[&](std::size_t slot, int row) { texts[slot] = row_texts(workbook_, kind_, row); },
             [&](std::size_t slot) { return one.calculate(texts[slot]); },
             [&](int row, const RowOutcome& outcome) { write(workbook_, row, outcome.cells); },
             rows_of_a_block},
            result);
        if (end == PassEnd::Wrong)
            job_.session.tell(box_in(job_.session.lang, row_refused, {rows_sheet}));
        return end;
    }

    /// Told once, of the first row that is concerned.
    void warn_of_missing_data(int row) {
        if (warned_) return;
        const LangId lang = job_.session.lang;
        const auto boxes = kind_ == WorkbookKind::SteadyFix
                               ? missing_conductor_data(fixed_, kind_, 0, lang)
                               : missing_conductor_data(with_conductor_of(workbook_, row, fixed_),
                                                        kind_, row, lang);
        warned_ = kind_ == WorkbookKind::SteadyFix || !boxes.empty();
        for (const Box& box : boxes) job_.session.tell(box);
    }

    const BatchJob& job_;
    WorkbookKind kind_;
    const CalcCase& fixed_;
    Workbook& workbook_;
    const SheetOrigin& origin_;
    bool warned_ = false;
};

}  // namespace

BatchSteps steady_steps(const BatchJob& job) {
    const WorkbookKind kind =
        job.Excel_Leiterdaten_Merker == 1 ? WorkbookKind::SteadyVar : WorkbookKind::SteadyFix;
    const auto fixed = std::make_shared<CalcCase>(start_case(job.preset));
    return {
        "S_00_io_excel_gesamt_rahmen_stat",
        [&job, kind, fixed](Workbook& workbook, CellReading& reading) {
            S_02_io_excel_Fixed_input_einlesen_pruefen_stat(workbook, kind, job.session.lang,
                                                            *fixed, reading);
        },
        [&job, kind, fixed](Workbook& workbook, const SheetOrigin& origin, BatchResult& result) {
            return SteadyRows(job, kind, *fixed, workbook, origin).work(result);
        }};
}

}  // namespace zel::excel_batch
