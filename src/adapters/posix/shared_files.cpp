#include "adapters/posix/shared_files.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <thread>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/text_file.h"
#include "platform/errors.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

// An update takes milliseconds. Who holds the lock for longer hangs.
constexpr int most_attempts = 500;
constexpr auto pause = std::chrono::milliseconds(10);

constexpr Text not_locked = {"kann nicht gesperrt werden: {0}", "cannot be locked: {0}"};

class Lock {
public:
    explicit Lock(const fs::path& path) {
        const fs::path beside = path.parent_path() / ("." + path.filename().string() + ".lock");
        number_ = ::open(beside.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
        if (number_ < 0) refuse(path, errno);
        for (int attempt = 1; ::flock(number_, LOCK_EX | LOCK_NB) != 0; ++attempt) {
            if (attempt == most_attempts || (errno != EWOULDBLOCK && errno != EINTR)) {
                const int reason = errno;
                ::close(number_);
                refuse(path, reason);
            }
            std::this_thread::sleep_for(pause);
        }
    }
    ~Lock() { ::close(number_); }
    Lock(const Lock&) = delete;
    Lock& operator=(const Lock&) = delete;

private:
    [[noreturn]] static void refuse(const fs::path& path, int error_number) {
        throw OutputError(at(path.string(), filled(not_locked, system_reason(error_number))),
                          posix_fault(error_number));
    }

    int number_ = -1;
};

}  // namespace

std::optional<std::string> SharedFiles::read(const std::string& path) const {
    try {
        return read_text_file(path);
    } catch (const InputError&) {
        return std::nullopt;
    }
}

void SharedFiles::update(const std::string& path,
                         const std::function<std::string(const std::string&)>& edit) {
    const fs::path file(path);
    if (file.has_parent_path()) make_folder(file.parent_path());
    const Lock lock(file);
    const bool exists = file_exists(path);
    std::string former;
    try {
        if (exists) former = read_text_file(path);
    } catch (const InputError& error) {
        throw OutputError(error.reason(),
                          error.fault());  // what cannot be read must not be overwritten
    }
    const std::string text = edit(former);
    if (!exists || text != former) write_text_file(path, text);
}

void make_folder(const std::string& path) {
    std::error_code failed;
    fs::create_directories(path, failed);
    if (failed)
        throw OutputError(at(path, system_reason(failed.value())), posix_fault(failed.value()));
}

}  // namespace zel
