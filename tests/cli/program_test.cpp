#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/process.h"
#include "fakes/scratch_folder.h"

namespace zel {
namespace {

TEST(Program, tells_that_the_windows_are_missing) {
    const ScratchFolder folder;
    std::filesystem::copy_file(ZEL_PROGRAM, folder.file("zel"));
    const ProcessResult result = run_zel({"desktop"}, ".", {}, {}, folder.file("zel"));
    EXPECT_EQ(result.exit_status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, testing::HasSubstr(folder.file("zel-desktop") + ": No such file"));
}

}  // namespace
}  // namespace zel
