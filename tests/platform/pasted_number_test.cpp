#include "platform/text/pasted_number.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zel {
namespace {

TEST(PastedNumber, has_the_readings_that_its_marks_allow) {
    const struct {
        const char* text;
        std::vector<std::string> with_comma;
        std::vector<std::string> with_point;
    } rows[] = {
        {"0.6", {"0,6"}, {}},
        {"-12.3456", {"-12,3456"}, {}},
        {".5", {",5"}, {}},
        {"1e-3", {}, {}},
        {"2.5E3", {"2,5E3"}, {}},
        {"1.000", {"1,000", "1000"}, {"1.000", "1000"}},
        {"999,999", {"999,999", "999999"}, {"999.999", "999999"}},
        {"0.600", {"0,600"}, {}},
        {"1000.000", {"1000,000"}, {}},
        {"1.234,5", {"1234,5"}, {"1234.5"}},
        {"1,234.5", {"1234,5"}, {"1234.5"}},
        {"-1.234.567", {"-1234567"}, {"-1234567"}},
        {"1 234,5", {"1234,5"}, {"1234.5"}},
        {"1\u202f234", {"1234"}, {"1234"}},
        {"12,34.5", {}, {}},
        {"1,2345.6", {}, {}},
        {"1.2.3", {}, {}},
        {"21.06.2026", {}, {}},
        {"1..5", {}, {}},
        {"--1.5", {}, {}},
        {"abc", {}, {}},
        {"1.5x", {}, {}},
        {",", {}, {}},
        {"", {}, {}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(readings_of(row.text, DecimalSeparator::Comma), row.with_comma) << row.text;
        EXPECT_EQ(readings_of(row.text, DecimalSeparator::Point), row.with_point) << row.text;
    }
}

}  // namespace
}  // namespace zel
