#include <csignal>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <random>
#include <thread>

#include "adapters/posix/workbook_file.h"
#include "adapters/xlsx/xlsx_workbook.h"
#include "cli/process.h"

// Workbooks as the program makes, calculates and refuses them.

namespace zel {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::IsEmpty;

class Workbooks : public testing::Test {
protected:
    Workbooks() {
        std::string name = testing::TempDir() + "workbooks_XXXXXX";
        folder = ::mkdtemp(name.data());
        path = (folder / "a.xlsx").string();
    }
    ~Workbooks() override { fs::remove_all(folder); }

    [[nodiscard]] std::string bytes() const { return WorkbookFile(path).read(); }
    void take_sample(const char* name) const {
        fs::copy_file(fs::path(ZEL_SOURCE_DIR) / "tests/cli/workbooks" / name, path,
                      fs::copy_options::overwrite_existing);
    }
    [[nodiscard]] std::unique_ptr<Workbook> open() const {
        auto file = std::make_shared<WorkbookFile>(path);
        return open_xlsx(path, file->read(), [file](std::string_view b) { file->replace(b); });
    }
    [[nodiscard]] std::string text(int row, int column,
                                   const char* sheet = "variable_input_result") const {
        auto workbook = open();
        workbook->select(sheet);
        return workbook->text(row, column);
    }
    void set(const char* sheet, int row, int column, double number) const {
        auto workbook = open();
        workbook->select(sheet);
        workbook->set_number(row, column, number);
        workbook->save();
    }

    fs::path folder;
    std::string path;
};

TEST_F(Workbooks, of_several_programs_are_calculated_alike) {
    for (const char* sample : {"saved_by_openpyxl.xlsx", "saved_by_libreoffice.xlsx"}) {
        take_sample(sample);
        const ProcessResult result = run_zel({"batch", path}, ".");
        EXPECT_EQ(result.exit_status, 0) << sample << result.errors;
        EXPECT_THAT(result.errors, IsEmpty());
        EXPECT_THAT(result.output, HasSubstr("3 data sets with  3 active data sets"));
        // As "zel steady" rates the line of the examples in this weather.
        for (const auto& [row, column, expected] : {std::tuple{5, 34, "495"},
                                                    {5, 36, "500"},
                                                    {5, 38, "573"},
                                                    {5, 40, "761"},
                                                    {6, 35, "69,7"},
                                                    {6, 37, "69"},
                                                    {6, 39, "66,9"},
                                                    {6, 41, "61,1"},
                                                    {7, 34, "764"}})
            EXPECT_EQ(text(row, column), expected) << sample << row << " " << column;
    }
}

TEST_F(Workbooks, a_refused_workbook_keeps_its_bytes) {
    take_sample("saved_by_openpyxl.xlsx");
    set("variable_input_result", 6, 12, 5);
    set("fixed_input", 19, 3, 5000);
    const std::string before = bytes();
    const ProcessResult result = run_zel({"batch", path, "--lang", "de"}, ".");
    EXPECT_EQ(result.exit_status, 2);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, HasSubstr("Maximalwert für die Höhe beträgt 4500 m über N.N. !"));
    EXPECT_THAT(result.errors, HasSubstr("Spalte 3 / Zeile 19"));
    EXPECT_EQ(bytes(), before);
    // Silently too, and in JSON with the reasons.
    EXPECT_EQ(run_zel({"batch", path, "--silent"}, ".").exit_status, 2);
    const auto document = nlohmann::json::parse(run_zel({"batch", path, "--json"}, ".").output);
    EXPECT_EQ(document["messages"].size(), 2U);
    EXPECT_EQ(document["rows"], 0);
    EXPECT_EQ(bytes(), before);
}

TEST_F(Workbooks, a_conductor_fills_what_no_cell_names) {
    take_sample("saved_by_openpyxl.xlsx");
    {
        auto workbook = open();
        workbook->select("fixed_input");
        for (const int row : {77, 83, 88}) workbook->clear({row, 3, row, 3});
        workbook->save();
    }
    const ProcessResult without = run_zel({"batch", path}, ".");
    EXPECT_THAT(without.errors, HasSubstr("cell C77 of worksheet fixed_input"));
    EXPECT_EQ(without.exit_status, 1);
    const ProcessResult with = run_zel({"batch", path, "--conductor", "264-AL1/34-ST1A"}, ".");
    EXPECT_EQ(with.exit_status, 0) << with.errors;
    EXPECT_EQ(text(5, 34), "495");
    EXPECT_EQ(run_zel({"batch", path, "--conductor", "none such"}, ".").exit_status, 2);
}

