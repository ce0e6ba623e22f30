#include "workflow/run/result_text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zel {
namespace {

SteadyRunResult two_methods() {
    SteadyRunResult run;
    run.head_line = "By given conductor temperature";
    run.methods_line = "Cigre TB 207 / Webs";
    run.angle_text = "90.0 °";
    run.perpendicular_wind_text = "0.6 m/s";
    run.methods.resize(2);
    run.methods[0].caption = "by Cigre TB 207 :";
    run.methods[0].result = "1331 A";
    run.methods[1].caption = "by Webs :";
    run.methods[1].result = " Error";
    run.methods[1].outcome.status = "no solution";
    run.balance_lines = {"TB 207: P Joule 1 W/m"};
    return run;
}

TEST(ResultText, holds_what_the_page_shows) {
    EXPECT_EQ(result_text(two_methods(), LangId::English),
              "Result\n"
              "  By given conductor temperature\n"
              "\n"
              "  Calculation methods :  Cigre TB 207 / Webs\n"
              "  Angle wind conductor:  90.0 °\n"
              "  Wind _I_ conductor:    0.6 m/s\n"
              "  by Cigre TB 207 :      1331 A\n"
              "  by Webs :               Error   (no solution)\n"
              "\n"
              "  TB 207: P Joule 1 W/m\n");
}

TEST(ResultText, has_german_labels_and_the_details_of_tb601) {
    SteadyRunResult run = two_methods();
    run.tb601_temperatures = {{"Kerntemperatur: ", "80,8 °C"}};
    run.balance_lines.clear();
    const std::string text = result_text(run, LangId::German);
    EXPECT_THAT(text, testing::StartsWith("Ergebnis\n"));
    EXPECT_THAT(text, testing::HasSubstr("  Berechnungsverfahren :  Cigre TB 207 / Webs\n"));
    EXPECT_THAT(text, testing::EndsWith("  Kerntemperatur:         80,8 °C\n"));
}

}  // namespace
}  // namespace zel
