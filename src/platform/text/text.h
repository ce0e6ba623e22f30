#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <utility>
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

/// What is told in a language that is known only where it is shown. A text alone is the same in
/// both.
struct Reason {
    std::string de, en;

    Reason(std::string same) : de(same), en(std::move(same)) {}
    Reason(const char* same) : Reason(std::string(same)) {}
    /// The wording with its places filled.
    Reason(const Text& text, std::initializer_list<std::string_view> values = {});

    [[nodiscard]] const std::string& in(LangId lang) const {
        return lang == LangId::German ? de : en;
    }
    friend bool operator==(const Reason&, const Reason&) = default;
};

/// The wording with the place {0} filled by what has words of its own.
[[nodiscard]] Reason filled(const Text& text, const Reason& value);

/// `reason` behind the place that it is about: "case.json: ...".
[[nodiscard]] Reason at(const Reason& place, const Reason& reason);

/// `text` in quotes for a message, cut where it is longer than a line.
[[nodiscard]] std::string in_quotes(std::string_view text);
/// `text` cut where it is longer than `most` bytes, "..." behind it, never inside a character.
[[nodiscard]] std::string shortened(std::string_view text, std::size_t most = 60);

/// The lines of a text, cut at `\n`. An empty text has no line.
[[nodiscard]] std::vector<std::string> lines_of(std::string_view text);

/// The lines joined by `separator`.
[[nodiscard]] std::string joined(const std::vector<std::string>& lines, std::string_view separator);

/// A wording without the blanks around it, which have no place in plain text.
[[nodiscard]] std::string without_outer_blanks(std::string_view text);

/// The lines of a text as one, parted by single blanks.
[[nodiscard]] std::string in_one_line(std::string_view lines);

/// Whether two names are one, without regard to the case of ASCII letters.
[[nodiscard]] bool same_name(std::string_view a, std::string_view b);

/// Whether a name ends so, in the same way, and is more than its ending: "FILE.PDF" in ".pdf".
[[nodiscard]] bool has_ending(std::string_view name, std::string_view ending);

}  // namespace zel
