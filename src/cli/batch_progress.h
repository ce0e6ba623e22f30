#pragma once

#include <chrono>
#include <string>

#include "excel_batch/batch_run.h"
#include "program/console.h"

namespace zel {

/// A batch as a terminal shows it: one line with a bar, the percentage and the elapsed time, on
/// standard error. Shows nothing where that is no terminal, and with JSON.
class BatchProgress : public excel_batch::BatchObserver {
public:
    explicit BatchProgress(const CommonOptions& options);
    ~BatchProgress() override { clear(); }
    BatchProgress(const BatchProgress&) = delete;
    BatchProgress& operator=(const BatchProgress&) = delete;

    void status(const std::string& line) override;
    void percent(double percent) override;
    void active_rows(const std::string& line) override;
    void time_suffix(std::string_view suffix) override { suffix_ = suffix; }
    bool cancelled() override;

    /// Takes the line away, so that something else can be told.
    void clear();

    [[nodiscard]] double seconds() const;

private:
    using Clock = std::chrono::steady_clock;

    void draw();

    bool shown_;
    Clock::time_point begin_ = Clock::now();
    Clock::time_point drawn_;
    double percent_ = 0;
    std::string status_;
    std::string suffix_;
};

}  // namespace zel
