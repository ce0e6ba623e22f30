#include "adapters/ini/ini_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include "adapters/posix/shared_files.h"
#include "fakes/scratch_folder.h"
#include "platform/errors.h"

namespace zel {
namespace {

class IniStoreTest : public testing::Test {
protected:
    ScratchFolder folder;
    SharedFiles files;
    IniStore store{files, folder.file("deep/er/flb.ini")};
};

TEST_F(IniStoreTest, a_missing_file_is_empty_and_its_folder_is_made_by_writing) {
    EXPECT_EQ(store.read("VOR", "a"), std::nullopt);
    store.write("VOR", "a", "1");
    EXPECT_EQ(store.read("vor", "A"), "1");
    EXPECT_EQ(folder.read("deep/er/flb.ini"), "[VOR]\na=1\n");
}

TEST_F(IniStoreTest, what_another_program_changes_meanwhile_counts_and_stays) {
    store.write("VOR", "a", "1");
    folder.write("deep/er/flb.ini", "[VOR]\r\nb=2\r\na=3\r\n");
    EXPECT_EQ(store.read("VOR", "a"), "3");
    store.write("VOR", "a", "4");
    EXPECT_EQ(folder.read("deep/er/flb.ini"), "[VOR]\r\nb=2\r\na=4\r\n");
}

TEST_F(IniStoreTest, processes_that_write_at_once_lose_no_key) {
    constexpr int processes = 4;
    constexpr int keys = 25;
    for (int p = 0; p < processes; ++p)
        if (::fork() == 0) {
            for (int k = 0; k < keys; ++k)
                store.write("VOR", "k" + std::to_string(p) + "_" + std::to_string(k), "1");
            ::_exit(0);
        }
    for (int p = 0; p < processes; ++p) {
        int status = -1;
        ASSERT_GT(::wait(&status), 0);
        EXPECT_EQ(status, 0);
    }
    for (int p = 0; p < processes; ++p)
        for (int k = 0; k < keys; ++k)
            EXPECT_EQ(store.read("VOR", "k" + std::to_string(p) + "_" + std::to_string(k)), "1");
}

TEST_F(IniStoreTest, a_write_protected_file_stays_and_can_be_read) {
    folder.write("deep/er/flb.ini", "[VOR]\na=1\n");
    std::filesystem::permissions(folder.file("deep/er/flb.ini"),
                                 std::filesystem::perms::owner_read);
    ::chown(folder.file("deep/er/flb.ini").c_str(), 65534, 65534);
    ::chown(folder.path().c_str(), 65534, 65534);
    const AsNobody nobody(folder.file("deep/er"));
    EXPECT_THROW(store.write("VOR", "a", "2"), OutputError);
    EXPECT_EQ(store.read("VOR", "a"), "1");
}

TEST_F(IniStoreTest, a_file_in_utf16_is_left_alone) {
    const std::string text("\xFF\xFE[\0V\0O\0R\0]\0", 12);
    folder.write("deep/er/flb.ini", text);
    EXPECT_EQ(store.read("VOR", "a"), std::nullopt);
    EXPECT_THROW(store.write("VOR", "a", "2"), OutputError);
    EXPECT_EQ(folder.read("deep/er/flb.ini"), text);
}

TEST_F(IniStoreTest, refuses_a_value_with_a_line_end) {
    EXPECT_THROW(store.write("VOR", "a", "2\n[x]"), OutputError);
    EXPECT_EQ(store.read("VOR", "a"), std::nullopt);
}

}  // namespace
}  // namespace zel
