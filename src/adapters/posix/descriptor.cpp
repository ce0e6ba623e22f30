#include "adapters/posix/descriptor.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>

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

Reason system_reason(int error_number) {
    struct Row {
        int number;
        const char* de;
    };
    static constexpr Row rows[] = {
        {ENOENT, "Datei oder Ordner ist nicht vorhanden"},
        {ENOTDIR, "ist kein Ordner"},
        {EISDIR, "ist ein Ordner"},
        {EACCES, "keine Berechtigung"},
        {EPERM, "keine Berechtigung"},
        {EROFS, "der Datenträger ist schreibgeschützt"},
        {ENOSPC, "auf dem Datenträger ist kein Platz mehr"},
        {EDQUOT, "der zugeteilte Platz ist verbraucht"},
        {EFBIG, "die Datei wird zu groß"},
        {ENAMETOOLONG, "der Name ist zu lang"},
        {ELOOP, "zu viele Verknüpfungen"},
        {EBUSY, "wird gerade benutzt"},
        {ETXTBSY, "wird gerade benutzt"},
        {EWOULDBLOCK, "ist von einem anderen Programm gesperrt"},
        {EIO, "das Gerät meldet einen Fehler"},
        {ENOMEM, "der Speicher reicht nicht"},
        {EMFILE, "zu viele Dateien sind offen"},
        {EEXIST, "ist schon vorhanden"},
    };
    Reason reason(std::strerror(error_number));
    for (const Row& row : rows)
        if (row.number == error_number) reason.de = row.de;
    return reason;
}

}  // namespace zel
