#include <cmath>
#include <limits>

#include "fakes/formulas.h"
#include "fakes/scripted_dialogs.h"
#include "platform/rounding.h"
#include "platform/text/csv.h"
#include "platform/text/number_text.h"

namespace zel {
namespace {

std::string text_in(std::string_view de, std::string_view en, LangId lang) {
    return std::string(Text{de, en}.in(lang));
}

std::string filled_places(std::string_view pattern, std::vector<std::string> values) {
    return values.size() == 1 ? fill(pattern, {values[0]}) : fill(pattern, {values[0], values[1]});
}

std::string icon_name(std::int16_t icon) { return std::string(name_of(Icon(icon))); }

/// The rows of a text with their lines, or why one is damaged. Each row comes back as it is
/// written.
nlohmann::json csv(std::string text) {
    nlohmann::json rows = nlohmann::json::array();
    for (const auto& row : parse_csv(text)) {
        if (row.damage != nullptr) {
            rows.push_back({row.line, std::string(row.damage->en)});
            continue;
        }
        rows.push_back({row.line, row.cells});
        const std::string line = csv_line(row.cells);
        EXPECT_EQ(parse_csv(line).at(0).cells, row.cells);
    }
    return rows;
}

TEST(PlatformFormulas, have_the_values_of_their_rows) {
    expect_formulas("platform_formulas",
                    {ZEL_FORMULA(parse_number), ZEL_FORMULA(parse_single),
                     ZEL_FORMULA(round_half_even), ZEL_FORMULA(masked), ZEL_FORMULA(plain_number),
                     ZEL_FORMULA(round_to_int16), ZEL_FORMULA(narrowed_to_single),
                     ZEL_FORMULA(text_in), ZEL_FORMULA(filled_places), ZEL_FORMULA(lines_of),
                     ZEL_FORMULA(joined), ZEL_FORMULA(icon_name), ZEL_FORMULA(csv),
                     ZEL_FORMULA(without_outer_blanks), ZEL_FORMULA(same_name)});
}

TEST(PlatformFormulas, of_a_value_that_is_no_number) {
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const double value : {infinite, -infinite, std::nan("")}) {
        EXPECT_EQ(masked(value, "##0.0 A", DecimalSeparator::Point), "");
        EXPECT_EQ(plain_number(value, DecimalSeparator::Point), "");
        EXPECT_EQ(round_to_int16(value), std::nullopt);
        EXPECT_EQ(std::to_string(round_half_even(value)), std::to_string(value));
    }
    EXPECT_FALSE(std::signbit(round_half_even(-0.25)));
    EXPECT_EQ(parse_single("1e39", DecimalSeparator::Point), INFINITY);
    EXPECT_EQ(parse_single("-1e999", DecimalSeparator::Point), -INFINITY);
}

TEST(BoxIn, fills_title_and_lines_of_one_language) {
    constexpr BoxText question = {Icon::Question,
                                  {"Frage {0}", "question {0}"},
                                  {"Wert {1}\nWeiter?", "value {1}\nGo on?"},
                                  Buttons::YesNo,
                                  Answer::No};
    const Box english = {
        Icon::Question, "question A", {"value 80.1", "Go on?"}, Buttons::YesNo, Answer::No};
    EXPECT_EQ(box_in(LangId::English, question, {"A", "80.1"}), english);
    const Box german = box_in(LangId::German, question);
    EXPECT_EQ(german.lines, (std::vector<std::string>{"Wert {1}", "Weiter?"}));
    RecordingDialogs dialogs;
    EXPECT_EQ(dialogs.show(english), Answer::No);
    EXPECT_EQ(dialogs.show({Icon::Warning, "title", {"line"}}), Answer::Ok);
    EXPECT_EQ(dialogs.shown().at(0), english);
    EXPECT_EQ(dialogs.shown().size(), 2U);
}

struct Pair {
    double first, second;
};
[[gnu::noinline]] void narrow_both(Pair& pair, double first, double second) {
    pair.first = narrowed_to_single(first);
    pair.second = narrowed_to_single(second);
}

TEST(NarrowedToSingle, narrows_two_neighbours) {
    Pair pair{};
    narrow_both(pair, 4.03, 0.1);
    EXPECT_EQ(pair.first, 4.03000020980834961);
    EXPECT_EQ(pair.second, 0.100000001490116119);
}

}  // namespace
}  // namespace zel
