// Preloaded by faults.py: lets one call of a program fail as a disk, a network folder or the memory
// would, or ends the program there. The environment tells which:
//   ZEL_FAULT_CALL    open, read, write, sync, close, rename, unlink, truncate, lock, mode, memory,
//   or
//                     disk for all of them but memory
//   ZEL_FAULT_AT      the n-th of these calls, from 1
//   ZEL_FAULT_ERROR   its errno; 0 kills the program instead, behind which what was written to new
//                     files and not synced is lost, as where the power goes
//   ZEL_FAULT_STAYS   1: all calls of the kind behind it fail too; the first write still takes half
//   ZEL_FAULT_WITHIN  the folder whose files count, and what lies below it
//   ZEL_FAULT_MET     a file that is made when it comes to the fault; behind main() it holds how
//   many
//                     such calls there were
// Calls before main() do not count.

#include <dlfcn.h>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

extern "C" {
void* __libc_malloc(std::size_t);
void* __libc_calloc(std::size_t, std::size_t);
void* __libc_realloc(void*, std::size_t);
void* __libc_memalign(std::size_t, std::size_t);
}

namespace {

struct Fault {
    std::string_view call, within;
    const char* met = nullptr;
    long at = 0;
    int error = 0;
    bool stays = false;
};

constexpr int most_files = 1024;
Fault fault;
std::atomic<bool> counting{false};
std::atomic<long> calls{0};
bool counted[most_files];   // descriptors of files within the folder
bool unsynced[most_files];  // of them the new ones that were written since their last sync

template <class Function>
Function next(const char* name, Function) {
    return reinterpret_cast<Function>(::dlsym(RTLD_NEXT, name));
}
#define REAL(name) next(#name, &name)

void meet() {
    const int file = static_cast<int>(
        ::syscall(SYS_openat, AT_FDCWD, fault.met, O_WRONLY | O_CREAT | O_CLOEXEC, 0600));
    ::syscall(SYS_close, file);
    if (fault.error != 0) return;
    for (int number = 0; number < most_files; ++number)
        if (unsynced[number]) ::syscall(SYS_ftruncate, number, 0L);
    ::kill(::getpid(), SIGKILL);
}

/// Whether a call of this kind fails now; `errno` is set then.
bool fails(std::string_view call) {
    if (!counting || (fault.call != call && (fault.call != "disk" || call == "memory")))
        return false;
    const long count = ++calls;
    if (count < fault.at || (count > fault.at && !fault.stays)) return false;
    if (count == fault.at) meet();
    errno = fault.error;
    return true;
}

bool fails(std::string_view call, const char* path) {
    const std::string_view name(path);
    return (!name.starts_with('/') || name.starts_with(fault.within)) && fails(call);
}

bool fails(std::string_view call, int number) {
    return number >= 0 && number < most_files && counted[number] && fails(call);
}

int opened(int number, const char* path, int flags) {
    const std::string_view name(path);
    if (number < 0 || number >= most_files) return number;
    counted[number] = !name.starts_with('/') || name.starts_with(fault.within);
    unsynced[number] = counted[number] && (flags & O_EXCL) != 0;
    return number;
}

/// How much of a write that comes to a full disk still goes through.
std::size_t room_for(std::size_t size) {
    return fault.stays && fault.error == ENOSPC && calls == fault.at ? size / 2 : 0;
}

int (*real_main)(int, char**, char**);

int main_from_here(int argc, char** argv, char** environment) {
    const auto value = [](const char* name) {
        const char* text = std::getenv(name);
        return text == nullptr ? "" : text;
    };
    fault = {value("ZEL_FAULT_CALL"),
             value("ZEL_FAULT_WITHIN"),
             value("ZEL_FAULT_MET"),
             std::atol(value("ZEL_FAULT_AT")),
             std::atoi(value("ZEL_FAULT_ERROR")),
             *value("ZEL_FAULT_STAYS") == '1'};
    counting = fault.at > 0;
    const int status = real_main(argc, argv, environment);
    if (counting.exchange(false) && calls < fault.at) {
        char text[24];
        const int size = std::snprintf(text, sizeof text, "%ld", calls.load());
        const long file =
            ::syscall(SYS_openat, AT_FDCWD, fault.met, O_WRONLY | O_CREAT | O_CLOEXEC, 0600);
        ::syscall(SYS_write, file, text, size);
        ::syscall(SYS_close, file);
    }
    return status;
}

}  // namespace

