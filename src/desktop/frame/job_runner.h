#pragma once

#include <QDialog>
#include <memory>
#include <optional>

#include "desktop/frame/job.h"

namespace zel {

/// Where a window shows a job. All of it happens in the thread of the windows.
class JobDisplay {
public:
    virtual ~JobDisplay() = default;

    /// How far `job`, which the display may cancel, is `seconds` after its begin: every few
    /// moments, and at the end.
    virtual void show_job(Job& job, const JobProgress& at, double seconds) = 0;
    /// It takes input now, and keeps it from all other windows. Until then, input waits.
    [[nodiscard]] virtual bool takes_input() const = 0;
    /// A box comes, or the job has ended: nothing of the display may lie over what follows.
    virtual void make_room() {}
};

/// Runs `work` on a thread of its own while the windows live on, and comes back when it has ended.
/// Boxes of the work are shown by `dialogs` in the thread of the windows; there all that the work
/// throws, `ProgramEnd` included, comes out of here. Where the program ends meanwhile, the work is
/// cancelled and waited for.
void run_job(JobDisplay& display, Dialogs& dialogs, Job::Work work);

/// The display of a job that has none of its own: a window with a bar and a button to cancel. It
/// comes up only where the job takes longer than a moment, and anew behind each box.
class RunProgress : public JobDisplay {
public:
    static constexpr Text calculation = {"Berechnung", "Calculation"};

    /// Comes up above the window of `parent`, after `patience_ms`.
    RunProgress(QWidget& parent, LangId lang, int patience_ms, const Text& title = calculation);
    ~RunProgress() override;

    void show_job(Job& job, const JobProgress& at, double seconds) override;
    [[nodiscard]] bool takes_input() const override { return window_ != nullptr; }
    void make_room() override;

private:
    class Window;

    QWidget& parent_;
    LangId lang_;
    Text title_;
    double patience_;                      // s
    std::optional<double> waiting_since_;  // s from the begin of the job
    std::unique_ptr<Window> window_;
};

}  // namespace zel
