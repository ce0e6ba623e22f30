#include "excel_batch/batch_rows.h"

#include <algorithm>
#include <cmath>

#include "excel_batch/batch_texts.h"
#include "platform/errors.h"
#include "platform/side_by_side.h"
#include "platform/text/number_text.h"

namespace zel::excel_batch {
namespace {

/// Steps in which the percentage of `active` rows is shown.
double percent_step(int active) {
    if (active <= 100) return 10;
    if (active <= 1000) return 1;
    if (active <= 10000) return 0.1;
    return 0.01;
}

/// Shows how many of the active rows are done, in steps.
class Percentage {
public:
    explicit Percentage(const BatchJob& job, int active)
        : observer_(job.observer), active_(active), step_(percent_step(active)) {}

    void show(int done) {
        // What was shown for opening the workbook stays until the rows have caught up.
        constexpr double of_opening = 4;
        constexpr double of_the_end = 99;
        const double exact = active_ == 0 ? 0 : 100.0 * done / active_;
        // A step is reached where only rounding is missing.
        const double shown =
            std::clamp(std::floor(exact / step_ + 1e-9) * step_, of_opening, of_the_end);
        if (shown <= shown_) return;
        shown_ = shown;
        observer_.percent(shown);
    }

private:
    BatchObserver& observer_;
    int active_;
    double step_;
    double shown_ = 4;
};

/// A row of the next block, with its flag.
struct FlaggedRow {
    int row;
    bool active;
    std::size_t slot;
};

class Passes {
public:
    Passes(const BatchJob& job, const SheetOrigin& origin, Workbook& workbook, const RowWork& work,
           BatchResult& result)
        : job_(job), origin_(origin), workbook_(workbook), work_(work), result_(result) {}

    PassEnd run() {
        const auto active = count_active_rows();
        if (!active) return PassEnd::Refused;
        const LangId lang = job_.session.lang;
        result_.to_calculate = *active;
        job_.observer.rows_done(0, *active);
        job_.observer.active_rows(fill(active_rows_line.in(lang), {std::to_string(*active)}));
        PassEnd end = work_.prepare ? work_.prepare(*active) : PassEnd::Done;
        if (end == PassEnd::Done) end = walk(*active);
        if (end == PassEnd::Wrong) job_.session.tell(box_in(lang, row_refused, {rows_sheet}));
        return end;
    }

private:
    std::optional<int> count_active_rows() {
        CellReading flags(origin_);
        int active = 0;
        for (int row = work_.first_row; row < limit_; ++row) {
            const CellText flag = flag_of(row);
            if (flag.text.empty()) break;
            if (!flags.take_choice(flag, {"1"}, flags_of_first_pass)) break;
            ++active;
            if (work_.seen) work_.seen(row);
        }
        tell(job_, flags.refusals());
        return flags.sound() ? std::optional(active) : std::nullopt;
    }

    PassEnd walk(int active) {
        Percentage percentage(job_, active);
        std::vector<RowTexts> texts(work_.block);
        std::vector<RowOutcome> outcomes(work_.block);
        int row = work_.first_row;
        while (!ended_ && row < limit_) {
            CellReading flags(origin_);
            const std::vector<FlaggedRow> block = read_block(row, flags, texts);
            const auto active_rows = std::count_if(block.begin(), block.end(),
                                                   [](const FlaggedRow& r) { return r.active; });
            side_by_side(static_cast<std::size_t>(active_rows), job_.threads,
                         [&](std::size_t slot) { outcomes[slot] = calculated(texts[slot]); });
            for (const auto& [number, is_active, slot] : block) {
                if (is_active) {
                    if (!take(number, outcomes[slot])) {
                        list_rest(number + 1);
                        return PassEnd::Wrong;
                    }
                    percentage.show(++result_.active);
                    job_.observer.rows_done(result_.active, active);
                } else {
                    ++result_.inactive;
                }
                ++result_.rows;
                if (job_.observer.cancelled()) return PassEnd::Stopped;
            }
            tell(job_, flags.refusals());
            if (!flags.sound()) return PassEnd::Wrong;
        }
        if (!ended_) tell_rows_beyond();
        return PassEnd::Done;
    }

