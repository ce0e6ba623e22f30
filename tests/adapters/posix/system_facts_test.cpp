#include "adapters/posix/system_facts.h"

#include <gtest/gtest.h>

#include <map>

namespace zel {
namespace {

SystemFacts facts(const std::map<std::string, std::string>& variables) {
    return system_facts([&](const char* name) -> std::optional<std::string> {
        const auto found = variables.find(name);
        return found == variables.end() ? std::nullopt : std::optional(found->second);
    });
}

TEST(SystemFacts, folders_follow_the_variables_where_these_are_absolute) {
    EXPECT_EQ(facts({{"HOME", "/h"}}).data_folder, "/h/.local/share");
    EXPECT_EQ(facts({{"HOME", "/h"}}).config_folder, "/h/.config");
    EXPECT_EQ(facts({{"HOME", "/h"}, {"XDG_DATA_HOME", "/d//"}}).data_folder, "/d");
    EXPECT_EQ(facts({{"HOME", "/h"}, {"XDG_CONFIG_HOME", "/c"}}).config_folder, "/c");
    for (const char* not_absolute : {"", "d"})
        EXPECT_EQ(facts({{"HOME", "/h"}, {"XDG_DATA_HOME", not_absolute}}).data_folder,
                  "/h/.local/share");
}

TEST(SystemFacts, without_a_home_the_one_of_the_user_counts) {
    EXPECT_TRUE(facts({}).data_folder.starts_with('/'));
    EXPECT_TRUE(facts({}).data_folder.ends_with("/.local/share"));
}

TEST(SystemFacts, version_is_one_that_the_program_runs_on) {
    EXPECT_EQ(system_facts().major_version, "10");
}

}  // namespace
}  // namespace zel
