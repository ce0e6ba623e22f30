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

TEST(Program, tells_in_one_line_that_the_display_cannot_be_reached) {
    if (!std::filesystem::exists(ZEL_PROGRAM "-desktop")) GTEST_SKIP() << "built without windows";
    for (const std::string named : {"DISPLAY=:987", "QT_QPA_PLATFORM=none-such"}) {
        const ProcessResult result =
            run_zel({named, ZEL_PROGRAM, "desktop"}, ".", {}, {}, "/usr/bin/env");
        EXPECT_EQ(result.exit_status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors,
                  "zel: the windows need a display, and the named one cannot be reached: " + named +
                      "\n");
    }
}

}  // namespace
}  // namespace zel
