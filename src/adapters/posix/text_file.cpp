#include "adapters/posix/text_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>

#include "adapters/posix/descriptor.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr std::size_t size_limit = 16U << 20U;
constexpr Text too_large = {"größer als 16 MiB", "larger than 16 MiB"};

[[noreturn]] void refuse(const std::string& path, int error_number) {
    throw InputError(at(path, system_reason(error_number)), posix_fault(error_number));
}

}  // namespace

bool file_exists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

std::string read_text_file(const std::string& path) {
    const Descriptor file = path == "-" ? Descriptor() : Descriptor(path);
    if (file.number() < 0) refuse(path, errno);
    std::string content;
    std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t count = ::read(file.number(), buffer.data(), buffer.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) refuse(path, errno);
        if (count == 0) return content;
        content.append(buffer.data(), static_cast<std::size_t>(count));
        if (content.size() > size_limit) throw InputError(at(path, Reason(too_large)));
    }
}

}  // namespace zel
