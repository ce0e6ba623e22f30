#include "adapters/posix/workbook_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <utility>

#include "adapters/posix/descriptor.h"
#include "adapters/posix/text_file.h"
#include "platform/workbook.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

constexpr off_t largest_file = off_t{1} << 30;

constexpr Text no_file = {"ist keine Datei, die ersetzt werden kann",
                          "is no file that can be replaced"};
constexpr Text too_large = {"ist größer als 1 GiB", "is larger than 1 GiB"};
constexpr Text not_writable = {"Ergebnisse können nicht geschrieben werden: {0}",
                               "results cannot be written: {0}"};
constexpr Text being_written = {"wird gerade von einem anderen Programm geschrieben",
                                "is being written by another program"};
constexpr Text changed = {"wurde während der Berechnung von einem anderen Programm geändert; die "
                          "Ergebnisse werden nicht geschrieben",
                          "was changed by another program during the calculation; its results are "
                          "not written"};
constexpr Text open_elsewhere = {
    "ist in einem anderen Programm geöffnet; schließen Sie es dort, oder "
    "löschen Sie {0}, wenn niemand es geöffnet hat",
    "is open in another program; close it there, or delete {0} if "
    "nobody has it open"};
constexpr Text locked = {"ist von einem anderen Programm gesperrt; schließen Sie es dort",
                         "is locked by another program; close it there"};

[[noreturn]] void refuse(const std::string& path, WorkbookFault fault, const Reason& reason) {
    throw WorkbookError(fault, at(path, reason));
}

[[noreturn]] void refuse(const std::string& path, int error) {
    const WorkbookFault fault =
        error == ENOENT || error == ENOTDIR ? WorkbookFault::Missing : WorkbookFault::Denied;
    refuse(path, fault, system_reason(error));
}

fs::path behind_links(const std::string& path) {
    std::error_code failed;
    fs::path real = fs::canonical(path, failed);
    return failed ? fs::path(path) : real;
}

bool is_locked(const std::string& path) {
    const Descriptor file(path);
    struct flock lock {};
    lock.l_type = F_WRLCK;
    lock.l_whence = SEEK_SET;
    return file.number() >= 0 && ::fcntl(file.number(), F_GETLK, &lock) == 0 &&
           lock.l_type != F_UNLCK;
}

}  // namespace

WorkbookFile::WorkbookFile(std::string path) : path_(std::move(path)) {
    struct stat state {};
    if (::stat(path_.c_str(), &state) != 0) refuse(path_, errno);
    if (S_ISDIR(state.st_mode)) refuse(path_, EISDIR);
    if (!S_ISREG(state.st_mode)) refuse(path_, WorkbookFault::Denied, Reason(no_file));
    if (state.st_size > largest_file) refuse(path_, WorkbookFault::Damaged, Reason(too_large));
    // What could not be replaced is refused before hours of calculation.
    if (::faccessat(AT_FDCWD, path_.c_str(), W_OK, AT_EACCESS) != 0) {
        const int error = errno;
        refuse(path_, WorkbookFault::Denied, filled(not_writable, system_reason(error)));
    }
    require_unlocked();
}

std::string WorkbookFile::read() {
    read_ = stamp();
    const Descriptor file(path_);
    if (file.number() < 0) refuse(path_, errno);
    std::string bytes(static_cast<std::size_t>(read_.size), '\0');
    std::size_t count = 0;
    while (count < bytes.size()) {
        const ssize_t part = ::read(file.number(), bytes.data() + count, bytes.size() - count);
        if (part < 0 && errno == EINTR) continue;
        if (part < 0) refuse(path_, errno);
        if (part == 0) break;
        count += static_cast<std::size_t>(part);
    }
    if (count != bytes.size() || stamp() != read_)
        refuse(path_, WorkbookFault::Changed, Reason(being_written));
    return bytes;
}

void WorkbookFile::replace(std::string_view bytes) const {
    require_unlocked();
    if (stamp() != read_) refuse(path_, WorkbookFault::Changed, Reason(changed));
    write_text_file(path_, bytes);
}

WorkbookFile::Stamp WorkbookFile::stamp() const {
    struct stat state {};
    if (::stat(path_.c_str(), &state) != 0) refuse(path_, errno);
    return {state.st_dev, state.st_ino, state.st_size, state.st_mtim.tv_sec, state.st_mtim.tv_nsec};
}

/// Spreadsheet programs lay a file beside the workbook that they have open.
void WorkbookFile::require_unlocked() const {
    const fs::path real = behind_links(path_);
    for (const fs::path& file : {fs::path(path_), real})
        for (const std::string& mark :
             {".~lock." + file.filename().string() + "#", "~$" + file.filename().string()}) {
            const fs::path beside = file.parent_path() / mark;
            if (file_exists(beside.string()))
                refuse(path_, WorkbookFault::Locked, Reason(open_elsewhere, {beside.string()}));
        }
    if (is_locked(path_)) refuse(path_, WorkbookFault::Locked, Reason(locked));
}

}  // namespace zel
