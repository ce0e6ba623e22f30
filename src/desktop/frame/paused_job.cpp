#include "desktop/frame/paused_job.h"

#include <utility>

#include "desktop/frame/events.h"

namespace zel {

PausedJob::PausedJob(int pause_ms) {
    pause_.setSingleShot(true);
    pause_.setInterval(pause_ms);
    on(&pause_, &QTimer::timeout, [this] { begin(); });
}

void PausedJob::start(Job::Work work, std::function<void()> found) {
    cancel();
    work_ = std::move(work);
    found_ = std::move(found);
    pause_.start();
    turned();
}

void PausedJob::cancel() {
    if (!is_under_way()) return;
    pause_.stop();
    job_.reset();
    turned();
}

void PausedJob::begin() {
    // A call of a former job may come late: it then finds this one still at work, or ends it.
    job_ = std::make_unique<Job>(std::move(work_), [this] {
        QMetaObject::invokeMethod(
            this, [this] { guarded(*this, [this] { end(); }); }, Qt::QueuedConnection);
    });
    job_->begin();
    turned();
    end();  // where no thread could be started
}

void PausedJob::end() {
    if (!job_ || !job_->ended()) return;
    const std::unique_ptr<Job> job = std::move(job_);
    const bool complete = !job->cancelled();
    turned();
    job->finish();
    if (complete) found_();
}

}  // namespace zel
