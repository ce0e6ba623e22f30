#include "platform/text/number_text.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <iterator>
#include <limits>
#include <system_error>

namespace zel {
namespace {

constexpr int significant_digits = 15;

bool is_digit(char c) { return c >= '0' && c <= '9'; }

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view white = " \t\r\n";
    const std::size_t first = text.find_first_not_of(white);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(white) - first + 1);
}

/// The form "[-]digits[.digits][e[+-]digits]" of a typed number, or nothing where it has none.
std::optional<std::string> normal_form(std::string_view text, char separator) {
    std::string out;
    std::size_t i = 0;
    const auto digits = [&] {
        const std::size_t first = i;
        while (i < text.size() && is_digit(text[i])) out += text[i++];
        return i - first;
    };
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) {
        if (text[i] == '-') out += '-';
        ++i;
    }
    std::size_t count = digits();
    if (count == 0) out += '0';
    if (i < text.size() && text[i] == separator) {
        ++i;
        out += '.';
        const std::size_t decimals = digits();
        if (decimals == 0) out += '0';
        count += decimals;
    }
    if (count == 0) return std::nullopt;
    if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
        out += text[i++];
        if (i < text.size() && (text[i] == '-' || text[i] == '+')) out += text[i++];
        if (digits() == 0) return std::nullopt;
    }
    if (i != text.size()) return std::nullopt;
    return out;
}

/// Whether a number out of the range of a double is so because it is too small: by the weight of
/// its first digit that counts.
bool is_tiny(std::string_view form) {
    const std::size_t e = std::min(form.find_first_of("eE"), form.size());
    const std::string_view mantissa = form.substr(0, e);
    const std::size_t first = mantissa.find_first_of("123456789");
    if (first == std::string_view::npos) return true;
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    double weight = static_cast<double>(point) - static_cast<double>(first);
    if (e + 1 < form.size()) {
        // An exponent with more digits than an integer holds is as good as infinite.
        const std::string_view exponent = form.substr(e + 1);
        const bool negative = exponent.front() == '-';
        double size = 0;
        for (const char c : exponent)
            if (is_digit(c)) size = size * 10 + (c - '0');
        weight += negative ? -size : size;
    }
    return weight < 0;
}

/// The decimal digits of a positive number: value = 0.d1d2d3... * 10^point.
struct Decimal {
    std::string digits;
    int point = 0;
};

Decimal decimal_of(double magnitude) {
    if (magnitude == 0) return {"0", 0};
    char buffer[32];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, magnitude,
                                   std::chars_format::scientific, significant_digits - 1);
    const std::string_view form(buffer, static_cast<std::size_t>(end.ptr - buffer));
    const std::size_t e = form.find('e');
    int exponent = 0;
    const char* first = form.data() + e + (form[e + 1] == '+' ? 2 : 1);
    std::from_chars(first, end.ptr, exponent);
    std::string digits(1, form[0]);
    digits += form.substr(2, e - 2);
    return {digits, exponent + 1};
}

/// `number` cut to `places` decimals, half away from zero.
void round_to(Decimal& number, int places) {
    const int keep = number.point + places;
    if (keep >= static_cast<int>(number.digits.size())) return;
    if (keep < 0) {
        number = {"0", 0};
        return;
    }
    const bool up = number.digits[static_cast<std::size_t>(keep)] >= '5';
    number.digits.resize(static_cast<std::size_t>(keep));
    if (!up) return;
    for (auto digit = number.digits.rbegin(); digit != number.digits.rend(); ++digit) {
        if (*digit != '9') {
            ++*digit;
            return;
        }
        *digit = '0';
    }
    number.digits.insert(number.digits.begin(), '1');
    ++number.point;
}

/// The digit of weight 10^(point-1-index), 0 beyond the digits.
char digit_at(const Decimal& number, int index) {
    return index >= 0 && index < static_cast<int>(number.digits.size())
               ? number.digits[static_cast<std::size_t>(index)]
               : '0';
}

