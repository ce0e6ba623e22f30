#pragma once

#include <algorithm>
#include <array>
#include <limits>
#include <span>
#include <vector>

#include "platform/message_box.h"

// The two sorts of rules that come in tables: the limits of a number, and lists of checks.

namespace zel {

inline constexpr double unlimited = std::numeric_limits<double>::infinity();

/// The bounds of a number, both allowed, each with what is told beyond it. Written as
/// `Limits().at_least(0, {...}).at_most(80, {...})`; a bound that is not named does not exist.
struct Limits {
    double low = -unlimited;
    double high = unlimited;
    Text below{};
    Text above{};
    Text title{};  // of the box; empty: the usual one of the table

    [[nodiscard]] constexpr Limits at_least(double bound, Text told = {}) const {
        return {bound, high, told, above, title};
    }
    [[nodiscard]] constexpr Limits at_most(double bound, Text told = {}) const {
        return {low, bound, below, told, title};
    }
    /// Both bounds with one wording.
    [[nodiscard]] constexpr Limits between(double lowest, double highest, Text told = {}) const {
        return {lowest, highest, told, told, title};
    }
    [[nodiscard]] constexpr Limits titled(Text text) const {
        return {low, high, below, above, text};
    }

    /// Neither bound holds what is no number at all.
    [[nodiscard]] constexpr bool holds(double number) const {
        return number >= low && number <= high;
    }
    [[nodiscard]] constexpr Text title_or(Text usual) const {
        return title.de.empty() ? usual : title;
    }
    /// The wording of the bound that `number` is beyond, the upper one first; null within them.
    [[nodiscard]] constexpr const Text* broken_by(double number) const {
        if (number > high) return &above;
        if (number < low) return &below;
        return nullptr;
    }
};

/// Numbers from `low` to `high`, both included unless said.
struct NumberSpan {
    double low = -unlimited;
    double high = unlimited;
    bool beyond_low = false;  // `low` itself is out

    [[nodiscard]] constexpr bool is_empty() const { return low > high; }
};

/// What a check lets pass of a number: one span, or two with a gap between them.
using AllowedSpans = std::array<NumberSpan, 2>;
inline constexpr NumberSpan no_span = {1, 0};
inline constexpr AllowedSpans any_span = {NumberSpan{}, no_span};
inline constexpr AllowedSpans above_zero = {NumberSpan{0, unlimited, true}, no_span};

/// What both let pass, in rising order.
template <class Spans, class Others>
[[nodiscard]] std::vector<NumberSpan> common(const Spans& spans, const Others& others) {
    std::vector<NumberSpan> both;
    for (const NumberSpan& span : spans)
        for (const NumberSpan& other : others) {
            const NumberSpan& upper = span.low > other.low ? span : other;
            const NumberSpan shared = {upper.low, std::min(span.high, other.high),
                                       upper.beyond_low ||
                                           (span.low == other.low && span.beyond_low)};
            if (!shared.is_empty()) both.push_back(shared);
        }
    return both;
}

/// The place of a check that names none.
struct Nowhere {};

/// When a record is refused, by which sort of box, and where the user goes to mend it.
template <class Record, class Place = Nowhere>
struct Rule {
    bool (*applies)(const Record&);
    bool (*met)(const Record&);
    const BoxText* frame;  // title and what else the boxes of a sort share
    Place place{};
    AllowedSpans allowed = any_span;  // of the number at the place, where that is what it checks
};

/// One row of a list of checks. `line` goes to the place {0} of the frame.
template <class Record, class Place = Nowhere>
struct Check {
    Rule<Record, Place> rule;
    Text line;

    [[nodiscard]] bool refuses(const Record& record) const {
        return rule.applies(record) && rule.met(record);
    }
    [[nodiscard]] Box box(LangId lang) const { return box_in(lang, *rule.frame, {line.in(lang)}); }
};

/// The first row that refuses `record`, or null. The order of a list is behaviour: only the first
/// refusal is shown.
template <class Row, class Record>
[[nodiscard]] const Row* first_refusing(std::span<const Row> checks, const Record& record) {
    for (const Row& check : checks)
        if (check.refuses(record)) return &check;
    return nullptr;
}

/// An emptied field is no input, whatever its double still holds.
template <auto field, class Record>
bool missing(const Record& record) {
    return !(record.*field).given();
}

}  // namespace zel
