#include <cctype>
#include <cstdio>
#include <string>

#include "zel.h"

// Prints zel_inputs.h: the names of all inputs as constants, with unit, limits and meaning, from
// the description of the fields. Run by the build.

namespace {

std::string upper(const char* area, const std::string& name) {
    std::string letters = area;
    for (const char c : name)
        letters += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return letters;
}

std::string number(double limit) {
    char text[32];
    std::snprintf(text, sizeof text, "%.10g", limit);
    return text;
}

std::string meaning(const zel_input& input) {
    std::string text = input.about_en;
    if (*input.unit != '\0') text += std::string(", ") + input.unit;
    const bool from = input.low > -1e300;
    const bool to = input.high < 1e300;
    if (from && to) text += ", " + number(input.low) + " to " + number(input.high);
    if (from && !to) text += ", at least " + number(input.low);
    if (to && !from) text += ", at most " + number(input.high);
    if (*input.field != '\0') text += "; " + std::string(input.field);
    return text;
}

bool print(zel_area area, const char* begin) {
    for (size_t i = 0; i < zel_input_count(area); ++i) {
        zel_input input{};
        if (zel_input_at(area, i, &input) != ZEL_DONE) return false;
        std::printf("/* %s */\n#define %s \"%s\"\n", meaning(input).c_str(),
                    upper(begin, input.name).c_str(), input.name);
    }
    return true;
}

}  // namespace

int main() {
    std::puts("/* Names of inputs, made from the description of the fields. See zel.h. */");
    std::puts("#ifndef ZEL_INPUTS_H\n#define ZEL_INPUTS_H\n");
    const bool done =
        print(ZEL_LINE, "ZEL_INPUT_") && print(ZEL_SHORT_CIRCUIT, "ZEL_SHORT_CIRCUIT_INPUT_");
    std::puts("\n#endif");
    return done && std::fflush(stdout) == 0 ? 0 : 1;
}
