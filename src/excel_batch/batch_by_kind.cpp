#include "excel_batch/batch_by_kind.h"

#include <utility>

#include "excel_batch/steady_batch.h"
#include "excel_batch/transient_batch.h"

namespace zel::excel_batch {
namespace {

/// Hands out a workbook that is open already: to open a large one takes a while.
class OpenWorkbook : public WorkbookStore {
public:
    explicit OpenWorkbook(std::unique_ptr<Workbook> workbook) : workbook_(std::move(workbook)) {}
    std::unique_ptr<Workbook> open(const std::string& /*path*/) override {
        return std::move(workbook_);
    }

private:
    std::unique_ptr<Workbook> workbook_;
};

bool is_transient(Workbook& workbook) {
    try {
        workbook.select(fixed_sheet);
    } catch (const WorkbookError& error) {
        // Told by the run itself.
        if (error.fault() == WorkbookFault::NoSheet) return false;
        throw;
    }
    return kind_of(workbook.text(identifier_row, identifier_column)) == WorkbookKind::Transient;
}

}  // namespace

BatchResult run_batch(const BatchJob& job) {
    if (is_shipped_template(job.real_path, job.data_folder))
        return S_00_io_excel_gesamt_rahmen_stat(job);
    auto workbook = job.store->open(job.path);
    const bool transient = is_transient(*workbook);
    OpenWorkbook open(std::move(workbook));
    BatchJob opened = job;
    opened.store = &open;
    return transient ? S_100_io_excel_gesamt_rahmen_transient(opened)
                     : S_00_io_excel_gesamt_rahmen_stat(opened);
}

}  // namespace zel::excel_batch
