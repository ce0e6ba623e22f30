#include "adapters/posix/text_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>

#include "fakes/scripted_dialogs.h"

namespace zel {
namespace {

std::string refusal(const std::string& path) {
    return refusal_of([&] { return read_text_file(path); });
}

TEST(TextFile, is_read_whole_with_its_line_ends) {
    const std::string path = testing::TempDir() + "text_file_test";
    const std::string content = std::string(200000, 'x') + "\r\nä\n";
    std::ofstream(path, std::ios::binary) << content;
    EXPECT_EQ(read_text_file(path), content);
}

TEST(TextFile, names_the_path_and_the_reason_where_it_cannot_be_read) {
    const std::string missing = testing::TempDir() + "no such file";
    EXPECT_EQ(refusal(missing), missing + ": No such file or directory");
    EXPECT_EQ(refusal(testing::TempDir()), testing::TempDir() + ": Is a directory");
    EXPECT_EQ(refusal("/dev/zero"), "/dev/zero: larger than 16 MiB");
}

}  // namespace
}  // namespace zel
