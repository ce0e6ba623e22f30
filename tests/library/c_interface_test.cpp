#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <set>
#include <string>

#include "zel.h"

namespace {

struct Case {
    explicit Case(zel_area area) : it(zel_case_new(area)) {}
    ~Case() { zel_case_free(it); }
    Case(const Case&) = delete;
    Case& operator=(const Case&) = delete;
    zel_case* it;
};

const std::string examples = std::string(ZEL_SOURCE_DIR) + "/examples/";

std::string error() { return zel_last_error(ZEL_ENGLISH); }

TEST(CInterface, rates_an_example_with_columns_of_any_stride) {
    const Case line(ZEL_LINE);
    ASSERT_EQ(zel_case_read_file(line.it, (examples + "380kV-twin-264-34.json").c_str()), ZEL_DONE);
    const double winds[] = {0.6, -1, 1.2, -1, NAN, -1};
    const zel_column column = {"wind_speed", winds, 2 * sizeof(double)};
    double current[3];
    double conductor[3];
    int32_t code[3];
    zel_steady out{};
    out.current = {current, sizeof(double)};
    out.conductor_current = {conductor, sizeof(double)};
    out.code = {code, sizeof(int32_t)};
    ASSERT_EQ(zel_rate_steady(line.it, nullptr, ZEL_TB207, &column, 1, 3, &out), ZEL_DONE);
    EXPECT_EQ(current[0], 2 * conductor[0]);
    EXPECT_LT(current[0], current[1]);
    EXPECT_TRUE(std::isnan(current[2]));
    EXPECT_EQ(code[2], 1);
    char why[80];
    ASSERT_EQ(zel_explain(line.it, nullptr, ZEL_TB207, &column, 1, 2, ZEL_ENGLISH, why, sizeof why),
              ZEL_DONE);
    EXPECT_STREQ(why, "wind_speed: an input is missing");
}

TEST(CInterface, tells_what_is_wrong_and_rates_nothing) {
    const Case line(ZEL_LINE);
    EXPECT_EQ(zel_case_set_number(line.it, "wind", 1), ZEL_REFUSED);
    EXPECT_EQ(error(), "wind: no field has this name");
    EXPECT_EQ(zel_case_read_file(line.it, "/no/file.json"), ZEL_REFUSED);
    EXPECT_NE(error().find("/no/file.json"), std::string::npos);
    EXPECT_EQ(zel_case_set_conductor(line.it, "264-AL1/99-ST1A"), ZEL_REFUSED);
    EXPECT_EQ(zel_case_set_conductor(line.it, "264-AL1/34-ST1A"), ZEL_DONE) << error();
    EXPECT_EQ(error(), "");
    const double number = 1;
    const zel_column column = {"no_input", &number, 0};
    const zel_steady out{};
    EXPECT_EQ(zel_rate_steady(line.it, nullptr, ZEL_WEBS, &column, 1, 1, &out), ZEL_REFUSED);
    EXPECT_EQ(zel_rate_steady(line.it, nullptr, static_cast<zel_method>(7), nullptr, 0, 1, &out),
              ZEL_REFUSED);
    EXPECT_EQ(zel_rate_short_circuit(line.it, nullptr, nullptr, 0, 1, nullptr, {}), ZEL_REFUSED);
    EXPECT_EQ(zel_case_set_text(line.it, nullptr, "x"), ZEL_REFUSED);
    const zel_column nameless = {nullptr, &number, 0};
    EXPECT_EQ(zel_rate_steady(line.it, nullptr, ZEL_WEBS, &nameless, 1, 1, &out), ZEL_REFUSED);
    EXPECT_EQ(error(), "a name or a text is a null pointer");
}

TEST(CInterface, judges_short_circuits) {
    const Case given(ZEL_SHORT_CIRCUIT);
    ASSERT_EQ(zel_case_read_file(given.it, (examples + "short-circuit-264-34.json").c_str()),
              ZEL_DONE)
        << error();
    const double currents[] = {5, 20, NAN};
    const zel_column column = {"IK2", currents, sizeof(double)};
    std::vector<std::array<double, 3>> results(zel_short_circuit_result_count());
    std::vector<zel_numbers> out;
    for (auto& result : results) out.push_back({result.data(), sizeof(double)});
    int32_t code[3];
    ASSERT_EQ(zel_rate_short_circuit(given.it, nullptr, &column, 1, 3, out.data(),
                                     {code, sizeof(int32_t)}),
              ZEL_DONE)
        << error();
    EXPECT_EQ(code[0], 0);
    EXPECT_EQ(code[2], 1);
    ASSERT_STREQ(zel_short_circuit_result_name(0), "I_th");
    EXPECT_NEAR(results[0][1] / results[0][0], 4, 1e-6);
    EXPECT_EQ(zel_short_circuit_result_name(99), nullptr);
}

TEST(CInterface, names_every_code_and_input_once) {
    std::set<std::string> names;
    for (size_t i = 0; i < zel_code_count(); ++i) {
        zel_code code{};
        ASSERT_EQ(zel_code_at(i, &code), ZEL_DONE);
        EXPECT_TRUE(names.insert(code.name).second) << code.name;
        EXPECT_STRNE(code.text_de, "");
        EXPECT_STRNE(code.text_en, "");
    }
    names.clear();
    for (size_t i = 0; i < zel_input_count(ZEL_LINE); ++i) {
        zel_input input{};
        ASSERT_EQ(zel_input_at(ZEL_LINE, i, &input), ZEL_DONE);
        EXPECT_TRUE(names.insert(input.name).second) << input.name;
        EXPECT_LE(input.low, input.high);
    }
    zel_input none{};
    EXPECT_EQ(zel_input_at(ZEL_LINE, zel_input_count(ZEL_LINE), &none), ZEL_REFUSED);
}

}  // namespace
