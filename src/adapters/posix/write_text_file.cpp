#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <optional>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/text_file.h"
#include "platform/errors.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

constexpr int most_links = 40;
constexpr int most_names = 100;
constexpr mode_t mode_bits = 07777;

/// Tells failures under the path that the user named.
class Target {
public:
    explicit Target(const std::string& named) : named_(named), path_(followed(named)) {
        struct stat state {};
        if (::stat(path_.c_str(), &state) != 0) {
            if (errno != ENOENT) refuse(errno);
            return;
        }
        if (S_ISDIR(state.st_mode)) refuse(EISDIR);
        if (!S_ISREG(state.st_mode))
            throw OutputError(
                at(named_, Reason(Text{"ist keine gewöhnliche Datei", "not a regular file"})));
        // Renaming would get round a write protection.
        if (::faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) != 0) refuse(errno);
        former_ = state;
    }

    [[nodiscard]] const fs::path& path() const { return path_; }
    /// The file that is replaced.
    [[nodiscard]] const std::optional<struct stat>& former() const { return former_; }
    [[noreturn]] void refuse(int error_number) const {
        throw OutputError(at(named_, system_reason(error_number)), posix_fault(error_number));
    }

private:
    /// The path behind the links; the file there need not exist.
    [[nodiscard]] fs::path followed(fs::path path) const {
        std::error_code failed;
        for (int links = 0; fs::is_symlink(path, failed); ++links) {
            if (links == most_links) refuse(ELOOP);
            path = path.parent_path() / fs::read_symlink(path, failed);
            if (failed) refuse(failed.value());
        }
        return path;
    }

    std::string named_;
    fs::path path_;
    std::optional<struct stat> former_;
};

/// No one else's file is named so.
constexpr std::string_view temporary_mark = ".zel-tmp";

/// Whether `name` is one that a temporary file of the target `stem` may have.
bool is_temporary(std::string_view name, const std::string& stem) {
    const std::string begin = stem + std::string(temporary_mark);
    return name.starts_with(begin) && name.size() > begin.size() &&
           name.find_first_not_of("0123456789-", begin.size()) == std::string::npos;
}

/// Whoever writes a temporary file holds a lock on it until it is in its place; a lock ends with
/// its program.
bool take_lock(int number) { return ::flock(number, LOCK_EX | LOCK_NB) == 0; }

/// Removes what runs that were killed have left beside the target. A failure leaves it there.
void clear_leftovers(const fs::path& target) {
    const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
    std::error_code failed;
    for (fs::directory_iterator entry(folder, failed), end; !failed && entry != end;
         entry.increment(failed)) {
        const fs::path& path = entry->path();
        if (!is_temporary(path.filename().string(), target.filename().string())) continue;
        const int number = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
        if (number < 0) continue;
        struct stat state {};
        if (::fstat(number, &state) == 0 && S_ISREG(state.st_mode) && take_lock(number))
            ::unlink(path.c_str());
        ::close(number);
    }
}

/// A new file beside the target, gone again unless it took the target's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const Target& target) : target_(target) {
        const std::string stem =
            target.path().string() + std::string(temporary_mark) + std::to_string(::getpid()) + "-";
        for (int i = 0; number_ < 0 && i < most_names; ++i) create(stem + std::to_string(i));
        if (number_ < 0) target_.refuse(EEXIST);
    }
    ~TemporaryFile() {
        if (!path_.empty()) ::unlink(path_.c_str());
        if (number_ >= 0) ::close(number_);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Before the first byte, so that nobody reads here what he may not read there.
    void take_owner_and_mode_of_target() {
        const auto& former = target_.former();
        if (!former) return;
        // Only the administrator may give a file away; who may not becomes its owner.
        (void)!::fchown(number_, former->st_uid, former->st_gid);
        check(::fchmod(number_, former->st_mode & mode_bits) == 0);
    }

    void write(std::string_view text) {
        while (!text.empty()) {
            const ssize_t count = ::write(number_, text.data(), text.size());
            if (count < 0 && errno == EINTR) continue;
            check(count >= 0);
            text.remove_prefix(static_cast<std::size_t>(count));
        }
    }

    void replace_target() {
        check(::fsync(number_) == 0);
        // Still open, and so locked: nobody takes it for a leftover.
        check(std::rename(path_.c_str(), target_.path().c_str()) == 0);
        path_.clear();
    }

private:
    /// Opens a new file, unless there is one of that name.
    void create(const std::string& path) {
        constexpr mode_t usual = 0666;
        constexpr mode_t owner_alone = 0600;
        const int number = ::open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC,
                                  target_.former() ? owner_alone : usual);
        if (number < 0 && errno != EEXIST) target_.refuse(errno);
        if (number < 0) return;
        // Before it was locked another program may have taken it for a leftover. Some file systems
        // know no locks.
        struct stat state {};
        const bool taken = !take_lock(number) && errno == EWOULDBLOCK;
        if (taken || (::fstat(number, &state) == 0 && state.st_nlink == 0)) {
            ::close(number);
            return;
        }
        path_ = path;
        number_ = number;
    }

    void check(bool done) const {
        if (!done) target_.refuse(errno);
    }

    const Target& target_;
    std::string path_;
    int number_ = -1;
};

/// Puts the new name on the disk. The file is in its place already: a failure is no more than
/// a name that a crash of the machine may lose.
void sync_folder_of(const fs::path& path) {
    const fs::path folder = path.has_parent_path() ? path.parent_path() : fs::path(".");
    const int number = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) return;
    ::fsync(number);
    ::close(number);
}

}  // namespace

struct NewFile::Parts {
    explicit Parts(const std::string& path) : target(path), file(target) {}

    Target target;
    TemporaryFile file;
};

NewFile::NewFile(const std::string& path) : parts_(std::make_unique<Parts>(path)) {
    clear_leftovers(parts_->target.path());
    parts_->file.take_owner_and_mode_of_target();
}

NewFile::~NewFile() = default;

void NewFile::write(std::string_view text) { parts_->file.write(text); }

void NewFile::put_in_place() {
    parts_->file.replace_target();
    sync_folder_of(parts_->target.path());
}

void write_text_file(const std::string& path, std::string_view text) {
    NewFile file(path);
    file.write(text);
    file.put_in_place();
}

}  // namespace zel
