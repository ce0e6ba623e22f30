#include "adapters/json/flat_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

#include "fakes/scripted_dialogs.h"

namespace zel {
namespace {

std::string refusal(std::string_view text) {
    return refusal_of([&] { return parse_flat_json(text); });
}

TEST(FlatJson, keeps_order_kind_and_every_digit) {
    const FlatObject object = parse_flat_json(
        R"({"b": 0.1, "a": "0,1 °C", "c": true, "d": -7, "e": 18446744073709551615})");
    ASSERT_EQ(object.size(), 5U);
    EXPECT_EQ(object[0].key, "b");
    EXPECT_EQ(std::get<double>(object[0].value), 0.1);
    EXPECT_EQ(std::get<std::string>(object[1].value), "0,1 °C");
    EXPECT_EQ(std::get<bool>(object[2].value), true);
    EXPECT_EQ(std::get<double>(object[3].value), -7);
    EXPECT_EQ(std::get<double>(object[4].value), 18446744073709551615.0);
}

TEST(FlatJson, takes_an_empty_object_and_a_byte_order_mark) {
    EXPECT_TRUE(parse_flat_json("{}").empty());
    EXPECT_EQ(parse_flat_json("\xEF\xBB\xBF{\"a\": 1}\r\n").size(), 1U);
}

TEST(FlatJson, names_what_it_refuses) {
    const struct {
        const char* text;
        const char* reason;
    } rows[] = {
        {"", "no JSON: parse error at line 1, column 1"},
        {"wind = 0.6", "no JSON: parse error at line 1"},
        {"{\"a\": 1,\n \"b\" 2}", "no JSON: parse error at line 2"},
        {"{\"a\": 1} x", "no JSON: parse error"},
        {"{\"a\": 1", "no JSON: parse error"},
        {"{\"a\": \"\xFF\"}", "no JSON: parse error"},
        {"{\"a\": NaN}", "no JSON: parse error"},
        {"[1]", "the file must hold one JSON object"},
        {"7", "the file must hold one JSON object"},
        {"\"a\"", "the file must hold one JSON object"},
        {"null", "the file must hold one JSON object"},
        {"{\"wind\": 1e999}", "wind: 1e999 is beyond the range of a number"},
        {"{\"wind\": [1]}", "wind: an array is no value"},
        {"{\"wind\": {}}", "wind: an object is no value"},
        {"{\"wind\": null}", "wind: null is no value"},
        {"{\"wind\": 1, \"wind\": 1}", "wind: the key stands twice"},
    };
    for (const auto& [text, reason] : rows)
        EXPECT_THAT(refusal(text), testing::StartsWith(reason)) << text;
}

TEST(FlatJson, ends_at_no_zero_byte) {
    EXPECT_EQ(refusal(std::string_view("{\"a\": 1}\0{}", 11)), "no JSON: a zero byte stands at 9");
}

TEST(FlatJson, reads_back_what_it_prints) {
    const FlatObject object = {{"a", 0.1 + 0.2},
                               {"b", -1.0},
                               {"c", 5e-324},
                               {"d", 1.7976931348623157e308},
                               {"e", 18446744073709551616.0},
                               {"f", 123456789012345678.0},
                               {"g", 1e22},
                               {"h", "Süd \"1\"\\\n\t\x01 °"},
                               {"ä\"", true},
                               {"i", false}};
    EXPECT_EQ(parse_flat_json(print_flat_json(object)), object);
    EXPECT_TRUE(parse_flat_json(print_flat_json({})).empty());
    const FlatObject zero = parse_flat_json(print_flat_json({{"zero", -0.0}}));
    EXPECT_TRUE(std::signbit(std::get<double>(zero.at(0).value)));
}

TEST(FlatJson, prints_a_value_per_line) {
    EXPECT_EQ(print_flat_json({{"wind", 0.6}, {"mode", -1.0}, {"name", "Süd"}}),
              "{\n  \"wind\": 0.6,\n  \"mode\": -1,\n  \"name\": \"Süd\"\n}\n");
}

}  // namespace
}  // namespace zel