extern "C" {

int __libc_start_main(int (*main)(int, char**, char**), int argc, char** argv, void (*init)(),
                      void (*fini)(), void (*rtld_fini)(), void* stack_end) {
    real_main = main;
    return REAL(__libc_start_main)(main_from_here, argc, argv, init, fini, rtld_fini, stack_end);
}

#define OPENS(name, PARAMETERS, ...)                                      \
    int name PARAMETERS {                                                 \
        mode_t mode = 0;                                                  \
        if ((flags & O_CREAT) != 0) {                                     \
            va_list rest;                                                 \
            va_start(rest, flags);                                        \
            mode = va_arg(rest, mode_t);                                  \
            va_end(rest);                                                 \
        }                                                                 \
        if (fails("open", path)) return -1;                               \
        return opened(REAL(name)(__VA_ARGS__, flags, mode), path, flags); \
    }
OPENS(open, (const char* path, int flags, ...), path)
OPENS(open64, (const char* path, int flags, ...), path)
OPENS(openat, (int folder, const char* path, int flags, ...), folder, path)
OPENS(openat64, (int folder, const char* path, int flags, ...), folder, path)

#define WRITES(name, PARAMETERS, ...)                                     \
    ssize_t name PARAMETERS {                                             \
        if (fails("write", number)) {                                     \
            if ((size = room_for(size)) == 0) return -1;                  \
        }                                                                 \
        return REAL(name)(number, data, size __VA_OPT__(, ) __VA_ARGS__); \
    }
WRITES(write, (int number, const void* data, std::size_t size))
WRITES(pwrite, (int number, const void* data, std::size_t size, off_t place), place)
WRITES(pwrite64, (int number, const void* data, std::size_t size, off64_t place), place)

// Libraries write by these.
#define OPENS_STREAM(name)                                        \
    FILE* name(const char* path, const char* mode) {              \
        if (fails("open", path)) return nullptr;                  \
        FILE* stream = REAL(name)(path, mode);                    \
        if (stream != nullptr) opened(::fileno(stream), path, 0); \
        return stream;                                            \
    }
OPENS_STREAM(fopen)
OPENS_STREAM(fopen64)
std::size_t fwrite(const void* data, std::size_t size, std::size_t count, FILE* stream) {
    return fails("write", ::fileno(stream)) ? 0 : REAL(fwrite)(data, size, count, stream);
}
int mkstemp(char* path) { return fails("open", path) ? -1 : opened(REAL(mkstemp)(path), path, 0); }

// What takes a descriptor or a path first and fails with -1.
#define CALL(kind, type, name, PARAMETERS, first, ...)       \
    type name PARAMETERS {                                   \
        if (fails(kind, first)) return -1;                   \
        return REAL(name)(first __VA_OPT__(, ) __VA_ARGS__); \
    }
CALL("read", ssize_t, read, (int number, void* data, std::size_t size), number, data, size)
CALL("read", ssize_t, pread, (int number, void* data, std::size_t size, off_t place), number, data,
     size, place)
CALL("read", ssize_t, pread64, (int number, void* data, std::size_t size, off64_t place), number,
     data, size, place)
CALL("truncate", int, ftruncate, (int number, off_t size), number, size)
CALL("truncate", int, ftruncate64, (int number, off64_t size), number, size)
CALL("lock", int, flock, (int number, int operation), number, operation)
CALL("mode", int, fchmod, (int number, mode_t mode), number, mode)
CALL("mode", int, fchown, (int number, uid_t owner, gid_t group), number, owner, group)
CALL("rename", int, rename, (const char* from, const char* to), from, to)
CALL("rename", int, link, (const char* from, const char* to), from, to)
CALL("unlink", int, unlink, (const char* path), path)
CALL("mode", int, mkdir, (const char* path, mode_t mode), path, mode)

int renameat2(int from_folder, const char* from, int to_folder, const char* to, unsigned flags) {
    return fails("rename", from) ? -1 : REAL(renameat2)(from_folder, from, to_folder, to, flags);
}

int fsync(int number) {
    if (fails("sync", number)) return -1;
    if (number >= 0 && number < most_files) unsynced[number] = false;
    return REAL(fsync)(number);
}
int fdatasync(int number) {
    if (fails("sync", number)) return -1;
    if (number >= 0 && number < most_files) unsynced[number] = false;
    return REAL(fdatasync)(number);
}

// The descriptor is closed even so.
int close(int number) {
    const bool failed = fails("close", number);
    const int error = errno;
    if (number >= 0 && number < most_files) counted[number] = unsynced[number] = false;
    const int status = REAL(close)(number);
    if (failed) errno = error;
    return failed ? -1 : status;
}

void* malloc(std::size_t size) { return fails("memory") ? nullptr : __libc_malloc(size); }
void* calloc(std::size_t count, std::size_t size) {
    return fails("memory") ? nullptr : __libc_calloc(count, size);
}
void* realloc(void* block, std::size_t size) {
    return fails("memory") ? nullptr : __libc_realloc(block, size);
}
void* aligned_alloc(std::size_t to, std::size_t size) {
    return fails("memory") ? nullptr : __libc_memalign(to, size);
}
}
