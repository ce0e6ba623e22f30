#include "platform/text/csv.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/errors.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

TEST(Csv, has_rows_of_cells_with_their_lines) {
    const auto rows = parse_csv("# note\na,b,\r\n\n,\"c, d\"\n");
    ASSERT_THAT(rows, SizeIs(2));
    EXPECT_EQ(rows[0].line, 2);
    EXPECT_THAT(rows[0].cells, ElementsAre("a", "b", ""));
    EXPECT_EQ(rows[1].line, 4);
    EXPECT_THAT(rows[1].cells, ElementsAre("", "c, d"));
}

TEST(Csv, a_quoted_cell_holds_quotes_and_line_ends) {
    const auto rows = parse_csv("\xEF\xBB\xBF\"say \"\"x\"\"\",\"a\nb\"\nnext");
    ASSERT_THAT(rows, SizeIs(2));
    EXPECT_THAT(rows[0].cells, ElementsAre("say \"x\"", "a\nb"));
    EXPECT_EQ(rows[1].line, 3);
}

TEST(Csv, a_line_comes_back_as_it_was_written) {
    const std::vector<std::string> cells[] = {
        {"plain", "", "a,b", "say \"x\"", "two\nlines", "carriage\rreturn"},
        {"# no note", "#"},
        {"", "x"},
    };
    for (const auto& row : cells) {
        const auto rows = parse_csv(csv_line(row));
        ASSERT_THAT(rows, SizeIs(1));
        EXPECT_EQ(rows.front().cells, row);
    }
}

TEST(Csv, refuses_quotes_that_do_not_fit) {
    for (const char* text : {"a\nb,\"c", "a\nb\"c\"", "a\n\"b\"c"}) {
        try {
            (void)parse_csv(text);
            ADD_FAILURE() << text;
        } catch (const InputError& error) {
            EXPECT_THAT(error.what(), HasSubstr("line 2"));
        }
    }
}

}  // namespace
}  // namespace zel
