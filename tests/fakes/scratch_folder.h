#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace zel {

/// A folder of its own for a test, gone at its end.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = testing::TempDir() + "zel_test_XXXXXX";
        path_ = ::mkdtemp(name.data());
    }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    [[nodiscard]] std::string file(const std::string& name) const { return path_ / name; }
    void write(const std::string& name, const std::string& text) const {
        std::filesystem::create_directories((path_ / name).parent_path());
        std::ofstream(path_ / name, std::ios::binary) << text;
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        std::ostringstream content;
        content << std::ifstream(path_ / name, std::ios::binary).rdbuf();
        return content.str();
    }

private:
    std::filesystem::path path_;
};

/// Where the tests run as root, the test goes on as another user who owns `folder`.
class AsNobody {
public:
    explicit AsNobody(const std::filesystem::path& folder) : root_(::geteuid() == 0) {
        if (!root_) return;
        EXPECT_EQ(::chown(folder.c_str(), nobody, nobody), 0);
        EXPECT_EQ(::seteuid(nobody), 0);
    }
    ~AsNobody() {
        if (!root_) return;
        EXPECT_EQ(::seteuid(0), 0);
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

private:
    static constexpr uid_t nobody = 65534;
    bool root_;
};

}  // namespace zel
