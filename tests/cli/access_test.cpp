#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "cli/process.h"
#include "fakes/access_cases.h"
#include "fakes/scratch_folder.h"
#include "fakes/test_data.h"
#include "persistence/database/case_table.h"
#include "short_circuit/short_circuit_table.h"

namespace zel {
namespace {

using nlohmann::json;
using testing::HasSubstr;

struct AccessFiles : testing::Test {
    ScratchFolder folder;

    void SetUp() override {
        folder.write("old.accdb",
                     access_file::bytes_of({access_table(case_tables(), "Fälle", 20),
                                            access_table(short_circuit_tables(), "Kurz", 2)}));
    }
    ProcessResult run(std::vector<std::string> words) {
        words.insert(words.begin(), "db");
        return run_zel(words, folder.path());
    }
    json document(const std::vector<std::string>& words) {
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exit_status, 0) << result.errors;
        return json::parse(result.output);
    }
};

TEST_F(AccessFiles, are_listed_shown_and_copied_like_databases) {
    EXPECT_EQ(document({"tables", "old.accdb", "--json"}),
              json::parse(R"({"tables": [{"name": "Fälle", "columns": 180, "rows": 20}]})"));
    EXPECT_EQ(run({"list", "old.accdb", "Fälle"}).errors, "");
    const ProcessResult imported = run({"import", "old.accdb", "new.mdb"});
    EXPECT_EQ(imported.output, "Fälle: 20 rows imported\nKurz: holds no such cases\n");
    EXPECT_EQ(imported.errors, "");
    EXPECT_EQ(document({"list", "old.accdb", "fälle", "--json"}),
              document({"list", "new.mdb", "fälle", "--json"}));
    EXPECT_EQ(document({"show", "old.accdb", "fälle", "20", "--json"}),
              document({"show", "new.mdb", "fälle", "20", "--json"}));
    EXPECT_EQ(document({"import", "old.accdb", "short.mdb", "--short-circuit", "--json"}),
              json::parse(R"({"tables": [{"name": "Kurz", "rows": 2}], "left_out":
                  [{"table": "Fälle", "reason": "holds no such cases"}], "more_left_out": 0})"));
}

TEST_F(AccessFiles, refuse_changes_and_leave_no_new_file_where_they_cannot_be_copied) {
    const std::string before = folder.read("old.accdb");
    folder.write("cut.mdb", folder.read("old.accdb").substr(0, 20 * 4096));
    folder.write("there.mdb", "mine");
    folder.write("lines.mdb", access_file::bytes_of({access_table(case_tables(), "T", 1)}));
    for (const auto& [words, reason] : {
             std::pair<std::vector<std::string>, const char*>{{"drop", "old.accdb", "Fälle"},
                                                              "zel db import OLD.mdb NEW.mdb"},
             {{"import", "cut.mdb", "n.mdb"}, "damaged"},
             {{"import", "none.mdb", "n.mdb"}, "Error 3024"},
             {{"import", "lines.mdb", "n.mdb", "--short-circuit"},
              "lines.mdb: no table holds short-circuit cases"},
             {{"import", "old.accdb", "there.mdb"}, "Error 3204"},
             {{"import", "old.accdb", "stcas.mdb", "--short-circuit"}, "stcas.mdb"},
         }) {
        const ProcessResult result = run(words);
        EXPECT_EQ(result.exit_status, 2);
        EXPECT_THAT(result.errors, HasSubstr(reason));
        EXPECT_FALSE(std::filesystem::exists(folder.file("n.mdb")));
    }
    EXPECT_EQ(folder.read("old.accdb"), before);
    EXPECT_EQ(folder.read("there.mdb"), "mine");
    EXPECT_FALSE(std::filesystem::exists(folder.file("stcas.mdb")));
}

}  // namespace
}  // namespace zel
