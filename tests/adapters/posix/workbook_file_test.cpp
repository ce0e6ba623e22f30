#include "adapters/posix/workbook_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "adapters/posix/text_file.h"
#include "fakes/scratch_folder.h"
#include "platform/workbook.h"

namespace zel {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class WorkbookFileTest : public testing::Test {
protected:
    WorkbookFileTest() { folder.write("a.xlsx", "former"); }

    /// Why opening and replacing the file is refused, with `between` in between.
    std::optional<WorkbookFault> refusal(const std::function<void()>& between = [] {}) {
        try {
            WorkbookFile file(path);
            EXPECT_EQ(file.read(), "former");
            between();
            file.replace("new");
        } catch (const WorkbookError& error) {
            EXPECT_THAT(error.what(), HasSubstr(path));
            reason = error.what();
            return error.fault();
        }
        return std::nullopt;
    }

    ScratchFolder folder;
    std::string path = folder.file("a.xlsx");
    std::string reason;
};

TEST_F(WorkbookFileTest, an_untouched_file_is_replaced) {
    EXPECT_FALSE(refusal());
    EXPECT_EQ(read_text_file(path), "new");
}

TEST_F(WorkbookFileTest, what_is_no_file_is_refused) {
    path = folder.file("none.xlsx");
    EXPECT_EQ(refusal(), WorkbookFault::Missing);
    path = folder.path();
    EXPECT_EQ(refusal(), WorkbookFault::Denied);
    path = "/dev/null";
    EXPECT_EQ(refusal(), WorkbookFault::Denied);
}

TEST_F(WorkbookFileTest, marks_of_spreadsheet_programs_refuse_it) {
    for (const char* mark : {".~lock.a.xlsx#", "~$a.xlsx"}) {
        folder.write(mark, "somebody");
        const auto refused = refusal();
        EXPECT_EQ(refused, WorkbookFault::Locked) << mark;
        EXPECT_THAT(reason, HasSubstr(mark));
        fs::remove(folder.file(mark));
    }
    EXPECT_EQ(refusal([&] { folder.write("~$a.xlsx", "x"); }), WorkbookFault::Locked);
    EXPECT_EQ(read_text_file(path), "former");
}

TEST_F(WorkbookFileTest, a_mark_beside_the_file_behind_a_link_refuses_it) {
    fs::create_directory(folder.file("there"));
    fs::rename(path, folder.file("there/b.xlsx"));
    fs::create_symlink("there/b.xlsx", path);
    EXPECT_FALSE(refusal([&] {}));
    folder.write("there/b.xlsx", "former");
    folder.write("there/.~lock.b.xlsx#", "somebody");
    EXPECT_EQ(refusal(), WorkbookFault::Locked);
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
    EXPECT_EQ(refusal(), WorkbookFault::Locked);
    ASSERT_EQ(::write(done[1], &byte, 1), 1);
    ::waitpid(other, nullptr, 0);
    EXPECT_FALSE(refusal());
}

TEST_F(WorkbookFileTest, a_file_that_was_changed_meanwhile_is_left_alone) {
    EXPECT_EQ(refusal([&] { folder.write("a.xlsx", "of another"); }), WorkbookFault::Changed);
    EXPECT_EQ(read_text_file(path), "of another");
}

TEST_F(WorkbookFileTest, what_cannot_be_replaced_is_refused_at_once) {
    fs::remove(path);
    const AsNobody nobody(folder.path());
    folder.write("a.xlsx", "former");
    ::chmod(path.c_str(), 0444);
    EXPECT_EQ(refusal(), WorkbookFault::Denied);
    ::chmod(path.c_str(), 0644);
    EXPECT_FALSE(refusal());
}

}  // namespace
}  // namespace zel
