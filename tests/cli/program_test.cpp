#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/process.h"
#include "fakes/scratch_folder.h"

namespace zel {
namespace {

TEST(Program, tells_that_the_program_for_windows_or_drawings_is_missing) {
    const ScratchFolder folder;
    std::filesystem::copy_file(ZEL_PROGRAM, folder.file("zel"));
    const std::string missing = ": No such file or directory\n";
    for (const auto& [words, told] :
         {std::pair{std::vector<std::string>{"desktop"},
                    "zel: the windows cannot be opened: " + folder.file("zel-desktop") + missing},
          {{"graph", "steady", "-", "-o", "a.svg"},
           "zel: the diagram cannot be drawn: " + folder.file("zel-draw") + missing}}) {
        const ProcessResult result = run_zel(words, ".", {}, {}, folder.file("zel"));
        EXPECT_EQ(result.exit_status, 1);
        EXPECT_EQ(result.output, "");
        EXPECT_EQ(result.errors, told);
    }
}

TEST(Program, draws_nothing_where_there_is_no_font) {
    if (!std::filesystem::exists(ZEL_PROGRAM "-draw")) GTEST_SKIP() << "built without drawings";
    const ScratchFolder folder;
    folder.write("fonts.conf", "<fontconfig></fontconfig>");
    const std::string example = ZEL_SOURCE_DIR "/examples/transient-twin-264-34.json";
    const ProcessResult result =
        run_zel({"FONTCONFIG_FILE=" + folder.file("fonts.conf"), ZEL_PROGRAM, "graph", "transient",
                 example, "-o", "a.png"},
                folder.path(), {}, {}, "/usr/bin/env");
    EXPECT_EQ(result.exit_status, 2);
    EXPECT_EQ(result.errors, "zel: there is no font installed to draw with\n");
    EXPECT_FALSE(std::filesystem::exists(folder.file("a.png")));
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

/// A run of zel by a shell, which sets up what it meets.
ProcessResult by_shell(const ScratchFolder& folder, const std::string& before,
                       const std::string& words) {
    return run_zel({"-c", before + " " + ZEL_PROGRAM + " " + words}, folder.path().string(), {}, {},
                   "/bin/sh");
}

TEST(Program, says_what_a_failing_surrounding_is) {
    const ScratchFolder folder;
    const char* const template_words = "template steady-fix -o a.xlsx";
    for (const auto& [before, words, status, told] :
         {std::tuple{"TMPDIR=/not/there", template_words, 2,
                     "zel: a new workbook cannot be made: no temporary files in /not/there "
                     "(TMPDIR): No such file or directory\n"},
          {"ulimit -f 1;", template_words, 2, " (TMPDIR): File too large\n"},
          {"", "--help > /dev/full", 1, "zel: standard output cannot be written\n"},
          {"", "steady --help > /dev/full", 1, "zel: standard output cannot be written\n"}}) {
        const ProcessResult result = by_shell(folder, before, words);
        EXPECT_EQ(result.exit_status, status) << before << words;
        EXPECT_THAT(result.errors, testing::EndsWith(told)) << before << words;
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

}  // namespace
}  // namespace zel
