#include <stdexcept>

#include "adapters/ini/profile_text.h"
#include "fuzz.h"
#include "platform/text/text.h"

// Lines with a section, a key, a value, another section and another key, and a profile file.

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    fuzz::Input input(data, size);
    const std::string section = input.line();
    const std::string key = input.line();
    const std::string value = input.line();
    const std::string other_section = input.line();
    const std::string other_key = input.line();
    const std::string text = input.rest();
    std::string changed;
    try {
        changed = with_profile_value(text, section, key, value);
    } catch (const std::invalid_argument&) {
        return 0;
    }
    fuzz::require(profile_value(changed, section, key) == value, "a value comes back:", changed);
    fuzz::require(with_profile_value(changed, section, key, value) == changed,
                  "a value that stands there changes nothing:", changed);
    if (!same_name(section, other_section) || !same_name(key, other_key))
        fuzz::require(profile_value(changed, other_section, other_key) ==
                          profile_value(text, other_section, other_key),
                      "other values stay:", changed);
    return 0;
}
