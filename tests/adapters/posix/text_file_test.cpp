#include "adapters/posix/text_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <csignal>

#include "fakes/scratch_folder.h"
#include "fakes/scripted_dialogs.h"

namespace zel {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

class TextFile : public testing::Test {
protected:
    static std::string refusal(const std::string& path) {
        return refusal_of([&] {
            write_text_file(path, "new");
            return true;
        });
    }
    [[nodiscard]] auto files() const {
        return std::distance(fs::directory_iterator(folder.path()), {});
    }
    static mode_t mode_of(const std::string& path) {
        struct stat state {};
        ::stat(path.c_str(), &state);
        return state.st_mode & 07777U;
    }

    ScratchFolder folder;
    const std::string path = folder.file("case.json");
};

TEST_F(TextFile, a_new_one_has_the_content_and_the_usual_mode) {
    EXPECT_FALSE(file_exists(path));
    const std::string content = std::string(300000, 'x') + "\r\nä\n";
    write_text_file(path, content);
    EXPECT_TRUE(file_exists(path));
    EXPECT_EQ(folder.read("case.json"), content);
    EXPECT_EQ(read_text_file(path), content);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(mode_of(path), 0666U & ~mask);
    EXPECT_EQ(files(), 1);
}

TEST_F(TextFile, a_replaced_one_keeps_its_mode) {
    folder.write("case.json", "a longer former content");
    ::chmod(path.c_str(), 0640);
    write_text_file(path, "new");
    EXPECT_EQ(read_text_file(path), "new");
    EXPECT_EQ(mode_of(path), 0640U);
    EXPECT_EQ(files(), 1);
}

/// Writes `text` in a process that is killed behind the first 1000 bytes.
void write_and_be_killed(const std::string& path, const std::string& text) {
    const pid_t child = ::fork();
    if (child == 0) {
        const rlimit limit = {1000, 1000};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        std::signal(SIGXFSZ, SIG_DFL);
        write_text_file(path, text);
        ::_exit(0);
    }
    int state = 0;
    ::waitpid(child, &state, 0);
    ASSERT_TRUE(WIFSIGNALED(state));
}

TEST_F(TextFile, what_a_killed_run_leaves_has_the_mode_and_is_cleared_by_the_next) {
    folder.write("case.json", "former");
    ::chmod(path.c_str(), 0640);
    write_and_be_killed(path, std::string(5000, 'x'));
    ASSERT_EQ(files(), 2);
    for (const auto& entry : fs::directory_iterator(folder.path())) {
        EXPECT_EQ(mode_of(entry.path()), 0640U);
        EXPECT_EQ(entry.file_size(), entry.path() == path ? 6U : 1000U);
    }
    const std::vector<std::string> others = {"case.json.zel-tmp", "case.json.zel-tmp1-0.json",
                                             "a.json.zel-tmp1-0", "case.json.tmp1-0"};
    for (const std::string& other : others) folder.write(other, "kept");
    const std::string in_use = folder.file("case.json.zel-tmp1-0");
    const int number = ::open(in_use.c_str(), O_CREAT | O_WRONLY, 0600);
    ASSERT_EQ(::flock(number, LOCK_EX), 0);
    write_text_file(path, "new");
    EXPECT_EQ(files(), 6) << "the file, four of other names, and one that is being written";
    ::close(number);
    write_text_file(path, "newer");
    EXPECT_EQ(files(), 5);
    EXPECT_EQ(read_text_file(path), "newer");
}

TEST_F(TextFile, links_are_followed_and_stay_links) {
    fs::create_directory(folder.file("there"));
    fs::create_symlink("there/case.json", folder.file("link"));
    fs::create_symlink("link", folder.file("link_to_link"));
    for (const char* content : {"to a file that is not there yet", "to one that is"}) {
        write_text_file(folder.file("link_to_link"), content);
        EXPECT_TRUE(fs::is_symlink(folder.file("link_to_link")));
        EXPECT_TRUE(fs::is_symlink(folder.file("link")));
        EXPECT_EQ(folder.read("there/case.json"), content);
    }
    fs::create_symlink("round", folder.file("round"));
    EXPECT_THAT(refusal(folder.file("round")), HasSubstr("Too many levels"));
}

TEST_F(TextFile, path_and_reason_are_named_where_it_cannot_be_read_or_written) {
    const std::string missing = folder.file("no such file");
    const std::string nowhere = folder.file("no such folder/case.json");
    const std::string long_name = folder.file(std::string(252, 'x'));
    const std::string folder_name = folder.path().string();
    for (const auto& [name, reason] : {std::pair{missing, ": No such file or directory"},
                                       {folder_name, ": Is a directory"},
                                       {"/dev/zero", ": larger than 16 MiB"}})
        EXPECT_EQ(refusal_of([&, &file = name] { return read_text_file(file); }), name + reason);
    for (const auto& [name, reason] : {std::pair{nowhere, ": No such file or directory"},
                                       {folder_name, ": Is a directory"},
                                       {"/dev/null", ": not a regular file"},
                                       {"/dev/full", ": not a regular file"},
                                       {long_name, ": File name too long"}})
        EXPECT_EQ(refusal(name), name + reason);
    EXPECT_EQ(files(), 0);
}

TEST_F(TextFile, the_former_stays_where_it_is_protected_and_says_so) {
    const AsNobody nobody(folder.path());  // nothing is protected from root
    folder.write("case.json", "former");
    ::chmod(path.c_str(), 0440);
    EXPECT_EQ(refusal(path), path + ": Permission denied; the former file is unchanged; choose "
                                    "another place");
    ::chmod(path.c_str(), 0640);
    EXPECT_EQ(read_text_file(path), "former");
    EXPECT_EQ(files(), 1);
}

TEST_F(TextFile, in_a_folder_that_takes_no_new_files_only_those_that_are_there_are_written) {
    const AsNobody nobody(folder.path());
    folder.write("case.json", "a longer former content");
    ::chmod(folder.path().c_str(), 0550);
    const std::string other = folder.file("other.json");
    EXPECT_EQ(refusal(other),
              other + ": Permission denied; nothing is written; choose another place");
    write_text_file(path, "new");
    EXPECT_EQ(read_text_file(path), "new");
    const rlimit usual = {RLIM_INFINITY, RLIM_INFINITY};
    const rlimit full = {1000, RLIM_INFINITY};
    std::signal(SIGXFSZ, SIG_IGN);
    ::setrlimit(RLIMIT_FSIZE, &full);
    const std::string told =
        refusal_of([&] { return write_text_file(path, std::string(5000, 'x')), true; });
    ::setrlimit(RLIMIT_FSIZE, &usual);
    EXPECT_THAT(told, HasSubstr("the former file is unchanged"));
    EXPECT_EQ(read_text_file(path), "new");
    EXPECT_EQ(files(), 1);
    ::chmod(folder.path().c_str(), 0750);
}

TEST_F(TextFile, a_replaced_one_keeps_its_group_and_attributes) {
    folder.write("case.json", "former");
    if (::setxattr(path.c_str(), "user.note", "kept", 4, 0) != 0) GTEST_SKIP() << "no attributes";
    const bool given = ::chown(path.c_str(), 1234, 4321) == 0;  // the administrator may
    write_text_file(path, "new");
    char value[8] = {};
    EXPECT_EQ(::getxattr(path.c_str(), "user.note", value, sizeof value), 4);
    EXPECT_STREQ(value, "kept");
    struct stat state {};
    ::stat(path.c_str(), &state);
    EXPECT_EQ(state.st_uid, given ? 1234U : ::geteuid());
    EXPECT_EQ(state.st_gid, given ? 4321U : ::getegid());
}

/// The rights that a group had are not those of another one.
TEST_F(TextFile, what_belongs_to_another_group_loses_its_rights) {
    if (::geteuid() != 0) GTEST_SKIP() << "only the administrator can set this up";
    folder.write("case.json", "former");
    ::chmod(path.c_str(), 0662);
    ASSERT_EQ(::chown(path.c_str(), 1234, 4321), 0);
    const AsNobody nobody(folder.path());
    write_text_file(path, "new");
    EXPECT_EQ(mode_of(path), 0622U);
}

TEST_F(TextFile, one_that_may_replace_nothing_leaves_what_has_come_meanwhile) {
    NewFile file(path, NewFile::Over::Nothing);
    file.write("new");
    folder.write("case.json", "of another");
    EXPECT_EQ(refusal_of([&] { return file.put_in_place(), true; }), path + ": File exists");
    EXPECT_EQ(refusal_of([&] { return NewFile(path, NewFile::Over::Nothing), true; }),
              path + ": File exists");
    EXPECT_EQ(read_text_file(path), "of another");
}

}  // namespace
}  // namespace zel
