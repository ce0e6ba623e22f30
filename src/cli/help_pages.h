#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/text/text.h"

// The user guide as the terminal reads it: files that the build makes of the guide.

namespace zel {

/// A section of the guide.
struct HelpTopic {
    std::string name{};
    int level = 1;  // 1 is a chapter; those of a higher level that follow belong to it
    std::string title{};
    std::string text{};  // see `wrapped`
};

/// What is to be known of a message, a code or a status text.
struct HelpMessage {
    std::string code{};
    std::string area{};
    std::string text{};
    std::string cause{};
    std::string remedy{};
};

struct HelpPages {
    std::vector<HelpTopic> topics{};
    std::vector<HelpMessage> messages{};
};

/// The pages in `lang` from the folder of the help. Throws `InputError` naming the file where it
/// is not there or is no such file.
[[nodiscard]] HelpPages read_help_pages(const std::string& folder, LangId lang);

/// The section with those that belong to it, and how far `topics` go with them; `at` is its index.
[[nodiscard]] std::string section_text(const std::vector<HelpTopic>& topics, std::size_t at);

/// The lines of `text` in at most `width` columns, broken at blanks; what follows in an entry of a
/// list stands below its first word. A line that begins with a tab is shown as it stands, without
/// the tab.
[[nodiscard]] std::string wrapped(std::string_view text, std::size_t width);

}  // namespace zel
