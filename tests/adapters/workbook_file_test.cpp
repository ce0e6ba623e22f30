#include "adapters/posix/workbook_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "adapters/posix/text_file.h"
#include "platform/workbook.h"

namespace zel {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class WorkbookFileTest : public testing::Test {
protected:
    WorkbookFileTest() {
        std::string name = testing::TempDir() + "workbook_file_XXXXXX";
        folder = ::mkdtemp(name.data());
        path = (folder / "a.xlsx").string();
        std::ofstream(path) << "former";
    }
    ~WorkbookFileTest() override { fs::remove_all(folder); }

    /// Opens and replaces the file, with `between` in between.
    std::optional<WorkbookError> refusal(const std::function<void()>& between = [] {}) const {
        try {
            WorkbookFile file(path);
            EXPECT_EQ(file.read(), "former");
            between();
            file.replace("new");
        } catch (const WorkbookError& error) {
            EXPECT_THAT(error.what(), HasSubstr(path));
            return error;
        }
        return std::nullopt;
    }
    static std::optional<WorkbookFault> fault_of(const std::optional<WorkbookError>& error) {
        if (!error) return std::nullopt;
        return error->fault();
    }

    fs::path folder;
    std::string path;
};

TEST_F(WorkbookFileTest, an_untouched_file_is_replaced) {
    EXPECT_FALSE(refusal());
    EXPECT_EQ(read_text_file(path), "new");
}

TEST_F(WorkbookFileTest, what_is_no_file_is_refused) {
    path = (folder / "none.xlsx").string();
    EXPECT_EQ(fault_of(refusal()), WorkbookFault::Missing);
    path = folder.string();
    EXPECT_EQ(fault_of(refusal()), WorkbookFault::Denied);
    path = "/dev/null";
    EXPECT_EQ(fault_of(refusal()), WorkbookFault::Denied);
}

TEST_F(WorkbookFileTest, marks_of_spreadsheet_programs_refuse_it) {
    for (const char* mark : {".~lock.a.xlsx#", "~$a.xlsx"}) {
        std::ofstream(folder / mark) << "somebody";
        const auto refused = refusal();
        EXPECT_EQ(fault_of(refused), WorkbookFault::Locked) << mark;
        EXPECT_THAT(refused->what(), HasSubstr(mark));
        fs::remove(folder / mark);
    }
    EXPECT_EQ(fault_of(refusal([&] { std::ofstream(folder / "~$a.xlsx") << "x"; })),
              WorkbookFault::Locked);
    EXPECT_EQ(read_text_file(path), "former");
}

TEST_F(WorkbookFileTest, a_mark_beside_the_file_behind_a_link_refuses_it) {
    fs::create_directory(folder / "there");
    fs::rename(path, folder / "there" / "b.xlsx");
    fs::create_symlink("there/b.xlsx", path);
    EXPECT_FALSE(refusal([&] {}));
    std::ofstream(folder / "there" / "b.xlsx") << "former";
    std::ofstream(folder / "there" / ".~lock.b.xlsx#") << "somebody";
    EXPECT_EQ(fault_of(refusal()), WorkbookFault::Locked);
}

TEST_F(WorkbookFileTest, a_lock_of_another_program_refuses_it) {
    int ready[2];
    int done[2];
    ASSERT_EQ(::pipe(ready) + ::pipe(done), 0);
    const pid_t other = ::fork();
    char byte = 'x';
    if (other == 0) {
        const int file = ::open(path.c_str(), O_RDWR);
        struct flock lock {};
        lock.l_type = F_WRLCK;
        lock.l_whence = SEEK_SET;
        byte = ::fcntl(file, F_SETLK, &lock) == 0 ? 'y' : 'n';
        (void)!::write(ready[1], &byte, 1);
        (void)!::read(done[0], &byte, 1);
        ::_exit(0);
    }
    ASSERT_EQ(::read(ready[0], &byte, 1), 1);
    EXPECT_EQ(byte, 'y');
    EXPECT_EQ(fault_of(refusal()), WorkbookFault::Locked);
    ASSERT_EQ(::write(done[1], &byte, 1), 1);
    ::waitpid(other, nullptr, 0);
    EXPECT_FALSE(refusal());
}

TEST_F(WorkbookFileTest, a_file_that_was_changed_meanwhile_is_left_alone) {
    EXPECT_EQ(fault_of(refusal([&] { std::ofstream(path) << "of another"; })),
              WorkbookFault::Changed);
    EXPECT_EQ(read_text_file(path), "of another");
}

TEST_F(WorkbookFileTest, what_cannot_be_replaced_is_refused_at_once) {
    const bool root = ::geteuid() == 0;
    constexpr uid_t nobody = 65534;
    if (root) {
        ASSERT_EQ(::chown(folder.c_str(), nobody, nobody), 0);
        ASSERT_EQ(::chown(path.c_str(), nobody, nobody), 0);
        ASSERT_EQ(::seteuid(nobody), 0);
    }
    ::chmod(path.c_str(), 0444);
    EXPECT_EQ(fault_of(refusal()), WorkbookFault::Denied);
    ::chmod(path.c_str(), 0644);
    ::chmod(folder.c_str(), 0555);
    EXPECT_EQ(fault_of(refusal()), WorkbookFault::Denied);
    ::chmod(folder.c_str(), 0755);
    EXPECT_FALSE(refusal());
    if (root) {
        ASSERT_EQ(::seteuid(0), 0);
    }
}

}  // namespace
}  // namespace zel
