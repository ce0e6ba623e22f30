#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "adapters/posix/text_file.h"
#include "fakes/scratch_folder.h"
#include "fakes/scripted_dialogs.h"

namespace zel {
namespace {

namespace fs = std::filesystem;

class WriteTextFile : public testing::Test {
protected:
    WriteTextFile() {
        std::string name = testing::TempDir() + "write_text_file_XXXXXX";
        folder = ::mkdtemp(name.data());
    }
    ~WriteTextFile() override {
        fs::permissions(folder, fs::perms::owner_all);
        fs::remove_all(folder);
    }

    static std::string refusal(const fs::path& path) {
        return refusal_of([&] { write_text_file(path, "new"); });
    }
    [[nodiscard]] int files() const {
        return static_cast<int>(std::distance(fs::directory_iterator(folder), {}));
    }
    static mode_t mode_of(const fs::path& path) {
        struct stat state {};
        ::stat(path.c_str(), &state);
        return state.st_mode & 07777U;
    }

    fs::path folder;
};

TEST_F(WriteTextFile, new_file_has_the_content_and_the_usual_mode) {
    const fs::path path = folder / "case.json";
    EXPECT_FALSE(file_exists(path));
    const std::string content = std::string(300000, 'x') + "ä\n";
    write_text_file(path, content);
    EXPECT_TRUE(file_exists(path));
    EXPECT_EQ(read_text_file(path), content);
    const mode_t mask = ::umask(0);
    ::umask(mask);
    EXPECT_EQ(mode_of(path), 0666U & ~mask);
    EXPECT_EQ(files(), 1);
}

TEST_F(WriteTextFile, replaced_file_keeps_its_mode) {
    const fs::path path = folder / "case.json";
    std::ofstream(path) << "a longer former content";
    ::chmod(path.c_str(), 0640);
    write_text_file(path, "new");
    EXPECT_EQ(read_text_file(path), "new");
    EXPECT_EQ(mode_of(path), 0640U);
    EXPECT_EQ(files(), 1);
}

TEST_F(WriteTextFile, links_are_followed_and_stay_links) {
    fs::create_directory(folder / "there");
    fs::create_symlink("there/case.json", folder / "link");
    fs::create_symlink("link", folder / "link_to_link");
    for (const char* content : {"to a file that is not there yet", "to one that is"}) {
        write_text_file(folder / "link_to_link", content);
        EXPECT_TRUE(fs::is_symlink(folder / "link_to_link"));
        EXPECT_TRUE(fs::is_symlink(folder / "link"));
        EXPECT_EQ(read_text_file(folder / "there" / "case.json"), content);
    }
    fs::create_symlink("round", folder / "round");
    EXPECT_THAT(refusal(folder / "round"), testing::HasSubstr("Too many levels"));
}

TEST_F(WriteTextFile, path_and_reason_are_named_where_it_cannot_be_written) {
    const fs::path missing = folder / "no such folder" / "case.json";
    EXPECT_EQ(refusal(missing), missing.string() + ": No such file or directory");
    EXPECT_EQ(refusal(folder), folder.string() + ": Is a directory");
    EXPECT_EQ(refusal("/dev/null"), "/dev/null: not a regular file");
    EXPECT_EQ(refusal("/dev/full"), "/dev/full: not a regular file");
    EXPECT_EQ(files(), 0);
}

TEST_F(WriteTextFile, former_file_stays_where_the_folder_or_the_file_is_protected) {
    const AsNobody nobody(folder);  // nothing is protected from root
    const fs::path path = folder / "case.json";
    std::ofstream(path) << "former";
    ::chmod(path.c_str(), 0440);
    EXPECT_THAT(refusal(path), testing::HasSubstr("Permission denied"));
    ::chmod(path.c_str(), 0640);
    ::chmod(folder.c_str(), 0550);
    EXPECT_THAT(refusal(path), testing::HasSubstr("Permission denied"));
    EXPECT_EQ(read_text_file(path), "former");
    EXPECT_EQ(files(), 1);
}

TEST_F(WriteTextFile, name_that_is_too_long_leaves_nothing_behind) {
    fs::create_directory(folder / "name");
    const fs::path long_name = folder / std::string(252, 'x');
    EXPECT_THAT(refusal(long_name), testing::HasSubstr("File name too long"));
    EXPECT_EQ(files(), 1);
}

}  // namespace
}  // namespace zel
