#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>

#include "cli/process.h"
#include "fakes/test_data.h"

// Runs of the whole program, one per folder of tests/cases/<command>/<name>/. expected.json there:
//   args         words after the command; "case.json" by default stands first
//   exit         exit status
//   stdout       where it is an object: a part of the JSON document on standard output. Numbers
//                agree within 1e-6 of their size, or within "tolerance".
//                where it is a text or a list of texts: each stands in standard output;
//                "" is an empty standard output
//   stderr       the same for standard error

namespace zel {
namespace {

using nlohmann::json;
namespace fs = std::filesystem;

json read_json(const fs::path& path) { return json::parse(std::ifstream(path)); }

void expect_output(const json& expected, const std::string& actual, double tolerance) {
    if (expected.is_object()) {
        const json document = json::parse(actual, nullptr, false);
        ASSERT_FALSE(document.is_discarded()) << "no JSON document:\n" << actual;
        expect_part(expected, document, {tolerance, tolerance}, "");
    } else if (expected.is_string() && expected.get<std::string>().empty()) {
        EXPECT_EQ(actual, "");
    } else {
        for (const json& part : expected.is_array() ? expected : json::array({expected}))
            EXPECT_THAT(actual, testing::HasSubstr(part.get<std::string>()));
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
    const fs::path folder = GetParam();
    const json expected = read_json(folder / "expected.json");
    std::vector<std::string> words = {folder.parent_path().filename()};
    for (const json& word : expected.value("args", json::array({"case.json"})))
        words.push_back(word);
    const ProcessResult result = run_zel(words, folder, expected.value("stdin", ""));
    EXPECT_EQ(result.exit_status, expected.at("exit").get<int>()) << result.errors;
    const double tolerance = expected.value("tolerance", 1e-6);
    if (expected.contains("stdout")) expect_output(expected["stdout"], result.output, tolerance);
    if (expected.contains("stderr")) expect_output(expected["stderr"], result.errors, tolerance);
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
