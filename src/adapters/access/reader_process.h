#pragma once

#include <sys/types.h>

#include <chrono>
#include <optional>
#include <string>

#include "adapters/access/wire.h"

namespace zel::access {

/// The program that reads an Access file, as a process that may die, hang and tell anything.
class ReaderProcess {
public:
    /// What became of a question that has no answer.
    enum class End : std::uint8_t { Broken, OutOfTime, NotStarted };

    /// Starts `program` over the open file. It works `limit` at the most, all its answers together.
    /// Throws `End::NotStarted`.
    ReaderProcess(const std::string& program, int file, std::chrono::milliseconds limit);
    /// Ends the process, whatever it does.
    ~ReaderProcess();
    ReaderProcess(const ReaderProcess&) = delete;
    ReaderProcess& operator=(const ReaderProcess&) = delete;

    /// The answer, whatever it is. Throws `End`; the process is gone then, and every further
    /// question ends the same way.
    [[nodiscard]] std::string ask(const Message& question);

private:
    using Clock = std::chrono::steady_clock;

    [[noreturn]] void end(End why);
    /// Gives what the process has ended with.
    int kill();
    void receive(char* bytes, std::size_t length, Clock::time_point until);

    int channel_ = -1;
    pid_t child_ = -1;
    std::optional<End> ended_;
    Clock::duration left_;
};

}  // namespace zel::access
