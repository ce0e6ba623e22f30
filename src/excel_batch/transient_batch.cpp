#include <array>
#include <functional>
#include <utility>

#include "excel_batch/batch_frame.h"
#include "excel_batch/batch_texts.h"
#include "excel_batch/missing_data.h"
#include "excel_batch/workbook_input.h"
#include "platform/errors.h"
#include "workflow/run/notes.h"
#include "workflow/run/tatl.h"

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
        : percents_(percents), c_(c), rating_(c, seconds, job.session) {}

    void rate(RowOutcome& row) {
        const SteadyResult steady = rating_.permanent();
        if (!steady.sound()) return fail(row, patl_column, failed_result);
        row.notes = remarkable(c_, {&steady, 1});
        const double PATL_Strom = *steady.current_A;
        add(row, patl_column, PATL_Strom, patl_mask);
        for (std::size_t n = 0; n < percents_.size(); ++n)
            rate_preload(patl_column + 1 + static_cast<int>(n), PATL_Strom,
                         PATL_Strom * percents_[n] / 100, row);
    }

private:
    void rate_preload(int column, double PATL_Strom, double preload, RowOutcome& row) {
        const Tatl tatl = rating_.after(preload, PATL_Strom);
        switch (tatl.end) {
            case TatlEnd::Found:
                return add(row, column, static_cast<double>(tatl.value), tatl_mask);
            case TatlEnd::BelowPreload: return fail(row, column, failure_text(tatl.value));
            case TatlEnd::SteadyFailed:
            case TatlEnd::SearchFailed: return fail(row, column, failed_result);
        }
    }

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
    TatlRating rating_;
};

/// `S_100_io_excel_gesamt_rahmen_transient`; its rows are, cell by cell or as an array, those of
/// `S_103_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_rechnen_ausgeben_transient_Zelle`
/// and `S_103_io_excel_Eingabe_variabel_horizontal_einlesen_pruefen_transient_Array`.
class TransientSteps : public BatchSteps {
public:
    explicit TransientSteps(const BatchJob& job)
        : job_(job), as_array_(job.Excel_Zelle_Array_Schreiben_Merker != 1), fixed_{job.preset} {}

    [[nodiscard]] std::string_view procedure() const override {
        return "S_100_io_excel_gesamt_rahmen_transient";
    }
    void read_fixed_input(Workbook& workbook, CellReading& reading) override {
        S_102_io_excel_Fixed_input_einlesen_pruefen_transient(workbook, lang(), fixed_, reading);
    }
    PassEnd work(Workbook& workbook, const SheetOrigin& origin, BatchResult& result) override {
        job_.observer.time_suffix(as_array_ ? " (Array)" : " (row by by)");
        write_headers(workbook);
        return as_array_
                   ? S_1032_io_excel_rechnen_Array_einschreiben_Excel_Ausgabe_Strom_Temp_transient(
                         workbook, origin, result)
                   : rows(workbook, origin, result, [this](int active) {
                         warn_of_missing_data(active);
                         return PassEnd::Done;
                     });
    }
    [[nodiscard]] bool keeps_rows_before(PassEnd end) const override {
        return !as_array_ && end != PassEnd::Refused;
    }

private:
    static constexpr int first_row = row_of(WorkbookKind::Transient).first_row;

    /// All rows are checked before the first is calculated, which is done as cell by cell.
    PassEnd S_1032_io_excel_rechnen_Array_einschreiben_Excel_Ausgabe_Strom_Temp_transient(
        Workbook& workbook, const SheetOrigin& origin, BatchResult& result) const {
        return rows(workbook, origin, result, [&](int active) {
            if (active > array_rows) {
                job_.session.tell(box_in(lang(), array_too_small,
                                         {std::to_string(array_rows), std::to_string(active)}));
                return PassEnd::Refused;
            }
            warn_of_missing_data(active);
            return check_all(active, workbook, origin);
        });
    }

    PassEnd rows(Workbook& workbook, const SheetOrigin& origin, BatchResult& result,
                 std::function<PassEnd(int active)> prepare) const {
        RowWork work = {first_row, transient_columns(), rows_of_a_block};
        work.prepare = std::move(prepare);
        work.check = [this](const RowTexts& row, CellReading& reading) {
            CalcCase c = fixed_.c;
            (void)take(row, c, reading);
        };
        work.calculate = [this](const RowTexts& row, CellReading& reading, RowOutcome& outcome) {
            CalcCase c = fixed_.c;
            const double seconds = take(row, c, reading);
            if (reading.sound()) RatedRow(job_, fixed_.percents, c, seconds).rate(outcome);
        };
        return work_rows(job_, origin, workbook, work, result);
    }

    [[nodiscard]] LangId lang() const { return job_.session.lang; }

    void write_headers(Workbook& workbook) const {
        const CellArea results = result_area(WorkbookKind::Transient);
        workbook.require_single_cells(results);
        workbook.clear({header_row, patl_column + 1, header_row, results.last_column});
        workbook.clear(results);
        int column = patl_column;
        for (const std::string& percent : fixed_.percent_texts)
            workbook.set_text(header_row, ++column, fill(tatl_header.in(lang()), {percent}));
    }

    void warn_of_missing_data(int active) const {
        if (active > 0)
            tell(job_.session,
                 missing_conductor_data(fixed_.c, WorkbookKind::Transient, 0, lang()));
    }

    /// Takes a row into a case of its own; gives the time of the TATL in s.
    double take(const RowTexts& row, CalcCase& c, CellReading& reading) const {
        return take_transient_row(row, as_array_ ? time_limits : time_limits_by_cell, c, reading);
    }

    /// All rows before the first is calculated. What is wrong behind a wrong one is listed.
    PassEnd check_all(int active, Workbook& workbook, const SheetOrigin& origin) const {
        PassEnd end = PassEnd::Done;
        std::size_t listed = 0;
        for (int row = first_row; row < first_row + active && listed < most_listed; ++row) {
            CalcCase c = fixed_.c;
            CellReading reading(origin);
            take(row_texts(workbook, transient_columns(), row), c, reading);
            if (end == PassEnd::Done)
                tell(job_, reading.refusals());
            else
                list(job_, reading.refusals());
            listed += reading.refusals().size();
            if (!reading.sound()) end = PassEnd::Wrong;
        }
        return end;
    }

    const BatchJob& job_;
    bool as_array_;
    TransientFixed fixed_;
};

}  // namespace

std::unique_ptr<BatchSteps> transient_steps(const BatchJob& job) {
    return std::make_unique<TransientSteps>(job);
}

}  // namespace zel::excel_batch
