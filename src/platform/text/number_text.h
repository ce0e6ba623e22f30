#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zel {

/// Decimal separator of the session. The numbers are those of `Punkt_Komma_Format_merker`.
enum class DecimalSeparator : std::int16_t { Comma = 1, Point = 2 };

[[nodiscard]] char character(DecimalSeparator separator);

/// The number that a typed text stands for, or nothing where the text is no number.
///
/// A number has an optional sign, digits with at most one decimal separator (at least one digit
/// on either side of it), and an optional exponent ("1e3", "1E-3"). White space around it, a
/// pasted line end too, is passed over. The other separator, grouping marks, "inf" and "nan" make
/// the text no number, and so does a value beyond the range of a double; one too small for a
/// double is 0.
[[nodiscard]] std::optional<double> parse_number(std::string_view text, DecimalSeparator separator);

/// The same at 32-bit precision, rounded once from the digits of the text. A number beyond the
/// range of a float is infinite; the text is none only where it has not the form of a number.
[[nodiscard]] std::optional<float> parse_single(std::string_view text, DecimalSeparator separator);

/// The fewest digits, behind a decimal point, that read back as the same number: "0.1", "1e+20".
[[nodiscard]] std::string exact_number(double value);
[[nodiscard]] std::string exact_number(float value);

/// The double whose digits are the fewest that read back as the same float: 0.1, not
/// 0.100000001490116.
[[nodiscard]] double decimal_of_single(double single);

/// `value` written by a display mask such as "##0.0#".
///
/// The places are the first run of `#`, `0` and one point: `0` always shows a digit, `#` only a
/// digit that counts. All else in the mask, blanks included, is shown as it stands. The value is
/// rounded half away from zero on its decimal form of 15 significant digits, so that 80.05 shows
/// as 80.1 in "##0.0". Digits before the point are never cut. Where the mask has only `#` before
/// the point, a number below 1 shows no digit there (".5"); a point in the mask is always shown.
/// A minus sign stands before everything else, and not at all where only zeros are left.
/// A value that is infinite or no number shows as an empty text.
[[nodiscard]] std::string masked(double value, std::string_view mask, DecimalSeparator separator);

/// `value` without a mask, in at most 15 significant digits, as a field shows a number that was
/// computed for it ("1500", "0.1", "1E+20"). Empty for a value that is infinite or no number.
[[nodiscard]] std::string plain_number(double value, DecimalSeparator separator);

}  // namespace zel
