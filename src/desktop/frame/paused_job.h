#pragma once

#include <QTimer>
#include <functional>
#include <memory>

#include "desktop/frame/job.h"

namespace zel {

/// A job that begins once its inputs have rested for a moment. A new one takes the place of the
/// former, whether that waits or works. It shows no boxes: its work must not ask.
class PausedJob : public QObject {
public:
    explicit PausedJob(int pause_ms);

    /// `found` is called in the thread of the windows where `work` came to its end.
    void start(Job::Work work, std::function<void()> found);
    void cancel();
    /// It waits or works.
    [[nodiscard]] bool is_under_way() const { return pause_.isActive() || works(); }
    [[nodiscard]] bool works() const { return job_ != nullptr; }
    /// Called where it begins to wait or to work, and where it is over.
    std::function<void()> turned = [] {};

private:
    void begin();
    void end();

    QTimer pause_;
    Job::Work work_;
    std::function<void()> found_;
    std::unique_ptr<Job> job_;
};

}  // namespace zel
