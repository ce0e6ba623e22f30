#include "adapters/posix/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "platform/errors.h"

namespace zel {
namespace {

constexpr std::size_t piece_size = 1U << 18U;
constexpr std::size_t size_limit = 16U << 20U;
constexpr Text too_large = {"größer als 16 MiB", "larger than 16 MiB"};

[[noreturn]] void refuse(const std::string& path, int error_number) {
    throw InputError(at(path, system_reason(error_number)), posix_fault(error_number));
}

}  // namespace

bool file_exists(const std::string& path) { return ::access(path.c_str(), F_OK) == 0; }

FilePieces::FilePieces(std::string path)
    : path_(std::move(path)),
      file_(path_ == "-" ? std::make_unique<Descriptor>() : std::make_unique<Descriptor>(path_)) {
    struct stat state {};
    if (file_->number() < 0 || ::fstat(file_->number(), &state) != 0) refuse(path_, errno);
    if (path_ != "-" && S_ISREG(state.st_mode)) size_ = static_cast<std::uint64_t>(state.st_size);
}

std::string FilePieces::next() {
    std::string piece(piece_size, '\0');
    while (true) {
        const ssize_t count = ::read(file_->number(), piece.data(), piece.size());
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) refuse(path_, errno);
        piece.resize(static_cast<std::size_t>(count));
        return piece;
    }
}

std::string read_text_file(const std::string& path) {
    FilePieces pieces(path);
    std::string content;
    for (std::string piece = pieces.next(); !piece.empty(); piece = pieces.next()) {
        content += piece;
        if (content.size() > size_limit) throw InputError(at(path, Reason(too_large)));
    }
    return content;
}

}  // namespace zel
