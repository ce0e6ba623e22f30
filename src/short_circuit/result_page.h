#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/canvas.h"
#include "platform/text/number_text.h"
#include "platform/text/text.h"
#include "short_circuit/modul_iec865.h"

// The result page as texts. "ja" and "nein" are German in every language; in English the place of
// the unit says what they mean.

namespace zel {

/// A row of the intermediate results. The value of a flow beyond N is empty.
struct VerdictRow {
    Text label;
    std::string value;
    Text unit;
    std::string_view printed_label;  // on paper, where all is German
    bool unit_printed = true;        // on paper too
};

/// The intermediate results of one section of EN 60865-1.
struct VerdictGroup {
    Text caption;
    std::vector<VerdictRow> rows;
    std::size_t flow_rows = 0;  // the first rows tell of the flows, m, n and I_th of each in turn
};

struct VerdictPage {
    Text verdict;
    bool withstands = false;  // the verdict shows green, otherwise red
    std::vector<VerdictGroup> groups;
};

inline constexpr Colour colour_of_weak = red;
inline constexpr Colour colour_of_strong = rgb(0, 192, 0);
inline constexpr Colour colour_of_empty = rgb(192, 192, 192);  // cells of flows beyond N

/// What is shown of the result of `c`; numbers have the session's separator.
[[nodiscard]] VerdictPage KS_Ergebnisanzeige(const ShortCircuitCase& c,
                                             const ShortCircuitResult& result,
                                             DecimalSeparator separator);

/// The page as plain text, such as the clipboard takes; empty cells are left out.
[[nodiscard]] std::string result_text(const VerdictPage& page, LangId lang);

}  // namespace zel
