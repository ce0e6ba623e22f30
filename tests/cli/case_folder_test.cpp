#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>

#include "cli/process.h"
#include "fakes/scratch_folder.h"
#include "fakes/test_data.h"

// Runs of the whole program, one folder of tests/cases/<command>/<name>/ each, in a copy of it.
// expected.json there tells one run, or several one behind the other in the list "runs":
//   args         words after the command; "case.json" by default stands first
//   words        instead of it: all words; {root} is the folder of the sources
//   stdin        standard input
//   exit         exit status
//   stdout       where it is an object: a part of the JSON document on standard output. Numbers
//                agree within 1e-6 of their size, or within "tolerance".
//                where it is a text or a list of texts: each stands in standard output;
//                "" is an empty standard output
//   stderr       the same for standard error
//   lacks        stands in neither of them
// And around the runs (the user's home is the folder "home", which is not there at first):
//   given        files that are there before, with their text
//   copied       the same, as copies of files of the sources
//   files        files afterwards: their text, a list of texts that stand in it, or null for none
//   unchanged    files whose bytes are those from before
//   windows      true: it needs the program with the windows

namespace zel {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

json read_json(const fs::path& path) { return json::parse(std::ifstream(path)); }

void expect_parts(const json& parts, const std::string& actual) {
    for (const json& part : parts.is_array() ? parts : json::array({parts}))
        EXPECT_THAT(actual, testing::HasSubstr(part.get<std::string>()));
}

void expect_output(const json& expected, const std::string& actual, double tolerance) {
    if (expected.is_object()) {
        const json document = json::parse(actual, nullptr, false);
        ASSERT_FALSE(document.is_discarded()) << "no JSON document:\n" << actual;
        expect_part(expected, document, {tolerance, tolerance}, "");
    } else if (expected.is_string() && expected.get<std::string>().empty()) {
        EXPECT_EQ(actual, "");
    } else {
        expect_parts(expected, actual);
    }
}

std::vector<std::string> words_of(const json& run, const std::string& command) {
    std::vector<std::string> words;
    if (!run.contains("words")) words.push_back(command);
    for (std::string word : run.value("words", run.value("args", json::array({"case.json"})))) {
        if (word.starts_with("{root}")) word.replace(0, 6, ZEL_SOURCE_DIR);
        words.push_back(word);
    }
    return words;
}

void expect_run(const json& run, const std::string& command, const ScratchFolder& folder) {
    const std::vector<std::string> words = words_of(run, command);
    SCOPED_TRACE(testing::PrintToString(words));
    const ProcessResult result =
        run_zel(words, folder.path(), run.value("stdin", ""), folder.file("home"));
    EXPECT_EQ(result.exit_status, run.at("exit").get<int>()) << result.errors;
    const double tolerance = run.value("tolerance", 1e-6);
    if (run.contains("stdout")) expect_output(run["stdout"], result.output, tolerance);
    if (run.contains("stderr")) expect_output(run["stderr"], result.errors, tolerance);
    for (const std::string lacking :
         run.contains("lacks") ? json::array({run["lacks"]}) : json::array())
        EXPECT_THAT(result.output + result.errors, testing::Not(testing::HasSubstr(lacking)));
}

void expect_file(const json& expected, const ScratchFolder& folder, const std::string& name) {
    EXPECT_EQ(fs::exists(folder.file(name)), !expected.is_null()) << name;
    if (expected.is_array()) expect_parts(expected, folder.read(name));
    if (expected.is_string()) {
        EXPECT_EQ(folder.read(name), expected.get<std::string>()) << name;
    }
}

std::vector<fs::path> case_folders() {
    std::vector<fs::path> folders;
    for (const auto& entry :
         fs::recursive_directory_iterator(fs::path(ZEL_SOURCE_DIR) / "tests" / "cases"))
        if (entry.path().filename() == "expected.json")
            folders.push_back(entry.path().parent_path());
    std::sort(folders.begin(), folders.end());
    return folders;
}

class CaseFolder : public testing::TestWithParam<fs::path> {};

TEST_P(CaseFolder, gives_what_is_expected) {
    const json expected = read_json(GetParam() / "expected.json");
    if (expected.value("windows", false) && !fs::exists(ZEL_PROGRAM "-desktop"))
        GTEST_SKIP() << "built without the windows";
    const std::string command = GetParam().parent_path().filename();
    const auto around = [&](const char* key) { return expected.value(key, json::object()); };
    const json given = around("given");
    const json copied = around("copied");
    const json files = around("files");
    const ScratchFolder folder;
    fs::copy(GetParam(), folder.path());
    for (const auto& [name, text] : given.items()) folder.write(name, text);
    for (const auto& [name, source] : copied.items()) {
        folder.write(name, "");
        fs::copy_file(fs::path(ZEL_SOURCE_DIR) / source, folder.file(name),
                      fs::copy_options::overwrite_existing);
    }
    json before = json::object();
    for (const std::string name : expected.value("unchanged", json::array()))
        before[name] = folder.read(name);
    for (const json& run : expected.value("runs", json::array({expected})))
        expect_run(run, command, folder);
    for (const auto& [name, text] : files.items()) expect_file(text, folder, name);
    for (const auto& [name, text] : before.items()) expect_file(text, folder, name);
}

std::string test_name(const testing::TestParamInfo<fs::path>& info) {
    std::string name =
        info.param.parent_path().filename().string() + "_" + info.param.filename().string();
    std::replace_if(
        name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    return name;
}

INSTANTIATE_TEST_SUITE_P(Cases, CaseFolder, testing::ValuesIn(case_folders()), test_name);

}  // namespace
}  // namespace zel
