#include <array>
#include <memory>

#include "excel_batch/batch_frame.h"
#include "excel_batch/batch_texts.h"
#include "excel_batch/missing_data.h"
#include "excel_batch/transient_input.h"
#include "platform/errors.h"
#include "tb601_transient/transient/transient_excel.h"
#include "workflow/rules/derived.h"
#include "workflow/run/steady_methods.h"

namespace zel::excel_batch {
namespace {

// A row with many preloads takes a tenth of a second.
constexpr std::size_t rows_of_a_block = 8;
constexpr int array_rows = 2000;

constexpr BoxText array_too_small = {Icon::Stop,
                                     short_name,
                                     {"Die Übertragung als Array ist auf {0} Zeilen begrenzt,\n"
                                      "die Arbeitsmappe enthält {1} aktive Zeilen.\n"
                                      "Bitte wählen Sie die Übertragung Zeile pro Zeile.",
                                      "The transfer as an array is limited to {0} lines,\n"
                                      "the workbook has {1} active lines.\n"
                                      "Please choose the transfer line per line."}};

constexpr Text tatl_header = {"TATL after {0}% PATL Preload", "TATL after {0}% PATL Preload"};

/// The wording of the codes that the search leaves in place of a current.
std::string_view failure_text(float code) {
    constexpr std::array<std::string_view, 4> texts = {"Error 1", "Error 2", "Error 3", "Error 4"};
    for (std::size_t i = 0; i < texts.size(); ++i)
        if (code == static_cast<float>(i + 1)) return texts[i];
    return "Error x";
}

/// `S_1032_io_excel_Berechnung_u_Ausgabe_Strom_Temp_transient_Zelle`: PATL and TATL of one row,
/// whose case is complete.
class RatedRow {
public:
    RatedRow(const BatchJob& job, const std::vector<double>& percents, CalcCase& c, double seconds)
        : percents_(percents),
          c_(c),
          seconds_(static_cast<float>(seconds)),
          mass_(conductor_mass(c)),
          heat_option_(job.session.cigre_TKW_merker),
          angle_(S_Winkel_Wind_Leiter(c)),
          silent_(silent(job.session, &memory_)) {}

    void rate(RowOutcome& row) {
        c_.Leitertemp_Merker_db = true;
        c_.Stromstaerke_Merker_db = false;
        const MethodOutcome steady = run_steady();
        if (!steady.sound()) return fail(row, patl_column, failed_result);
        const double PATL_Strom = *steady.current_A;
        add(row, patl_column, PATL_Strom, patl_mask);
        for (std::size_t n = 0; n < percents_.size(); ++n)
            rate_preload(n, PATL_Strom, PATL_Strom * percents_[n] / 100, row);
    }

private:
    /// The current after the `n`th preload (A) that brings the conductor to the limit in time.
    void rate_preload(std::size_t n, double PATL_Strom, double preload, RowOutcome& row) {
        const int column = patl_column + 1 + static_cast<int>(n);
        c_.Leitertemp_Merker_db = false;
        c_.Stromstaerke_Merker_db = true;
        c_.Stromstaerke_db.value = preload;
        const MethodOutcome steady = run_steady();
        if (!steady.sound()) return fail(row, column, failed_result);
        const auto search = TS_S01_CigreTB601_temp_strom_transient_state_Excel(
            {seconds_, *steady.temperature_C, static_cast<float>(c_.Leitertemp_db.value),
             static_cast<float>(PATL_Strom), static_cast<std::int16_t>(n), mass_, heat_option_},
            memory_.tb601, slots_);
        if (!search.error_text.empty()) return fail(row, column, failed_result);
        const float TATL = slots_[n];
        // A failure is told from a current by its size alone.
        if (static_cast<double>(TATL * 1.005F) < preload)
            return fail(row, column, failure_text(TATL));
        add(row, column, static_cast<double>(TATL), tatl_mask);
    }

    MethodOutcome run_steady() { return find_method(Method::TB601)->run(c_, angle_, silent_); }

    void add(RowOutcome& row, int column, double current, std::string_view mask) const {
        if (const auto number = rounded(current * c_.Anzahl_Teilleiter_db, mask))
            row.cells.push_back({column, number});
        else
            fail(row, column, failed_result);
    }

    static void fail(RowOutcome& row, int column, std::string_view text) {
        ++row.errors;
        row.cells.push_back({column, std::nullopt, text});
    }

    const std::vector<double>& percents_;
    CalcCase& c_;
    float seconds_;
    ConductorMass mass_;
    HeatCapacityOption heat_option_;
    double angle_;
    MethodMemory memory_;  // the search goes on from the records of the steady run
    TransientSlots slots_{};
    Session silent_;
};

/// The rows of a transient workbook, cell by cell or as an array:
/// `S_103_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_rechnen_ausgeben_transient_Zelle`
/// and `S_103_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_transient_Array`.
class TransientRows {
public:
    TransientRows(const BatchJob& job, const TransientFixed& fixed, Workbook& workbook,
                  const SheetOrigin& origin)
        : job_(job),
          fixed_(fixed),
          workbook_(workbook),
          origin_(origin),
          as_array_(is_array_form(job)) {}