    /// The rows from `row` on, which moves behind them, with the texts of the active ones.
    std::vector<FlaggedRow> read_block(int& row, CellReading& flags, std::vector<RowTexts>& texts) {
        std::vector<FlaggedRow> block;
        for (std::size_t slot = 0; row < limit_ && slot < work_.block; ++row) {
            const CellText flag = flag_of(row);
            ended_ =
                flag.text.empty() || !flags.take_choice(flag, {"1", "2"}, flags_of_second_pass);
            if (ended_) break;
            const bool active = flag.text == "1";
            block.push_back({row, active, slot});
            if (active) texts[slot++] = row_texts(workbook_, work_.columns, row);
        }
        return block;
    }

    [[nodiscard]] RowOutcome calculated(const RowTexts& texts) const {
        RowOutcome outcome;
        CellReading reading(origin_);
        try {
            work_.calculate(texts, reading, outcome);
        } catch (const ProgramEnd& end) {
            outcome.program_end = end.what();
        }
        outcome.refusals = reading.take_refusals();
        return outcome;
    }

    /// Writes the results of a row, unless it is wrong.
    bool take(int row, const RowOutcome& outcome) {
        if (!outcome.program_end.empty())
            throw ProgramEnd(std::string(origin_.sheet) + ", row " + std::to_string(row) + ": " +
                             outcome.program_end);
        tell(job_, outcome.refusals);
        if (!outcome.refusals.empty()) return false;
        for (const auto& [column, number, text] : outcome.cells) {
            if (number)
                workbook_.set_number(row, column, *number);
            else
                workbook_.set_text(row, column, text);
        }
        result_.errors += outcome.errors;
        for (const std::string_view code : outcome.notes) count_note(code, row);
        return true;
    }

    /// What is wrong in the rows from `row` on.
    void list_rest(int row) {
        std::size_t listed = 0;
        CellReading flags(origin_);
        for (; row < limit_ && listed < most_listed && !job_.observer.cancelled(); ++row) {
            const CellText flag = flag_of(row);
            if (flag.text.empty()) break;
            if (!flags.take_choice(flag, {"1", "2"}, flags_of_second_pass)) break;
            if (flag.text != "1") continue;
            CellReading reading(origin_);
            work_.check(row_texts(workbook_, work_.columns, row), reading);
            list(job_, reading.refusals());
            listed += reading.refusals().size();
        }
        list(job_, flags.refusals());
    }

    void count_note(std::string_view code, int row) {
        const auto known = std::find_if(result_.notes.begin(), result_.notes.end(),
                                        [&](const BatchNote& note) { return note.code == code; });
        if (known == result_.notes.end())
            result_.notes.push_back({code, 1, row});
        else
            ++known->rows;
    }

    /// Rows behind the limit are left out, but not in silence.
    void tell_rows_beyond() {
        if (flag_of(limit_).text.empty()) return;
        job_.session.tell(box_in(job_.session.lang, rows_beyond_limit,
                                 {std::to_string(row_limit), std::to_string(limit_)}));
    }

    CellText flag_of(int row) { return {row, flag_column, workbook_.text(row, flag_column)}; }

    const BatchJob& job_;
    const SheetOrigin& origin_;
    Workbook& workbook_;
    const RowWork& work_;
    BatchResult& result_;
    const int limit_ = work_.first_row + row_limit;
    bool ended_ = false;  // by an empty flag or a wrong one
};

}  // namespace

void tell(const Session& session, const std::vector<Box>& boxes) {
    for (const Box& box : boxes) session.tell(box);
}

void list(const BatchJob& job, const std::vector<WrongCell>& cells) {
    for (const WrongCell& cell : cells) job.observer.wrong_cell(cell);
}

void tell(const BatchJob& job, const std::vector<WrongCell>& cells) {
    list(job, cells);
    if (job.session.Meldung_merker != RunMode::Messages) return;
    for (const WrongCell& cell : cells)
        if (job.session.dialogs.show_before_others(cell.box)) return;
}

std::optional<double> rounded(double value, std::string_view mask) {
    return parse_number(masked(value, mask, DecimalSeparator::Point), DecimalSeparator::Point);
}

PassEnd work_rows(const BatchJob& job, const SheetOrigin& origin, Workbook& workbook,
                  const RowWork& work, BatchResult& result) {
    return Passes(job, origin, workbook, work, result).run();
}

}  // namespace zel::excel_batch
