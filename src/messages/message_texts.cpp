#include "messages/message_texts.h"

#include "platform/text/number_text.h"

namespace zel::message_texts {
namespace {

constexpr std::size_t most_names = 3;

/// A bound held at 32 bits shows as it is meant.
std::string bound_text(double bound, const FieldInfo& field, DecimalSeparator separator) {
    const bool single = field.kind == FieldKind::Single;
    return plain_number(single ? decimal_of_single(bound) : bound, separator);
}

}  // namespace

std::string refused_text(std::string_view name, const FieldInfo& field, const Limits* limits,
                         std::string_view typed, const Locale& locale) {
    const std::string quoted = in_quotes(typed);
    const auto number = parse_number(typed, locale.separator);
    if (!number || limits == nullptr || limits->holds(*number))
        return fill(no_number.in(locale.lang), {name, quoted});
    return fill(out_of_range.in(locale.lang), {name, quoted, range_text(field, *limits, locale)});
}

namespace {

std::string range_text(const FieldInfo& field, const NumberSpan& span, const Locale& locale) {
    const bool has_low = span.low > -unlimited;
    const bool has_high = span.high < unlimited;
    const std::string low = bound_text(span.low, field, locale.separator);
    const std::string high = bound_text(span.high, field, locale.separator);
    std::string unit(field.unit_in(locale.lang));
    if (!unit.empty()) unit.insert(0, " ");
    const Text& both = span.beyond_low ? above_to : between;
    const Text& one = span.beyond_low ? above : at_least;
    if (has_low && has_high) return fill(both.in(locale.lang), {low, high + unit});
    if (has_high) return fill(at_most.in(locale.lang), {high + unit});
    return has_low ? fill(one.in(locale.lang), {low + unit}) : std::string();
}

}  // namespace

std::string range_text(const FieldInfo& field, const Limits& limits, const Locale& locale) {
    return range_text(field, NumberSpan{limits.low, limits.high}, locale);
}

std::string range_text(const FieldInfo& field, const std::vector<NumberSpan>& spans,
                       const Locale& locale) {
    std::vector<std::string> texts;
    for (const NumberSpan& span : spans) texts.push_back(range_text(field, span, locale));
    return joined(texts, or_else.in(locale.lang));
}

std::string some_of(const std::vector<std::string>& names, LangId lang) {
    if (names.size() <= most_names) return joined(names, ", ");
    const std::vector<std::string> first(names.begin(), names.begin() + most_names);
    return joined(first, ", ") +
           fill(and_more.in(lang), {std::to_string(names.size() - most_names)});
}

}  // namespace zel::message_texts
