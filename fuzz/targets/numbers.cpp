#include <cmath>

#include "fuzz.h"
#include "platform/text/number_text.h"
#include "platform/text/pasted_number.h"
#include "platform/text/utf8.h"
#include "platform/text/windows_1252.h"

// A byte for the separator, a line with a mask, and a text: typed numbers against those of the C
// library, numbers through their texts and back, masks against integer arithmetic.

namespace zel::fuzz {
namespace {

constexpr std::string_view white = " \t\r\n";

/// The text as the C library would read it, or nothing where it has other marks than a number.
std::string in_c(std::string_view text, char separator) {
    const std::size_t first = text.find_first_not_of(white);
    if (first == std::string_view::npos) return {};
    std::string form(text.substr(first, text.find_last_not_of(white) - first + 1));
    if (form.find_first_not_of(std::string("0123456789+-eE") + separator) != std::string::npos)
        return {};
    std::replace(form.begin(), form.end(), separator, '.');
    return form;
}

void compare_with_c(const std::string& text, DecimalSeparator separator) {
    const std::string form = in_c(text, character(separator));
    char* end = nullptr;
    const double number = std::strtod(form.c_str(), &end);
    const bool is_form = !form.empty() && end == form.c_str() + form.size();
    const auto read = parse_number(text, separator);
    require(read.has_value() == (is_form && std::isfinite(number)), "is a number or not:", text);
    if (read) require(*read == number, "reads as the C library does:", text);
    const auto single = parse_single(text, separator);
    require(single.has_value() == is_form, "is a number of 32 bits or not:", text);
    if (single)
        require(*single == std::strtof(form.c_str(), nullptr), "reads as 32 bits do:", text);
}

bool same_bits(double a, double b) { return a == b && std::signbit(a) == std::signbit(b); }

void through_texts(double value, DecimalSeparator separator) {
    if (!std::isfinite(value)) return;
    const auto back = parse_number(exact_number(value), DecimalSeparator::Point);
    require(back && same_bits(*back, value), "an exact number comes back:", exact_number(value));
    if (const auto single = static_cast<float>(value); std::isfinite(single))
        require(parse_single(exact_number(single), DecimalSeparator::Point) == single,
                "an exact number of 32 bits comes back:", exact_number(single));
    char digits[64];
    std::snprintf(digits, sizeof digits, "%.15g", value);
    const double rounded = std::strtod(digits, nullptr);
    const auto plain = parse_number(plain_number(value, separator), separator);
    // The largest numbers are rounded to one that no double holds.
    if (std::isfinite(rounded))
        require(plain == rounded, "a plain number has 15 digits:", plain_number(value, separator));
}

/// `value` by a mask of # and 0 with at most one point, by integers; empty where they are too small
/// for it.
std::string by_integers(double value, std::string_view mask, char separator) {
    __extension__ using Wide = __int128;
    const std::size_t point = std::min(mask.find('.'), mask.size());
    const std::string_view whole_places = mask.substr(0, point);
    const std::string_view decimal_places = mask.substr(std::min(point + 1, mask.size()));
    const double size = std::abs(value);
    if (decimal_places.size() > 8 || size > 1e12 || (size != 0 && size < 1e-6)) return {};
    char form[64];
    std::snprintf(form, sizeof form, "%.14e", size);
    const std::string text = form;
    const std::size_t e = text.find('e');
    Wide number = std::atoll((text.substr(0, 1) + text.substr(2, e - 2)).c_str());
    int power = std::atoi(text.c_str() + e + 1) - 14 + static_cast<int>(decimal_places.size());
    Wide unit = 1;
    for (; power < 0; ++power) unit *= 10;
    for (; power > 0; --power) number *= 10;
    number = (number + unit / 2) / unit;
    const bool nothing = number == 0;
    std::string digits;
    for (; number > 0; number /= 10) digits.insert(0, 1, static_cast<char>('0' + int(number % 10)));
    if (digits.size() < decimal_places.size())
        digits.insert(0, decimal_places.size() - digits.size(), '0');
    std::string whole = digits.substr(0, digits.size() - decimal_places.size());
    std::string decimals = digits.substr(whole.size());
    const std::size_t zeros =
        whole_places.size() - std::min(whole_places.find('0'), whole_places.size());
    if (whole.size() < zeros) whole.insert(0, zeros - whole.size(), '0');
    const std::size_t last = decimal_places.rfind('0');
    const std::size_t least = last == std::string_view::npos ? 0 : last + 1;
    while (decimals.size() > least && decimals.back() == '0') decimals.pop_back();
    return (value < 0 && !nothing ? "-" : "") + whole +
           (point < mask.size() ? std::string(1, separator) : "") + decimals;
}

void compare_masks(double value, const std::string& mask, DecimalSeparator separator) {
    const std::string shown = masked(value, mask, separator);
    if (!std::isfinite(value) || mask.find_first_not_of("#0.") != std::string::npos ||
        mask.find_first_of("#0") == std::string::npos ||
        std::count(mask.begin(), mask.end(), '.') > 1)
        return;
    const std::string expected = by_integers(value, mask, character(separator));
    if (!expected.empty()) require(shown == expected, "shown by " + mask + ":", shown);
}

void look_at_readings(const std::string& text, DecimalSeparator separator) {
    const auto readings = readings_of(text, separator);
    if (const auto number = parse_number(text, separator))
        require(readings.empty() ||
                    (readings.size() == 2 && parse_number(readings.front(), separator) == number),
                "a number is read as itself first:", text);
    for (const std::string& reading : readings) {
        require(parse_number(reading, separator).has_value(), "a reading is a number:", reading);
        const auto digits = [](std::string_view from) {
            std::string found;
            for (const char c : from)
                if (c >= '0' && c <= '9') found += c;
            return found;
        };
        require(digits(reading) == digits(text), "a reading has the digits:", reading);
    }
}

void look_at_bytes(const std::string& text) {
    const std::string wide = utf8_of_windows_1252(text);
    require(is_utf8(wide), "every byte is a character:", text);
    require(windows_1252_of(wide) == text, "bytes come back from UTF-8:", text);
    require(is_utf8(printable(text)), "what is printed is UTF-8:", text);
    const std::string first = first_characters(text, 7);
    require(text.starts_with(first) && width_of(first) <= 7, "the first characters:", text);
}

}  // namespace
}  // namespace zel::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace zel;
    fuzz::Input input(data, size);
    const auto separator = input.flag() ? DecimalSeparator::Point : DecimalSeparator::Comma;
    const std::string mask = input.line();
    const std::string text = input.rest();
    fuzz::compare_with_c(text, separator);
    double value = 0;
    if (text.size() >= sizeof value) std::memcpy(&value, text.data(), sizeof value);
    for (const double number : {value, parse_number(text, separator).value_or(0)}) {
        fuzz::through_texts(number, separator);
        fuzz::compare_masks(number, mask, separator);
    }
    fuzz::look_at_readings(text, separator);
    fuzz::look_at_bytes(text);
    return 0;
}
