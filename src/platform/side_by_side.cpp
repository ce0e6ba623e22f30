#include "platform/side_by_side.h"

#include <algorithm>
#include <atomic>
#include <exception>
#include <mutex>
#include <system_error>
#include <thread>
#include <vector>

namespace zel {

void side_by_side(std::size_t count, unsigned threads,
                  const std::function<void(std::size_t)>& work) {
    if (threads == 0) threads = std::max(1U, std::thread::hardware_concurrency());
    std::atomic<std::size_t> next = 0;
    std::exception_ptr failure;
    std::mutex failing;
    const auto run = [&] {
        try {
            for (std::size_t i = next++; i < count; i = next++) work(i);
        } catch (...) {
            const std::lock_guard lock(failing);
            if (!failure) failure = std::current_exception();
            next = count;
        }
    };
    {
        std::vector<std::jthread> others;
        const std::size_t wanted = std::min<std::size_t>(threads, count);
        try {
            for (std::size_t i = 1; i < wanted; ++i) others.emplace_back(run);
        } catch (const std::system_error&) {
            // The system starts no more threads: those that run do the work, with the same results.
        }
        run();
    }
    if (failure) std::rethrow_exception(failure);
}

}  // namespace zel
