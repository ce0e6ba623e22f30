#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace pugi {
class xml_node;
}

namespace zel::xlsx {

/// Bytes of a text that are read; none that is understood has as many. Thousands of cells may share
/// one text.
inline constexpr std::size_t longest_text = 1000;

/// What the cells of a workbook need from its other parts to be read as text: the texts that they
/// share, and which cell formats show a date.
class CellTexts {
public:
    /// The shared strings part, at most two million of them. Rich text is joined, phonetic marks
    /// are left out.
    void read_shared_strings(std::string_view xml);

    /// The styles part, at most 65536 formats of cells: a number in a date or time format is a
    /// date.
    void read_styles(std::string_view xml);

    /// Dates count from 1904 and not from 1900.
    void count_from_1904() { from_1904_ = true; }

    /// What the cell element `c` shows, see `Workbook::text`. Throws `WorkbookError` (`Damaged`).
    [[nodiscard]] std::string of(const pugi::xml_node& c) const;

private:
    [[nodiscard]] std::string of_number(std::string_view digits, std::string_view style) const;

    std::string shared_;  // one text behind the other: a list of strings takes ten times as much
    std::vector<std::uint32_t> shared_ends_;  // behind each text; a part has less than 4 GiB
    std::vector<bool> shows_date_;            // by the cell format
    bool from_1904_ = false;
};

/// Whether a number format shows a date or a time: its code has a letter of one outside quotes,
/// brackets and escapes.
[[nodiscard]] bool is_date_format(std::string_view code);

/// The serial number of a date as "31.12.2026", or "31.12.2026 23:59:59" where it has a time; a
/// time alone as "23:59:59". The first of March 1900 has 61; a leap day of 1900 that never was
/// has 60.
[[nodiscard]] std::string date_text(double serial, bool from_1904);

}  // namespace zel::xlsx