    static bool is_array_form(const BatchJob& job) {
        return job.Excel_Zelle_Array_Schreiben_Merker != 1;
    }

    PassEnd work(BatchResult& result) {
        job_.observer.time_suffix(as_array_ ? " (Array)" : " (row by by)");
        write_headers();
        CellReading flags(origin_);
        const int active = count_active_rows(workbook_, first_row, flags, [](int) {});
        for (const Box& box : flags.refusals()) tell(box);
        if (!flags.sound()) return PassEnd::Refused;
        job_.observer.active_rows(fill(active_rows_line.in(lang()), {std::to_string(active)}));
        if (as_array_ && active > array_rows) {
            tell(box_in(lang(), array_too_small,
                        {std::to_string(array_rows), std::to_string(active)}));
            return PassEnd::Refused;
        }
        if (active > 0)
            for (const Box& box :
                 missing_conductor_data(fixed_.c, WorkbookKind::Transient, 0, lang()))
                tell(box);
        const PassEnd end = as_array_ && !check_all(active) ? PassEnd::Wrong : walk(active, result);
        if (end == PassEnd::Wrong) tell(box_in(lang(), row_refused, {rows_sheet}));
        return end;
    }

private:
    static constexpr int first_row = row_of(WorkbookKind::Transient).first_row;

    [[nodiscard]] LangId lang() const { return job_.session.lang; }
    void tell(const Box& box) const { job_.session.tell(box); }
    [[nodiscard]] const Limits& limits_of_time() const {
        return as_array_ ? time_limits : time_limits_by_cell;
    }

    void write_headers() {
        const CellArea results = result_area(WorkbookKind::Transient);
        workbook_.clear({header_row, patl_column + 1, header_row, results.last_column});
        workbook_.clear(results);
        int column = patl_column;
        for (const std::string& percent : fixed_.percent_texts)
            workbook_.set_text(header_row, ++column, fill(tatl_header.in(lang()), {percent}));
    }

    /// Takes a row into a case of its own; gives the time of the TATL in s.
    double take(const TransientRowTexts& texts, CalcCase& c, CellReading& reading) const {
        return take_transient_row(texts, limits_of_time(), c, reading);
    }

    /// All rows before the first is calculated; false where one was refused.
    bool check_all(int active) {
        for (int row = first_row; row < first_row + active; ++row) {
            CalcCase c = fixed_.c;
            CellReading reading(origin_);
            take(transient_row_texts(workbook_, row), c, reading);
            for (const Box& box : reading.refusals()) tell(box);
            if (!reading.sound()) return false;
        }
        return true;
    }

    [[nodiscard]] RowOutcome calculate(const TransientRowTexts& texts) const {
        RowOutcome outcome;
        CalcCase c = fixed_.c;
        CellReading reading(origin_);
        const double seconds = take(texts, c, reading);
        if (!reading.sound()) {
            outcome.refusals = reading.take_refusals();
            return outcome;
        }
        try {
            RatedRow(job_, fixed_.percents, c, seconds).rate(outcome);
        } catch (const ProgramEnd& end) {
            outcome.program_end = end.what();
        }
        return outcome;
    }

    PassEnd walk(int active, BatchResult& result) {
        std::vector<TransientRowTexts> texts(rows_of_a_block);
        return walk_rows(
            job_, origin_, workbook_, first_row, active,
            {[&](std::size_t slot, int row) { texts[slot] = transient_row_texts(workbook_, row); },
             [&](std::size_t slot) { return calculate(texts[slot]); },
             [&](int row, const RowOutcome& outcome) { write(workbook_, row, outcome.cells); },
             rows_of_a_block},
            result);
    }

    const BatchJob& job_;
    const TransientFixed& fixed_;
    Workbook& workbook_;
    const SheetOrigin& origin_;
    bool as_array_;
};

}  // namespace

BatchSteps transient_steps(const BatchJob& job) {
    const auto fixed = std::make_shared<TransientFixed>(TransientFixed{job.preset, {}, {}});
    const bool as_array = TransientRows::is_array_form(job);
    return {"S_100_io_excel_gesamt_rahmen_transient",
            [&job, fixed](Workbook& workbook, CellReading& reading) {
                S_102_io_excel_Fixed_input_einlesen_pruefen_transient(workbook, job.session.lang,
                                                                      *fixed, reading);
            },
            [&job, fixed](Workbook& workbook, const SheetOrigin& origin, BatchResult& result) {
                return TransientRows(job, *fixed, workbook, origin).work(result);
            },
            !as_array, !as_array};
}

}  // namespace zel::excel_batch
