#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/process.h"

namespace zel {
namespace {

using testing::HasSubstr;

TEST(Program, tells_its_version_and_its_commands) {
    EXPECT_EQ(run_zel({"--version"}, ".").output, "ZEL V.8.2\n");
    const ProcessResult help = run_zel({"--help"}, ".");
    EXPECT_EQ(help.exit_status, 0);
    for (const char* command : {"steady", "short-circuit", "settings", "desktop"})
        EXPECT_THAT(help.output, HasSubstr(command));
}

TEST(Program, refuses_a_command_that_it_does_not_have) {
    for (const std::vector<std::string>& words :
         std::vector<std::vector<std::string>>{{}, {"stead"}, {"steady"}, {"steady", "a", "b"}}) {
        const ProcessResult result = run_zel(words, ".");
        EXPECT_EQ(result.exit_status, 2);
        EXPECT_EQ(result.output, "");
        EXPECT_NE(result.errors, "");
    }
}

TEST(Program, rates_the_shipped_examples) {
    const ProcessResult result =
        run_zel({"steady", "examples/380kV-twin-264-34.json"}, ZEL_SOURCE_DIR);
    EXPECT_EQ(result.exit_status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
    EXPECT_THAT(result.output, HasSubstr("Cigre TB 601 / Cigre TB 207 / Webs / Kirn"));
    EXPECT_THAT(result.output, HasSubstr("2-conductor-bundle by Cigre TB 207 :      1331 A"));
    EXPECT_THAT(run_zel({"steady", "examples/tube-120x8.json"}, ZEL_SOURCE_DIR).output,
                HasSubstr("single conductor by Puffer :  3167 A"));
}

TEST(Program, judges_the_shipped_examples) {
    const ProcessResult line =
        run_zel({"short-circuit", "examples/short-circuit-264-34.json"}, ZEL_SOURCE_DIR);
    EXPECT_EQ(line.exit_status, 0) << line.errors;
    EXPECT_EQ(line.errors, "");
    EXPECT_THAT(line.output, HasSubstr("Der Leiter ist thermisch kurzschlußfest !"));
    EXPECT_THAT(line.output, HasSubstr("I_th :       34.96 kA"));
    const ProcessResult breaker =
        run_zel({"short-circuit", "examples/short-circuit-circuit-breaker.json"}, ZEL_SOURCE_DIR);
    EXPECT_EQ(breaker.exit_status, 0) << breaker.errors;
    EXPECT_THAT(breaker.output, HasSubstr("Das Betriebsmittel ist thermisch nicht kurzschlußfest"));
}

TEST(Program, says_that_there_is_no_display_for_the_windows) {
    const ProcessResult result = run_zel({"desktop"}, ".");
    EXPECT_EQ(result.exit_status, 1);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.errors, HasSubstr("display"));
}

}  // namespace
}  // namespace zel