TEST_F(Workbooks, a_template_takes_a_conductor) {
    ASSERT_EQ(run_zel({"template", "transient", "-o", path, "--conductor", "264-AL1/34-ST1A"}, ".")
                  .exit_status,
              0);
    EXPECT_EQ(text(23, 3, "fixed_input"), "22,3999996185303");  // as a record holds it
    EXPECT_EQ(text(21, 3, "fixed_input"), "2");
    EXPECT_EQ(text(11, 3, "fixed_input"), "");
}

TEST_F(Workbooks, errors_in_cells_are_status_1) {
    take_sample("saved_by_openpyxl.xlsx");
    set("variable_input_result", 5, 31, 20);  // cooler than the air
    set("variable_input_result", 5, 12, 35);
    EXPECT_EQ(run_zel({"batch", path}, ".").exit_status, 1);
    EXPECT_EQ(text(5, 34), "Error");
}

TEST_F(Workbooks, templates_are_workbooks_to_fill_in) {
    for (const auto& [kind, identifier] : {std::pair{"steady-fix", "DS80b_G_Conductor_fix"},
                                           {"steady-var", "DS80b_G_Conductor_var"},
                                           {"transient", "DS81a_G_Conductor_fix_transient"}}) {
        const ProcessResult made = run_zel({"template", kind, "-o", path, "--lang", "de"}, ".");
        EXPECT_EQ(made.exit_status, 0) << made.errors;
        EXPECT_EQ(made.output + made.errors, "");
        EXPECT_EQ(text(2, 2, "fixed_input"), identifier);
        // Nothing is filled in yet.
        EXPECT_EQ(run_zel({"batch", path, "--conductor-columns",
                           kind == std::string("steady-var") ? "on" : "off"},
                          ".")
                      .exit_status,
                  2);
    }
}

/// Starts the batch of `path` and kills it after a while, if it still runs.
bool killed_after(const std::string& path, std::chrono::microseconds while_running) {
    const pid_t child = ::fork();
    if (child == 0) {
        const int nowhere = ::open("/dev/null", O_WRONLY);
        ::dup2(nowhere, STDOUT_FILENO);
        ::dup2(nowhere, STDERR_FILENO);
        const std::string home = fs::path(path).parent_path().string();
        ::setenv("HOME", home.c_str(), 1);
        ::unsetenv("XDG_DATA_HOME");
        ::unsetenv("XDG_CONFIG_HOME");
        ::execl(ZEL_PROGRAM, ZEL_PROGRAM, "batch", path.c_str(), nullptr);
        ::_exit(127);
    }
    std::this_thread::sleep_for(while_running);
    ::kill(child, SIGKILL);
    int status = 0;
    ::waitpid(child, &status, 0);
    return WIFSIGNALED(status);
}

TEST_F(Workbooks, a_killed_run_leaves_the_old_or_the_new_one) {
    take_sample("saved_by_openpyxl.xlsx");
    {
        auto workbook = open();
        workbook->select("variable_input_result");
        std::vector<std::string> row;
        for (int column = 1; column <= 32; ++column) row.push_back(workbook->text(5, column));
        for (int line = 6; line < 1500; ++line)
            for (int column = 1; column <= 32; ++column)
                if (const std::string& cell = row[static_cast<std::size_t>(column - 1)];
                    !cell.empty())
                    workbook->set_number(line, column,
                                         std::stod(std::string(cell).replace(
                                             std::min(cell.find(','), cell.size()),
                                             cell.find(',') == std::string::npos ? 0 : 1, ".")));
        workbook->save();
    }
    const std::string old_bytes = bytes();
    ASSERT_EQ(run_zel({"batch", path}, ".").exit_status, 0);
    const std::string new_result = text(1499, 34);
    EXPECT_EQ(new_result, "495");
    std::mt19937 random(5);
    int kills = 0;
    for (int run = 0; run < 20; ++run) {
        std::ofstream(path, std::ios::binary | std::ios::trunc) << old_bytes;
        kills += killed_after(path, std::chrono::microseconds(random() % 250000)) ? 1 : 0;
        if (bytes() == old_bytes) continue;
        for (const int line : {5, 700, 1499}) EXPECT_EQ(text(line, 34), new_result);
    }
    EXPECT_GT(kills, 0);
}

}  // namespace
}  // namespace zel
