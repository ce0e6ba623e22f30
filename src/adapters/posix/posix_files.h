#pragma once

#include "adapters/posix/shared_files.h"
#include "platform/files.h"

namespace zel {

/// The files of the disk.
class PosixFiles : public Files {
public:
    [[nodiscard]] bool exists(const std::string& path) override;
    [[nodiscard]] std::string content(const std::string& path) override;
    void write(const std::string& path, std::string_view bytes) override;
    [[nodiscard]] std::optional<std::string> read(const std::string& path) const override;
    void update(const std::string& path,
                const std::function<std::string(const std::string&)>& edit) override;

private:
    SharedFiles shared_;
};

/// The folder of the running program's own file; empty where the system does not tell it.
[[nodiscard]] std::string program_folder();

/// The nearest folder, one to three above that of `file`, in which `inside` exists; empty where
/// there is none. Links of `file` are followed.
[[nodiscard]] std::string folder_above(const std::string& file, std::string_view inside);

}  // namespace zel
