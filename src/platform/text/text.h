#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace zel {

/// Language of the interface. The numbers are those of the stored setting.
enum class LangId : std::int16_t { German = 1, English = 2 };

/// A fixed wording in both languages, standing beside the rule that uses it.
/// `\n` separates lines; an empty `en` shows `de`.
struct Text {
    std::string_view de;
    std::string_view en{};

    [[nodiscard]] constexpr std::string_view in(LangId lang) const {
        return lang == LangId::English && !en.empty() ? en : de;
    }
};

/// `pattern` with its places `{0}`, `{1}`, ... filled by `values`. A place without a value, and any
/// other brace, stays as it is.
[[nodiscard]] std::string fill(std::string_view pattern,
                               std::initializer_list<std::string_view> values);

/// The lines of a text, cut at `\n`. An empty text has no line.
[[nodiscard]] std::vector<std::string> lines_of(std::string_view text);

/// The lines joined by `separator`.
[[nodiscard]] std::string joined(const std::vector<std::string>& lines, std::string_view separator);

/// A wording without the blanks around it, which have no place in plain text.
[[nodiscard]] std::string without_outer_blanks(std::string_view text);

/// Whether two names are one, without regard to the case of ASCII letters.
[[nodiscard]] bool same_name(std::string_view a, std::string_view b);

}  // namespace zel
