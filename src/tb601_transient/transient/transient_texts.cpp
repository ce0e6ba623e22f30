#include "tb601_transient/transient/transient_texts.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace zel {
namespace {

constexpr std::string_view whole_mask = "#####0";

/// "t 0-2 = 7 min 30 sec"
std::string running_total(std::size_t row, double seconds, DecimalSeparator separator) {
    const double minutes = std::floor(seconds / 60);
    const double rest = seconds - 60 * minutes;
    return "t 0-" + std::to_string(row) + " = " + masked(minutes, whole_mask, separator) + " min " +
           masked(rest, whole_mask, separator) + " sec";
}

/// `value` with two digits at least.
std::string two_digits(long long value) {
    std::string text = std::to_string(value);
    if (text.size() < 2) text.insert(0, 1, '0');
    return text;
}

}  // namespace

std::array<TransientRowTexts, state_change_count> TS_ShowResults(const Zustand16& rows,
                                                                 int Anzahl_Teilleiter,
                                                                 DecimalSeparator separator) {
    std::array<TransientRowTexts, state_change_count> texts;
    double total = 0;  // s
    for (std::size_t i = 0; i < rows.size() && rows[i].Failed == 0; ++i) {
        const TransientRow& row = rows[i];
        if (row.Merker == row_unused) continue;
        TransientRowTexts& shown = texts[i];
        switch (row.Merker) {
            case seeks_current:
                shown.Strom = masked(row.Strom * Anzahl_Teilleiter, "####0", separator);
                break;
            case seeks_temperature: shown.Temp = masked(row.Temp, "####0.0", separator); break;
            case seeks_time:
                shown.Min = masked(row.Min, whole_mask, separator);
                shown.Sec = masked(row.Sec, whole_mask, separator);
                break;
            default: break;
        }
        total += duration_s(row);
        shown.total = running_total(i + 1, total, separator);
    }
    return texts;
}

std::string Zeit_format(std::chrono::system_clock::time_point later,
                        std::chrono::system_clock::time_point earlier) {
    using namespace std::chrono;
    const long long seconds =
        std::max<long long>(round<std::chrono::seconds>(later - earlier).count(), 0);
    return std::to_string(seconds / 3600) + " h " + two_digits(seconds / 60 % 60) + " min " +
           two_digits(seconds % 60) + " sec";
}

}  // namespace zel
