#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>

namespace zel {

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
