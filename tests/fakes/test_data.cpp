#include "fakes/test_data.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>

#include "fakes/steady_cases.h"
#include "steady/case/case_fields.h"

namespace zel {

using nlohmann::json;

json test_data(const std::string& name) {
    return json::parse(std::ifstream(ZEL_SOURCE_DIR "/tests/data/" + name + ".json"));
}

Closeness closeness(const json& group) {
    return {group.value("absolute", 0.0), group.value("relative", 0.0)};
}

void expect_part(const json& expected, const json& actual, Closeness near,
                 const std::string& place) {
    if (expected.is_object()) {
        ASSERT_TRUE(actual.is_object()) << place;
        for (const auto& [key, value] : expected.items()) {
            ASSERT_TRUE(actual.contains(key)) << place << "/" << key;
            expect_part(value, actual.at(key), near, std::string(place).append("/").append(key));
        }
    } else if (expected.is_array()) {
        ASSERT_EQ(expected.size(), actual.size()) << place << ": " << actual;
        for (std::size_t i = 0; i < expected.size(); ++i)
            expect_part(expected[i], actual[i], near, place + "/" + std::to_string(i));
    } else if (expected.is_number() && actual.is_number()) {
        const double value = expected;
        EXPECT_NEAR(actual.get<double>(), value,
                    std::max(near.absolute, near.relative * std::abs(value)))
            << place;
    } else {
        EXPECT_EQ(expected, actual) << place;
    }
}

void set_fields(CalcCase& c, const json& fields) {
    for (const auto& [name, value] : fields.items()) {
        const auto field = find_field(c, name);
        ASSERT_TRUE(field) << name;
        if (auto* const* entry = std::get_if<Entry*>(&field->value))
            **entry = value.is_null() ? Entry{{}, (*entry)->value} : typed(value);
        if (auto* const* text = std::get_if<std::string*>(&field->value)) **text = value;
        if (auto* const* whole = std::get_if<std::int16_t*>(&field->value)) **whole = value;
        if (auto* const* flag = std::get_if<bool*>(&field->value)) **flag = value;
    }
}

json as_json(const std::vector<Box>& boxes) {
    json list = json::array();
    for (const Box& box : boxes) {
        json entry = {{"icon", name_of(box.icon)}, {"title", box.title}, {"lines", box.lines}};
        if (box.buttons == Buttons::YesNo)
            entry["unattended"] = box.unattended == Answer::Yes ? "yes" : "no";
        list.push_back(entry);
    }
    return list;
}

json in_both(const std::function<std::optional<Box>(LangId)>& box) {
    json told;
    for (const LangId lang : {LangId::German, LangId::English}) {
        const auto shown = box(lang);
        if (!shown) continue;
        json& texts = told[json(lang).get<std::string>()] = {shown->title};
        for (const std::string& line : shown->lines) texts.push_back(line);
        told["icon"] = name_of(shown->icon);
        if (shown->buttons == Buttons::YesNo)
            told["unattended"] = shown->unattended == Answer::Yes ? "yes" : "no";
    }
    return told;
}

}  // namespace zel
