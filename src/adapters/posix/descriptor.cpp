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
        {ESTALE, "das Netzlaufwerk gibt die Datei nicht mehr her"},
        {ETIMEDOUT, "das Netzlaufwerk antwortet nicht"},
        {EXDEV, "liegt auf einem anderen Datenträger"},
    };
    Reason reason(std::strerror(error_number));
    for (const Row& row : rows)
        if (row.number == error_number) reason.de = row.de;
    return reason;
}

Reason write_failure(Reason reason, int error_number, const Text& stands) {
    static constexpr Text room = {
        "{0}; {1}; schaffen Sie dort Platz, oder wählen Sie einen anderen Ort",
        "{0}; {1}; make room there, or choose another place"};
    static constexpr Text place = {"{0}; {1}; wählen Sie einen anderen Ort",
                                   "{0}; {1}; choose another place"};
    static constexpr Text drive = {
        "{0}; {1}; prüfen Sie Laufwerk und Netz, oder wählen Sie einen anderen Ort",
        "{0}; {1}; check the drive and the network, or choose another place"};
    static constexpr Text other = {"{0}; {1}; schließen Sie die Datei in anderen Programmen",
                                   "{0}; {1}; close the file in other programs"};
    static constexpr struct {
        int number;
        const Text& remedy;
    } rows[] = {{ENOSPC, room},     {EDQUOT, room}, {EFBIG, place},   {EACCES, place},
                {EPERM, place},     {EROFS, place}, {EXDEV, place},   {EIO, drive},
                {ESTALE, drive},    {ENXIO, drive}, {ENODEV, drive},  {ENOTCONN, drive},
                {ETIMEDOUT, drive}, {EBUSY, other}, {ETXTBSY, other}, {EWOULDBLOCK, other}};
    for (const auto& [number, remedy] : rows) {
        if (number != error_number) continue;
        reason.de = fill(remedy.de, {reason.de, stands.de});
        reason.en = fill(remedy.en, {reason.en, stands.en});
    }
    return reason;
}

}  // namespace zel
