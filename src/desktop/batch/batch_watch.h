#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "desktop/frame/job.h"
#include "excel_batch/batch_run.h"

// What stands between a batch, on the thread of its job, and the window that shows it.

namespace zel {

/// The boxes of a run, as far as the user wants to see them. Questions are always asked.
class SeenBoxes : public Dialogs {
public:
    explicit SeenBoxes(Dialogs& shown_by) : shown_by_(shown_by) {}

    Answer show(const Box& box) override;
    bool show_before_others(const Box& box) override;
    /// The lines of those that he has left.
    [[nodiscard]] const std::vector<std::string>& unseen() const { return unseen_; }

private:
    Dialogs& shown_by_;
    bool left_ = false;
    std::vector<std::string> unseen_;
};

/// The wrong cells that a run has found until now.
class FoundCells {
public:
    void clear();
    void add(const excel_batch::WrongCell& cell);
    [[nodiscard]] std::vector<excel_batch::WrongCell> all() const;

private:
    mutable std::mutex mutex_;
    std::vector<excel_batch::WrongCell> cells_;
};

/// Hands the progress of a batch to the job that it runs in.
class BatchWatch : public excel_batch::BatchObserver {
public:
    BatchWatch(Job& job, FoundCells& found, LangId lang) : job_(job), found_(found), lang_(lang) {}

    void status(const std::string& line) override { tell(at_.line, line); }
    /// The percentage of a cancelled run stays where it is.
    void percent(double percent) override;
    void active_rows(const std::string& line) override { tell(at_.amount, line); }
    void rows_done(int done, int active) override;
    void wrong_cell(const excel_batch::WrongCell& cell) override { found_.add(cell); }
    void time_suffix(std::string_view suffix) override { tell(at_.time_suffix, suffix); }
    bool cancelled() override { return job_.cancelled(); }

private:
    template <class T, class Value>
    void tell(T& part, const Value& value) {
        part = value;
        job_.tell(at_);
    }

    Job& job_;
    FoundCells& found_;
    LangId lang_;
    JobProgress at_;
};

}  // namespace zel
