#include "desktop/frame/job.h"

#include <system_error>
#include <utility>

#include "platform/errors.h"

namespace zel {

Job::Job(Work work, std::function<void()> wake) : work_(std::move(work)), wake_(std::move(wake)) {}

void Job::begin() {
    try {
        thread_ = std::thread([this] { run(); });
    } catch (const std::system_error&) {
        failure_ = std::make_exception_ptr(
            PlatformError(PlatformFault::OutOfMemory, "the system starts no more threads"));
        ended_ = true;
    }
}

Job::~Job() {
    cancel();
    try {
        finish();
    } catch (...) {
        // Whoever leaves the job behind does not ask what became of it.
    }
}

void Job::run() {
    std::exception_ptr failure;
    try {
        work_(*this);
    } catch (...) {
        failure = std::current_exception();
    }
    {
        const std::lock_guard lock(mutex_);
        failure_ = failure;
        ended_ = true;
    }
    wake_();
}

void Job::tell(const JobProgress& progress) {
    const std::lock_guard lock(mutex_);
    progress_ = progress;
}

JobProgress Job::progress() const {
    const std::lock_guard lock(mutex_);
    return progress_;
}

Answer Job::wait_for(const Box& box, bool others_follow) {
    const std::lock_guard turn(turn_);
    std::unique_lock lock(mutex_);
    if (unattended_) return box.unattended;
    box_ = &box;
    others_follow_ = others_follow;
    answer_.reset();
    lock.unlock();
    wake_();
    lock.lock();
    answered_.wait(lock, [this] { return answer_ || unattended_; });
    box_ = nullptr;
    return answer_.value_or(box.unattended);
}

const Box* Job::waiting() const {
    const std::lock_guard lock(mutex_);
    return answer_ ? nullptr : box_;
}

bool Job::others_follow() const {
    const std::lock_guard lock(mutex_);
    return others_follow_;
}

void Job::answer(Answer answer) {
    {
        const std::lock_guard lock(mutex_);
        answer_ = answer;
    }
    answered_.notify_one();
}

bool Job::ended() const {
    const std::lock_guard lock(mutex_);
    return ended_;
}

void Job::finish() {
    {
        const std::lock_guard lock(mutex_);
        unattended_ = true;
    }
    answered_.notify_one();
    if (thread_.joinable()) thread_.join();
    if (failure_) std::rethrow_exception(std::exchange(failure_, nullptr));
}

}  // namespace zel
