#pragma once

#include <string>

#include "platform/errors.h"

namespace zel {

/// A file that is open for reading, or standard input. It is not open where its number is below 0;
/// `errno` then says why.
class Descriptor {
public:
    Descriptor() = default;
    explicit Descriptor(const std::string& path);
    ~Descriptor();
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    [[nodiscard]] int number() const { return number_; }

private:
    int number_ = 0;
};

/// What a number of `errno` means to the program.
[[nodiscard]] PlatformFault posix_fault(int error_number);

/// What the system says of a number of `errno`; in German where the program has words for it.
[[nodiscard]] Reason system_reason(int error_number);

/// `reason` why writing failed by a number of `errno`, what stands there now, and what the user can
/// do: "No space left on device; the former file is unchanged; make room there, or choose another
/// place".
[[nodiscard]] Reason write_failure(Reason reason, int error_number, const Text& stands);

}  // namespace zel
