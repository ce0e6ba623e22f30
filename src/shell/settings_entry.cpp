#include "shell/program_settings.h"

#include <algorithm>
#include <charconv>

#include "platform/errors.h"

namespace zel {
namespace {

[[noreturn]] void refuse(const SettingRow& row, std::string_view value, const std::string& limit) {
    throw InputError(std::string(row.key) + ": \"" + std::string(value) + "\" is not " + limit);
}

std::string numbers(const SettingRow& row) {
    std::string list = "one of ";
    for (const std::int16_t number : row.offered)
        list += (number == row.offered.front() ? "" : ", ") + std::to_string(number);
    return list + " (" + std::string(row.meaning.en) + ")";
}

std::string number_entry(const SettingRow& row, std::string_view value) {
    std::int16_t number = 0;
    const char* end = value.data() + value.size();
    const auto [rest, error] = std::from_chars(value.data(), end, number);
    if (error != std::errc() || rest != end)
        refuse(row, value,
               row.offered.empty() ? "a whole number from -32768 to 32767" : numbers(row));
    if (!row.offered.empty() && std::count(row.offered.begin(), row.offered.end(), number) == 0)
        refuse(row, value, numbers(row));
    return std::to_string(number);
}

}  // namespace

std::string setting_entry(const SettingRow& row, std::string_view value) {
    if (std::holds_alternative<NumberMember>(row.member)) return number_entry(row, value);
    const bool control = std::any_of(value.begin(), value.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    });
    if (control) refuse(row, value, "a text without control characters and line ends");
    if (value != as_read(value))
        refuse(row, value, "a text of at most 511 characters without blanks around it");
    if (row.is_path && !value.empty() && is_missing_path(value))
        refuse(row, value,
               "a path: it has at least 2 characters and does not begin with "
               "\"kein Eintrag gefunden\"");
    return std::string(value);
}

}  // namespace zel