std::string whole_part(const Decimal& number, std::size_t least_digits) {
    std::string whole;
    for (int i = 0; i < number.point; ++i) whole += digit_at(number, i);
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size()));
    if (whole.size() < least_digits) whole.insert(0, least_digits - whole.size(), '0');
    return whole;
}

std::string decimals(const Decimal& number, std::size_t places, std::size_t least_digits) {
    std::string out;
    for (std::size_t i = 0; i < places; ++i)
        out += digit_at(number, number.point + static_cast<int>(i));
    while (out.size() > least_digits && out.back() == '0') out.pop_back();
    return out;
}

template <class Number>
std::string fewest_digits(Number value) {
    char digits[32];
    const auto end = std::to_chars(std::begin(digits), std::end(digits), value);
    return {std::begin(digits), end.ptr};
}

}  // namespace

char character(DecimalSeparator separator) {
    return separator == DecimalSeparator::Comma ? ',' : '.';
}

std::optional<double> parse_number(std::string_view text, DecimalSeparator separator) {
    const auto form = normal_form(trimmed(text), character(separator));
    if (!form) return std::nullopt;
    double value = 0;
    const auto [end, error] = std::from_chars(form->data(), form->data() + form->size(), value);
    if (error == std::errc::result_out_of_range)
        return is_tiny(*form) ? std::optional<double>(0) : std::nullopt;
    return value;
}

std::optional<float> parse_single(std::string_view text, DecimalSeparator separator) {
    const auto form = normal_form(trimmed(text), character(separator));
    if (!form) return std::nullopt;
    float value = 0;
    const auto [end, error] = std::from_chars(form->data(), form->data() + form->size(), value);
    if (error != std::errc::result_out_of_range) return value;
    if (is_tiny(*form)) return 0.0F;
    const float beyond = std::numeric_limits<float>::infinity();
    return form->front() == '-' ? -beyond : beyond;
}

std::string exact_number(double value) { return fewest_digits(value); }
std::string exact_number(float value) { return fewest_digits(value); }

double decimal_of_single(double single) {
    const std::string digits = exact_number(static_cast<float>(single));
    double value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

std::string masked(double value, std::string_view mask, DecimalSeparator separator) {
    if (!std::isfinite(value)) return {};
    std::size_t first = mask.find_first_of("#0");
    if (first == std::string_view::npos) return std::string(mask);
    if (first > 0 && mask[first - 1] == '.') --first;
    std::size_t last = first;
    std::size_t point = std::string_view::npos;
    for (; last < mask.size(); ++last) {
        if (mask[last] == '.' && point == std::string_view::npos)
            point = last;
        else if (mask[last] != '#' && mask[last] != '0')
            break;
    }
    const std::string_view whole_places = mask.substr(first, std::min(point, last) - first);
    const std::string_view decimal_places = point == std::string_view::npos
                                                ? std::string_view{}
                                                : mask.substr(point + 1, last - point - 1);
    const std::size_t first_zero = std::min(whole_places.find('0'), whole_places.size());
    const std::size_t last_zero = decimal_places.rfind('0');

    Decimal number = decimal_of(std::abs(value));
    round_to(number, static_cast<int>(decimal_places.size()));
    const bool nothing_left = number.digits.find_first_not_of('0') == std::string::npos;

    std::string out;
    if (value < 0 && !nothing_left) out += '-';
    out += mask.substr(0, first);
    out += whole_part(number, whole_places.size() - first_zero);
    if (point != std::string_view::npos) {
        out += character(separator);
        out += decimals(number, decimal_places.size(),
                        last_zero == std::string_view::npos ? 0 : last_zero + 1);
    }
    out += mask.substr(last);
    return out;
}

std::string plain_number(double value, DecimalSeparator separator) {
    if (!std::isfinite(value)) return {};
    if (value == 0) return "0";
    char buffer[32];
    char* const end = std::to_chars(std::begin(buffer), std::end(buffer), value,
                                    std::chars_format::general, significant_digits)
                          .ptr;
    std::replace(buffer, end, '.', character(separator));
    std::replace(buffer, end, 'e', 'E');
    return {buffer, end};
}

}  // namespace zel
