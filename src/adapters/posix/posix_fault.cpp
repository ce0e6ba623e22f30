#include "adapters/posix/posix_fault.h"

#include <cerrno>

namespace zel {

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
