#include <dirent.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <vector>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/text_file.h"
#include "platform/errors.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

constexpr int most_links = 40;
constexpr int most_names = 100;

constexpr Text former_unchanged = {"die bisherige Datei ist unverändert",
                                   "the former file is unchanged"};
constexpr Text nothing_written = {"es ist nichts geschrieben", "nothing is written"};
constexpr Text former_lost = {
    "{0}; auch die bisherige Datei konnte nicht wiederhergestellt werden und ist beschädigt",
    "{0}; the former file could not be put back either and is damaged"};

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
        former_ = state;
        // Renaming would get round a write protection.
        if (::faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) != 0) refuse(errno);
    }

    [[nodiscard]] const fs::path& path() const { return path_; }
    /// The file that is replaced.
    [[nodiscard]] const std::optional<struct stat>& former() const { return former_; }
    [[noreturn]] void refuse(int error_number) const {
        const Text& stands = former_ ? former_unchanged : nothing_written;
        throw OutputError(
            at(named_, write_failure(system_reason(error_number), error_number, stands)),
            posix_fault(error_number));
    }
    [[noreturn]] void refuse_damaged(int error_number) const {
        throw OutputError(at(named_, filled(former_lost, system_reason(error_number))),
                          posix_fault(error_number));
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
    std::optional<struct stat> former_;
    fs::path path_;  // behind the others, which its failures tell
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

/// Removes a file that nobody is writing.
void clear_leftover(const fs::path& path) {
    const int number = ::open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC);
    if (number < 0) return;
    struct stat state {};
    if (::fstat(number, &state) == 0 && S_ISREG(state.st_mode) && take_lock(number))
        ::unlink(path.c_str());
    ::close(number);
}

fs::path folder_of(const fs::path& path) {
    return path.has_parent_path() ? path.parent_path() : fs::path(".");
}

/// Removes what runs that were killed have left beside the target. A failure leaves it there. The
/// iterators of the standard library end the program where memory is short.
void clear_leftovers(const fs::path& target) {
    const fs::path folder = folder_of(target);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(::opendir(folder.c_str()), ::closedir);
    if (!entries) return;
    while (const dirent* entry = ::readdir(entries.get()))
        if (is_temporary(entry->d_name, target.filename().string()))
            clear_leftover(folder / entry->d_name);
}

/// What the user or the system has put beside the content of a file: free attributes, the list of
/// those who may use it, and its security label. Failures leave it out.
void copy_attributes(const std::string& from, int to) {
    std::vector<char> names(
        static_cast<std::size_t>(std::max<ssize_t>(0, ::listxattr(from.c_str(), nullptr, 0))));
    const ssize_t size = ::listxattr(from.c_str(), names.data(), names.size());
    for (ssize_t place = 0; place < size;) {
        const std::string name = names.data() + place;
        place += static_cast<ssize_t>(name.size()) + 1;
        if (!name.starts_with("user.") && name != "system.posix_acl_access" &&
            name != "security.selinux")
            continue;
        std::vector<char> value(static_cast<std::size_t>(
            std::max<ssize_t>(0, ::getxattr(from.c_str(), name.c_str(), nullptr, 0))));
        const ssize_t length = ::getxattr(from.c_str(), name.c_str(), value.data(), value.size());
        if (length >= 0)
            (void)!::fsetxattr(to, name.c_str(), value.data(), static_cast<std::size_t>(length), 0);
    }
}

