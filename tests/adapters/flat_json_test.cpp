#include "adapters/json/flat_json.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/input_error.h"

namespace zel {
namespace {

std::string refusal(std::string_view text) {
    try {
        (void)parse_flat_json(text);
    } catch (const InputError& error) {
        return error.what();
    }
    return "taken";
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

}  // namespace
}  // namespace zel
