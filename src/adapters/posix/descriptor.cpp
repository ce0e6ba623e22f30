#include "adapters/posix/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace zel {

Descriptor::Descriptor(const std::string& path)
    : number_(::open(path.c_str(), O_RDONLY | O_CLOEXEC)) {}

Descriptor::~Descriptor() {
    if (number_ > STDIN_FILENO) ::close(number_);
}

PlatformFault posix_fault(int error_number) {
    switch (error_number) {
        case EACCES:
        case EPERM:
        case EROFS: return PlatformFault::AccessDenied;
        case ENOENT:
        case ENOTDIR:
        case ENXIO: return PlatformFault::PathMissing;
        case EBUSY:
        case ETXTBSY:
        case EWOULDBLOCK: return PlatformFault::FileOpen;
        case ENOSPC:
        case EDQUOT:
        case EFBIG: return PlatformFault::DiskFull;
        case EIO: return PlatformFault::DeviceFailed;
        case ENOMEM: return PlatformFault::OutOfMemory;
        default: return PlatformFault::Unforeseen;
    }
}

}  // namespace zel
