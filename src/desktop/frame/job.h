#pragma once

#include <atomic>
#include <condition_variable>
#include <exception>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "platform/message_box.h"

namespace zel {

/// How far a job is.
struct JobProgress {
    double percent = 0;
    std::string line{};         // what it works on
    std::string amount{};       // how much there is to do
    std::string time_suffix{};  // follows the elapsed time
    std::string done{};         // how much of it is done
};

/// A long calculation on a thread of its own. What it reads is copied for it, so that nothing
/// changes under it; what it finds is taken out once it has ended. Boxes that it shows wait for the
/// thread that owns the job, which is that of the windows.
class Job : private Dialogs {
public:
    using Work = std::function<void(Job&)>;

    /// `wake` is called on the thread of the work where a box waits, and at the end.
    Job(Work work, std::function<void()> wake);
    /// Cancels the work and waits for its end. Boxes are not shown any more.
    ~Job() override;
    Job(const Job&) = delete;
    Job& operator=(const Job&) = delete;

    // ---- for the work

    void tell(const JobProgress& progress);
    [[nodiscard]] bool cancelled() const { return cancelled_; }
    /// Shows boxes to the user and waits for the answers.
    Dialogs& dialogs() { return *this; }

    // ---- for the owner

    void begin();
    /// Asks the work to end early; it decides where, and what then stands.
    void cancel() { cancelled_ = true; }
    [[nodiscard]] JobProgress progress() const;
    /// The box that waits, or null. It stands until it is answered.
    [[nodiscard]] const Box* waiting() const;
    /// Whether the boxes that follow it can be left: by the answer no, though it merely informs.
    [[nodiscard]] bool others_follow() const;
    void answer(Answer answer);
    [[nodiscard]] bool ended() const;
    /// Waits for the end; boxes answer themselves from now on. Throws what the work has thrown.
    void finish();

private:
    Answer show(const Box& box) override { return wait_for(box, false); }
    bool show_before_others(const Box& box) override { return wait_for(box, true) == Answer::No; }
    Answer wait_for(const Box& box, bool others_follow);
    void run();

    Work work_;
    std::function<void()> wake_;
    std::atomic<bool> cancelled_ = false;
    std::mutex turn_;           // one box at a time
    mutable std::mutex mutex_;  // of all below
    std::condition_variable answered_;
    JobProgress progress_;
    const Box* box_ = nullptr;
    bool others_follow_ = false;  // that box
    std::optional<Answer> answer_;
    bool unattended_ = false;
    bool ended_ = false;
    std::exception_ptr failure_;
    std::thread thread_;  // last: it uses all of the above
};

}  // namespace zel
