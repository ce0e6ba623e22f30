#include "excel_batch/batch_frame.h"

#include "excel_batch/batch_texts.h"
#include "shell/error_table.h"

namespace zel::excel_batch {
namespace {

constexpr std::string_view batch_module = "MOD02EXCEL";

std::string file_name(const std::string& path) { return path.substr(path.find_last_of('/') + 1); }

/// The run as far as it is the same for all kinds of workbooks.
class Frame {
public:
    explicit Frame(const BatchJob& job) : job_(job), name_(file_name(job.path)) {}

    /// `choose` gives the steps for the open workbook. A missing sheet is told and refuses it.
    template <class Choose>
    BatchResult run(Choose choose) {
        if (is_shipped_template(job_.real_path, job_.data_folder)) {
            tell(template_refused, name_);
            return result_;
        }
        status(opening, name_);
        job_.observer.percent(1);
        workbook_ = job_.store.open(job_.path);
        steps_ = choose(*workbook_);
        try {
            calculate();
        } catch (const WorkbookError& error) {
            if (error.fault() != WorkbookFault::NoSheet) throw;
            tell_missing_sheet(error);
        }
        return result_;
    }

private:
    void calculate() {
        if (!read_fixed_input()) return;
        status(sheet_finished, fixed_sheet);
        job_.observer.percent(3);
        workbook_->select(rows_sheet);
        job_.observer.percent(4);
        finish(steps_->work(*workbook_, origin(rows_sheet), result_));
    }

    [[nodiscard]] LangId lang() const { return job_.session.lang; }
    [[nodiscard]] SheetOrigin origin(std::string_view sheet) const {
        return {name_, sheet, lang()};
    }

    void status(const Text& line, std::string_view name) {
        job_.observer.status(fill(line.in(lang()), {name}));
    }
    void tell(const BoxText& box, std::string_view name) {
        job_.session.tell(box_in(lang(), box, {name}));
    }

    /// Row 9 of the central error table; the workbook is closed before.
    void tell_missing_sheet(const WorkbookError& error) {
        workbook_.reset();
        job_.session.tell(error_box({static_cast<std::int32_t>(PlatformFault::SheetMissing),
                                     error.told(lang()), error.subject()},
                                    0, batch_module, steps_->procedure(), lang()));
    }

    bool read_fixed_input() {
        workbook_->select(fixed_sheet);
        status(sheet_in_progress, fixed_sheet);
        job_.observer.percent(2);
        const SheetOrigin here = origin(fixed_sheet);
        CellReading reading(here);
        steps_->read_fixed_input(*workbook_, reading);
        excel_batch::tell(job_, reading.refusals());
        if (reading.sound()) return true;
        tell(fixed_input_refused, fixed_sheet);
        return false;
    }

    void finish(PassEnd end) {
        const bool stopped = end == PassEnd::Stopped;
        if (end != PassEnd::Done && !steps_->keeps_rows_before(end)) {
            if (!stopped) return fail();
            result_.end = BatchEnd::Stopped;
            return job_.observer.percent(0);
        }
        status(rows_finished, rows_sheet);
        job_.observer.percent(99);
        workbook_->save();
        result_.saved = true;
        const bool wrong = end == PassEnd::Wrong;
        result_.end = wrong ? BatchEnd::Broken : stopped ? BatchEnd::Stopped : BatchEnd::Done;
        result_.summary = summary_of(result_, name_, lang());
        if (wrong) return fail();
        job_.observer.percent(100);
    }

    void fail() {
        job_.observer.percent(0);
        job_.session.tell(box_in(lang(), run_failed));
    }

    const BatchJob& job_;
    std::unique_ptr<BatchSteps> steps_;
    std::string name_;
    std::unique_ptr<Workbook> workbook_;
    BatchResult result_;
};

}  // namespace

BatchResult run_batch(const BatchJob& job) {
    return Frame(job).run([&](Workbook& workbook) {
        // A missing sheet is told by the steps.
        return kind_of(workbook) == WorkbookKind::Transient ? transient_steps(job)
                                                            : steady_steps(job);
    });
}

BatchResult S_00_io_excel_gesamt_rahmen_stat(const BatchJob& job) {
    return Frame(job).run([&](Workbook&) { return steady_steps(job); });
}

BatchResult S_100_io_excel_gesamt_rahmen_transient(const BatchJob& job) {
    return Frame(job).run([&](Workbook&) { return transient_steps(job); });
}

}  // namespace zel::excel_batch
