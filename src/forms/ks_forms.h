#pragma once

#include <span>
#include <string>
#include <string_view>

#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "short_circuit/short_circuit_case.h"

// The inputs of a short-circuit case as a person sees them: sections of rows with caption and unit,
// in the order in which they are filled in. Windows and listings are made from these tables. The
// captions are German in every language, as the texts of the checks that name them are; the hint
// says the same in English.

namespace zel {

struct KsFormRow {
    const char* control;  // object name: focus and tests find it
    KsKey field;
    std::string_view caption;
    const char* unit = "";
    std::string_view hint = {};                                // English
    std::span<const std::string_view> (*entries)() = nullptr;  // of a list, from index 0
    std::string_view note = {};                                // below the input
    bool caption_above = false;  // not beside the input, which is wide
};

struct KsFormSection {
    int page;
    Text caption;
    std::span<const KsFormRow> rows;
    bool typed = true;           // not what a conductor's record brought
    std::string_view note = {};  // above the rows
};

/// All sections, page by page. The rows of the conductor's record have no control to type into.
[[nodiscard]] std::span<const KsFormSection> ks_form_sections();

/// The caption of the input `field`, without blanks around it.
[[nodiscard]] std::string ks_caption_of(KsKey field);

/// What the row shows; a list shows its chosen entry, and nothing at index 0.
[[nodiscard]] std::string ks_shown_text(const ShortCircuitCase& c, const KsFormRow& row,
                                        DecimalSeparator separator);

}  // namespace zel
