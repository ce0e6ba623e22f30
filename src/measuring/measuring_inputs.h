#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "platform/message_box.h"
#include "platform/text/locale.h"
#include "steady/case/calc_case.h"
#include "workflow/rules/rule_tables.h"

// The inputs of the measuring window.

namespace zel::measuring {

/// Why a typed text was refused. The focus goes back to its box.
struct EntryRefusal {
    Box box;
    bool clears = false;  // the box is emptied; otherwise its text stays to be corrected
};

/// Text1, the height difference from the measuring head to the conductor, m, parsed at 32-bit
/// precision. A text that is no number becomes 0 and no text, and so does one above 199. The lower
/// bound of -20 is told and not tested. An empty text is no input and keeps the number.
[[nodiscard]] std::optional<EntryRefusal> enter_height(Entry& Hoehendifferenz,
                                                       std::string_view text, const Locale& locale);

/// The heights by which a cycle can start, m.
[[nodiscard]] NumberSpan allowed_heights();

/// Whether a text that is being typed may still become a number, as "-" may.
[[nodiscard]] bool may_become_number(std::string_view text, const Locale& locale);

/// Why no cycle is started: there is no height difference, or no wind can be extrapolated over it.
[[nodiscard]] std::optional<Box> refusal_to_start(const Entry& Hoehendifferenz, LangId lang);

/// An entry of a list that begins with the value that it stands for.
struct ListedValue {
    Text text;
    double value;
};

/// A combination box: a choice, or a typed value, becomes a number of the case.
struct CombinationBox {
    const char* control;
    Text label;
    Entry CalcCase::*field;
    std::span<const ListedValue> entries;
    std::size_t at_load;  // the entry that is shown then
    bool zero_is_refused;
    bool refusal_clears;  // the box itself, too
};
/// `Combo1`, the clearness, and `Combo2`, the albedo.
[[nodiscard]] std::span<const CombinationBox> combination_boxes();

/// The values that a box takes.
[[nodiscard]] NumberSpan allowed_values(const CombinationBox& box);

/// The index of the entry with this wording in one of the languages; nothing for others.
[[nodiscard]] std::optional<std::size_t> entry_named(const CombinationBox& box,
                                                     std::string_view text);
/// A choice goes into the case.
void choose(const CombinationBox& box, std::size_t index, CalcCase& c, DecimalSeparator separator);
/// A typed text goes into the case, parsed at 32-bit precision; one that is refused empties the
/// case's.
[[nodiscard]] std::optional<EntryRefusal> enter(const CombinationBox& box, std::string_view text,
                                                CalcCase& c, const Locale& locale);

}  // namespace zel::measuring
