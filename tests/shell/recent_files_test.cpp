#include "shell/recent_files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "fakes/memory_stores.h"
#include "shell/linked_libraries.h"

namespace zel {
namespace {

TEST(RecentFiles, the_last_eight_stand_there_once_the_newest_first) {
    MemorySettings store;
    RecentFiles recent(store);
    for (int i = 1; i <= 9; ++i) recent.add("/c/" + std::to_string(i) + ".json");
    recent.add("/c/x/../5.json");
    EXPECT_THAT(RecentFiles(store).all(),
                testing::ElementsAre("/c/5.json", "/c/9.json", "/c/8.json", "/c/7.json",
                                     "/c/6.json", "/c/4.json", "/c/3.json", "/c/2.json"));
    store.locked = true;
    EXPECT_NO_THROW(recent.add("/c/new.json"));
}

TEST(LinkedLibraries, each_package_that_the_build_finds_has_its_row) {
    std::ifstream file(ZEL_SOURCE_DIR "/CMakeLists.txt");
    int found = 0;
    for (std::string line; std::getline(file, line);) {
        const std::size_t call =
            std::min(line.find("find_package("), line.find("pkg_check_modules("));
        if (call == std::string::npos) continue;
        const std::size_t begin = line.find('(', call) + 1;
        const std::string package = line.substr(begin, line.find_first_of(" )", begin) - begin);
        if (package == "PkgConfig") continue;  // finds others
        ++found;
        const auto rows = linked_libraries();
        EXPECT_TRUE(std::any_of(rows.begin(), rows.end(), [&](const LinkedLibrary& row) {
            return row.package == package && !row.licence.empty();
        })) << package;
    }
    EXPECT_GT(found, 8);
}

}  // namespace
}  // namespace zel