/// 0, or the number of the error.
int put(int number, std::string_view text) {
    while (!text.empty()) {
        const ssize_t count = ::write(number, text.data(), text.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return errno;
        text.remove_prefix(static_cast<std::size_t>(count));
    }
    return 0;
}

/// A new file beside the target, gone again unless it took the target's place.
class TemporaryFile {
public:
    explicit TemporaryFile(const Target& target) : target_(target) {}
    ~TemporaryFile() {
        if (!path_.empty()) ::unlink(path_.c_str());
        if (number_ >= 0) ::close(number_);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    /// Gives 0, or the number of the error where the folder takes no such file.
    [[nodiscard]] int open() {
        const std::string stem = target_.path().string() + std::string(temporary_mark) +
                                 std::to_string(::getpid()) + "-";
        int error = EEXIST;
        for (int i = 0; number_ < 0 && error == EEXIST && i < most_names; ++i)
            error = create(stem + std::to_string(i));
        if (error == 0) take_owner_and_mode_of_target();
        return error;
    }

    [[nodiscard]] const std::string& path() const { return path_; }

    void write(std::string_view text) { check(put(number_, text)); }

    void replace_target(NewFile::Over over) {
        check(::fsync(number_) == 0 ? 0 : errno);
        // Still open, and so locked: nobody takes it for a leftover.
        check(over == NewFile::Over::Any ? renamed(0) : named_anew());
        path_.clear();
    }

private:
    [[nodiscard]] int renamed(unsigned flags) const {
        return ::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.path().c_str(), flags) == 0
                   ? 0
                   : errno;
    }

    /// Some file systems know neither how to rename over nothing alone.
    [[nodiscard]] int named_anew() const {
        const int error = renamed(RENAME_NOREPLACE);
        if (error != EINVAL && error != ENOSYS) return error;
        if (::link(path_.c_str(), target_.path().c_str()) == 0) return ::unlink(path_.c_str()), 0;
        if (errno == EEXIST || file_exists(target_.path().string())) return EEXIST;
        return renamed(0);
    }

    /// Opens a new file, unless there is one of that name; gives the number of the error.
    int create(const std::string& path) {
        constexpr mode_t usual = 0666;
        constexpr mode_t owner_alone = 0600;
        std::string own = path;  // nothing may fail between the file and its name here
        const int number = ::open(path.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC,
                                  target_.former() ? owner_alone : usual);
        if (number < 0) return errno;
        // Before it was locked another program may have taken it for a leftover. Some file systems
        // know no locks.
        struct stat state {};
        const bool taken = !take_lock(number) && errno == EWOULDBLOCK;
        if (taken || (::fstat(number, &state) == 0 && state.st_nlink == 0)) {
            ::close(number);
            return EEXIST;
        }
        path_ = std::move(own);
        number_ = number;
        return 0;
    }

    /// Before the first byte, so that nobody reads here what he may not read there.
    void take_owner_and_mode_of_target() {
        const auto& former = target_.former();
        if (!former) return;
        // Only the administrator may give a file away; who may not becomes its owner.
        constexpr auto same = static_cast<uid_t>(-1);
        if (::fchown(number_, former->st_uid, former->st_gid) != 0)
            (void)!::fchown(number_, same, former->st_gid);
        struct stat state {};
        check(::fstat(number_, &state) == 0 ? 0 : errno);
        const bool same_group = state.st_gid == former->st_gid;
        const bool same_owner = state.st_uid == former->st_uid;
        constexpr mode_t all = 07777;
        constexpr mode_t group = S_IRWXG;
        mode_t mode =
            former->st_mode & (same_owner && same_group ? all : S_IRWXU | group | S_IRWXO);
        // The rights of a group are not those of another one.
        if (!same_group) mode &= ~group | ((mode & S_IRWXO) << 3U);
        // Some file systems have one mode for all files, and refuse to set it.
        if ((state.st_mode & all) != mode) check(::fchmod(number_, mode) == 0 ? 0 : errno);
        if (same_group) copy_attributes(target_.path().string(), number_);
    }

    void check(int error) const {
        if (error != 0) target_.refuse(error);
    }

    const Target& target_;
    std::string path_;
    int number_ = -1;
};

/// Writes over the content of the target. Where that fails the former content is put back.
class InPlace {
public:
    explicit InPlace(const Target& target)
        : target_(target), number_(::open(target.path().c_str(), O_RDWR | O_CLOEXEC)) {
        if (number_ < 0) target_.refuse(errno);
    }
    ~InPlace() { ::close(number_); }
    InPlace(const InPlace&) = delete;
    InPlace& operator=(const InPlace&) = delete;

    void write(std::string_view text) const {
        const std::string former = content();
        // A full disk is to show before a byte has changed. Not every file system can tell.
        const auto [have, need] = std::pair(former.size(), text.size());
        if (need > have &&
            ::fallocate(number_, FALLOC_FL_KEEP_SIZE, static_cast<off_t>(have),
                        static_cast<off_t>(need - have)) != 0 &&
            errno != EOPNOTSUPP && errno != ENOSYS)
            target_.refuse(errno);
        const int error = exchanged_for(text);
        if (error == 0) return;
        if (exchanged_for(former) != 0) target_.refuse_damaged(error);
        target_.refuse(error);
    }

private:
    [[nodiscard]] std::string content() const {
        std::string text(static_cast<std::size_t>(target_.former()->st_size), '\0');
        std::size_t have = 0;
        while (have < text.size()) {
            const ssize_t count =
                ::pread(number_, text.data() + have, text.size() - have, static_cast<off_t>(have));
            if (count < 0 && errno == EINTR) continue;
            if (count <= 0) target_.refuse(count == 0 ? EIO : errno);
            have += static_cast<std::size_t>(count);
        }
        return text;
    }
    [[nodiscard]] int exchanged_for(std::string_view text) const {
        if (::lseek(number_, 0, SEEK_SET) != 0) return errno;
        if (const int error = put(number_, text)) return error;
        const bool done =
            ::ftruncate(number_, static_cast<off_t>(text.size())) == 0 && ::fsync(number_) == 0;
        return done ? 0 : errno;
    }

    const Target& target_;
    int number_;
};

/// Puts the new name on the disk. The file is in its place already: a failure is no more than
/// a name that a crash of the machine may lose.
void sync_folder_of(const fs::path& path) {
    const int number = ::open(folder_of(path).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (number < 0) return;
    ::fsync(number);
    ::close(number);
}

/// What a `NewFile` is made of.
struct Replacement {
    explicit Replacement(const std::string& path, NewFile::Over replaced = NewFile::Over::Any)
        : target(path), file(target), over(replaced) {
        if (over == NewFile::Over::Nothing && target.former()) target.refuse(EEXIST);
        clear_leftovers(target.path());
    }
    void put_in_place() {
        file.replace_target(over);
        sync_folder_of(target.path());
    }

    Target target;
    TemporaryFile file;
    NewFile::Over over;
};

}  // namespace

struct NewFile::Parts : Replacement {
    using Replacement::Replacement;
};

NewFile::NewFile(const std::string& path, Over over) : parts_(std::make_unique<Parts>(path, over)) {
    if (const int error = parts_->file.open()) parts_->target.refuse(error);
}

NewFile::~NewFile() = default;

const std::string& NewFile::path() const { return parts_->file.path(); }

void NewFile::write(std::string_view text) { parts_->file.write(text); }

void NewFile::put_in_place() { parts_->put_in_place(); }

void write_text_file(const std::string& path, std::string_view text) {
    Replacement parts(path);
    const int error = parts.file.open();
    if (parts.target.former() && (error == EACCES || error == EPERM))
        return InPlace(parts.target).write(text);
    if (error != 0) parts.target.refuse(error);
    parts.file.write(text);
    parts.put_in_place();
}

}  // namespace zel
