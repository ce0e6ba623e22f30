#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

#include "platform/text/text.h"

namespace zel {

/// The language of what is printed, as the setting `LangId_print` counts it.
enum class PrintLang : std::int16_t { German = 1, English = 2, French = 3, Spanish = 4 };

/// The language that the setting stands for; German where it stands for none.
[[nodiscard]] constexpr PrintLang print_lang(std::int16_t LangId_print) {
    return LangId_print >= 2 && LangId_print <= 4 ? static_cast<PrintLang>(LangId_print)
                                                  : PrintLang::German;
}

/// Of what has texts in German and English only.
[[nodiscard]] constexpr LangId language_of(PrintLang lang) {
    return lang == PrintLang::German ? LangId::German : LangId::English;
}

/// As documents name their language: "de".
[[nodiscard]] constexpr std::string_view tag_of(PrintLang lang) {
    constexpr std::string_view tags[] = {"de", "en", "fr", "es"};
    return tags[static_cast<std::size_t>(lang) - 1];
}

/// What is printed, in up to four languages. A language may have no text of its own, which is not
/// the same as an empty one: then the label before it is printed again.
struct PrintText {
    using Own = std::optional<std::string_view>;

    constexpr PrintText(std::string_view de, Own en, Own fr = {}, Own es = {})
        : texts{de, en, fr, es} {}

    constexpr PrintText(const Text& text)
        : texts{text.de, text.in(LangId::English), Own{}, Own{}} {}

    /// A text that is the same in all languages.
    [[nodiscard]] static constexpr PrintText same(std::string_view text) {
        return {text, text, text, text};
    }

    [[nodiscard]] constexpr Own in(PrintLang lang) const {
        return texts[static_cast<std::size_t>(lang) - 1];
    }

    std::array<Own, 4> texts;
};

/// Says the labels of a report in their order.
class LabelWriter {
public:
    explicit LabelWriter(PrintLang lang) : lang_(lang) {}

    [[nodiscard]] PrintLang lang() const { return lang_; }
    /// The label; the former one where it has no text of its own, and nothing before the first.
    std::string_view operator()(const PrintText& label) {
        if (const auto own = label.in(lang_)) former_ = *own;
        return former_;
    }

private:
    PrintLang lang_;
    std::string_view former_;
};

}  // namespace zel
