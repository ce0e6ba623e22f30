#pragma once

#include "platform/files.h"

namespace zel {

/// The files of the disk.
class PosixFiles : public Files {
public:
    [[nodiscard]] bool exists(const std::string& path) override;
    [[nodiscard]] std::string read(const std::string& path) override;
    void write(const std::string& path, std::string_view bytes) override;
    void make_folder(const std::string& path) override;
};

/// The folder of the running program's own file; empty where the system does not tell it.
[[nodiscard]] std::string program_folder();

}  // namespace zel
