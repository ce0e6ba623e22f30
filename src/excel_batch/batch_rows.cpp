#include "excel_batch/batch_rows.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <exception>
#include <mutex>
#include <thread>

#include "excel_batch/batch_texts.h"
#include "platform/errors.h"
#include "platform/text/number_text.h"

namespace zel::excel_batch {
namespace {

/// Calls `work` for 0 to `count` - 1, on several threads at once. The first exception comes back.
void side_by_side(std::size_t count, unsigned threads,
                  const std::function<void(std::size_t)>& work) {
    std::atomic<std::size_t> next = 0;
    std::exception_ptr failure;
    std::mutex failing;
    const auto run = [&] {
        try {
            for (std::size_t i = next++; i < count; i = next++) work(i);
        } catch (...) {
            const std::lock_guard lock(failing);
            if (!failure) failure = std::current_exception();
        }
    };
    {
        std::vector<std::jthread> others;
        const std::size_t wanted = std::min<std::size_t>(threads, count);
        for (std::size_t i = 1; i < wanted; ++i) others.emplace_back(run);
        run();
    }
    if (failure) std::rethrow_exception(failure);
}

unsigned threads_of(const BatchJob& job) {
    return job.threads != 0 ? job.threads : std::max(1U, std::thread::hardware_concurrency());
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

/// The rows of the next block, with their flags.
struct FlaggedRow {
    int row;
    bool active;
    std::size_t slot;
};

/// Rows behind the limit are left out, but not in silence.
void tell_rows_beyond(const BatchJob& job, Workbook& workbook, int limit) {
    if (workbook.text(limit, flag_column).empty()) return;
    job.session.tell(box_in(job.session.lang, rows_beyond_limit,
                            {std::to_string(row_limit), std::to_string(limit)}));
}

}  // namespace

void write(Workbook& workbook, int row, const std::vector<ResultCell>& cells) {
    for (const auto& [column, number, text] : cells) {
        if (number)
            workbook.set_number(row, column, *number);
        else
            workbook.set_text(row, column, text);
    }
}

std::optional<double> rounded(double value, std::string_view mask) {
    return parse_number(masked(value, mask, DecimalSeparator::Point), DecimalSeparator::Point);
}

int count_active_rows(Workbook& workbook, int first_row, CellReading& reading,
                      const std::function<void(int row)>& seen) {
    int active = 0;
    for (int row = first_row; row < first_row + row_limit; ++row) {
        const std::string flag = workbook.text(row, flag_column);
        if (flag.empty()) break;
        if (!reading.take_choice({row, flag_column, flag}, {"1"}, flags_of_first_pass)) break;
        ++active;
        seen(row);
    }
    return active;
}

double percent_step(int active) {
    if (active <= 100) return 10;
    if (active <= 1000) return 1;
    if (active <= 10000) return 0.1;
    return 0.01;
}

PassEnd walk_rows(const BatchJob& job, const SheetOrigin& origin, Workbook& workbook, int first_row,
                  int active_rows, const RowPass& pass, BatchResult& result) {
    Percentage percentage(job, active_rows);
    const int limit = first_row + row_limit;
    std::vector<FlaggedRow> block;
    std::vector<RowOutcome> outcomes(pass.block);
    bool ended = false;
    for (int row = first_row; !ended && row < limit;) {
        block.clear();
        std::size_t slots = 0;
        CellReading flags(origin);
        for (; row < limit && slots < pass.block; ++row) {
            const std::string flag = workbook.text(row, flag_column);
            ended = flag.empty() ||
                    !flags.take_choice({row, flag_column, flag}, {"1", "2"}, flags_of_second_pass);
            if (ended) break;
            block.push_back({row, flag == "1", slots});
            if (flag == "1") pass.read(slots++, row);
        }
        side_by_side(slots, threads_of(job),
                     [&](std::size_t slot) { outcomes[slot] = pass.calculate(slot); });
        for (const auto& [number, active, slot] : block) {
            if (active) {
                const RowOutcome& outcome = outcomes[slot];
                if (!outcome.program_end.empty())
                    throw ProgramEnd(std::string(origin.sheet) + ", row " + std::to_string(number) +
                                     ": " + outcome.program_end);
                for (const Box& box : outcome.refusals) job.session.tell(box);
                if (!outcome.refusals.empty()) return PassEnd::Wrong;
                pass.take(number, outcome);
                result.errors += outcome.errors;
                percentage.show(++result.active);
            } else {
                ++result.inactive;
            }
            ++result.rows;
            if (job.observer.cancelled()) return PassEnd::Stopped;
        }
        for (const Box& box : flags.refusals()) job.session.tell(box);
        if (!flags.sound()) return PassEnd::Wrong;
    }
    if (!ended) tell_rows_beyond(job, workbook, limit);
    return PassEnd::Done;
}

}  // namespace zel::excel_batch
