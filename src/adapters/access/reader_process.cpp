#include "adapters/access/reader_process.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <utility>

namespace zel::access {
namespace {

constexpr int first_free_number = 10;  // above those that the reader gets
constexpr int loader_failed = 127;     // exit status where a library is missing

/// A descriptor that is closed at the end, and not inherited.
class Owned {
public:
    explicit Owned(int number) : number_(::fcntl(number, F_DUPFD_CLOEXEC, first_free_number)) {}
    ~Owned() {
        if (number_ >= 0) ::close(number_);
    }
    Owned(const Owned&) = delete;
    Owned& operator=(const Owned&) = delete;
    [[nodiscard]] int number() const { return number_; }
    [[nodiscard]] int release() { return std::exchange(number_, -1); }

private:
    int number_;
};

/// What happens to the descriptors and signals of a new process.
struct Start {
    Start() {
        posix_spawn_file_actions_init(&files);
        posix_spawnattr_init(&attributes);
        sigset_t signals;
        sigemptyset(&signals);
        posix_spawnattr_setsigmask(&attributes, &signals);
        sigaddset(&signals, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes, &signals);
        // In a group of its own an interrupt of the terminal passes it by.
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                                  POSIX_SPAWN_SETPGROUP);
    }
    ~Start() {
        posix_spawn_file_actions_destroy(&files);
        posix_spawnattr_destroy(&attributes);
    }
    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;

    posix_spawn_file_actions_t files{};
    posix_spawnattr_t attributes{};
};

/// The process, or -1. It has no environment, which would steer the library, and no terminal.
pid_t started(const std::string& program, int channel, int file) {
    Start start;
    for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        posix_spawn_file_actions_addopen(&start.files, standard, "/dev/null", O_RDWR, 0);
    posix_spawn_file_actions_adddup2(&start.files, channel, channel_number);
    posix_spawn_file_actions_adddup2(&start.files, file, file_number);
    std::string name = program;
    char* const words[] = {name.data(), nullptr};
    char* const environment[] = {nullptr};
    pid_t child = -1;
    if (::posix_spawn(&child, program.c_str(), &start.files, &start.attributes, words,
                      environment) != 0)
        return -1;
    return child;
}

}  // namespace

ReaderProcess::ReaderProcess(const std::string& program, int file, std::chrono::milliseconds limit)
    : left_(limit) {
    int ends[2];
    if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) throw End::NotStarted;
    Owned here(ends[0]);
    const Owned there(ends[1]);
    const Owned handed_over(file);
    ::close(ends[0]);
    ::close(ends[1]);
    child_ = started(program, there.number(), handed_over.number());
    if (child_ < 0) throw End::NotStarted;
    channel_ = here.release();
}

ReaderProcess::~ReaderProcess() { kill(); }

int ReaderProcess::kill() {
    if (child_ < 0) return 0;
    ::close(channel_);
    ::kill(child_, SIGKILL);
    int status = 0;
    while (::waitpid(child_, &status, 0) < 0 && errno == EINTR) {
    }
    child_ = -1;
    return status;
}

void ReaderProcess::end(End why) {
    // One that could not be loaded has ended by itself.
    const int status = kill();
    if (WIFEXITED(status) && WEXITSTATUS(status) == loader_failed) why = End::NotStarted;
    ended_ = why;
    throw why;
}

std::string ReaderProcess::ask(const Message& question) {
    if (ended_) throw *ended_;
    const auto begin = Clock::now();
    const auto until = begin + left_;
    const auto length = static_cast<MessageLength>(question.bytes().size());
    std::string bytes(sizeof length, '\0');
    std::memcpy(bytes.data(), &length, sizeof length);
    bytes += question.bytes();
    // A question is far smaller than what the system takes at once.
    if (::send(channel_, bytes.data(), bytes.size(), MSG_NOSIGNAL | MSG_DONTWAIT) !=
        static_cast<ssize_t>(bytes.size()))
        end(End::Broken);
    MessageLength answer_length = 0;
    char head[sizeof answer_length];
    receive(head, sizeof head, until);
    std::memcpy(&answer_length, head, sizeof head);
    if (answer_length > longest_message) end(End::Broken);
    std::string answer(answer_length, '\0');
    receive(answer.data(), answer.size(), until);
    left_ = until - Clock::now();
    return answer;
}

void ReaderProcess::receive(char* bytes, std::size_t length, Clock::time_point until) {
    using std::chrono::milliseconds;
    while (length > 0) {
        const auto wait = std::chrono::duration_cast<milliseconds>(until - Clock::now()).count();
        if (wait <= 0) end(End::OutOfTime);
        pollfd readable = {channel_, POLLIN, 0};
        const int ready = ::poll(&readable, 1, static_cast<int>(wait));
        if (ready == 0 || (ready < 0 && errno == EINTR)) continue;
        const ssize_t got = ready < 0 ? -1 : ::recv(channel_, bytes, length, 0);
        if (got < 0 && errno == EINTR) continue;
        if (got <= 0) end(End::Broken);
        bytes += got;
        length -= static_cast<std::size_t>(got);
    }
}

}  // namespace zel::access
