#include "shell/program_settings.h"

#include <algorithm>
#include <charconv>

#include "platform/errors.h"
#include "platform/sensor_port.h"

namespace zel {
namespace {

constexpr Text whole_number = {"{0} ist keine ganze Zahl von -32768 bis 32767",
                               "{0} is not a whole number from -32768 to 32767"};
constexpr Text none_offered = {"{0} ist nicht eine von {1} ({2})", "{0} is not one of {1} ({2})"};
constexpr Text control_characters = {"{0} ist kein Text ohne Steuerzeichen und Zeilenenden",
                                     "{0} is not a text without control characters and line ends"};
constexpr Text too_long = {
    "{0} ist kein Text von höchstens 511 Zeichen ohne Leerzeichen davor und dahinter",
    "{0} is not a text of at most 511 characters without blanks around it"};
constexpr Text no_path = {"{0} ist kein Pfad: ein solcher hat mindestens 2 Zeichen und beginnt "
                          "nicht mit \"kein Eintrag gefunden\"",
                          "{0} is not a path: it has at least 2 characters and does not begin with "
                          "\"kein Eintrag gefunden\""};

constexpr Text no_line = {
    "{0} ist nicht Baudrate ({1}), Datenbits 7 oder 8, Parität N, E oder O und Stopbits 1 oder 2, wie \"9600 8N1\"",
    "{0} is not baud rate ({1}), data bits 7 or 8, parity N, E or O, and stop bits 1 or 2, as \"9600 8N1\""};

[[noreturn]] void refuse(const SettingRow& row, const Reason& reason) {
    throw InputError(at(std::string(row.key), reason));
}

[[noreturn]] void refuse_number(const SettingRow& row, std::string_view value) {
    if (row.offered.empty()) refuse(row, Reason(whole_number, {in_quotes(value)}));
    std::string list;
    for (const std::int16_t number : row.offered)
        list += (number == row.offered.front() ? "" : ", ") + std::to_string(number);
    Reason reason(none_offered, {in_quotes(value), list, row.meaning.en});
    reason.de = fill(none_offered.de, {in_quotes(value), list, row.meaning.de});
    refuse(row, reason);
}

std::string number_entry(const SettingRow& row, std::string_view value) {
    std::int16_t number = 0;
    const char* end = value.data() + value.size();
    const auto [rest, error] = std::from_chars(value.data(), end, number);
    if (error != std::errc() || rest != end) refuse_number(row, value);
    if (!row.offered.empty() && std::count(row.offered.begin(), row.offered.end(), number) == 0)
        refuse_number(row, value);
    return std::to_string(number);
}

}  // namespace

std::string setting_entry(const SettingRow& row, std::string_view value) {
    if (std::holds_alternative<NumberMember>(row.member)) return number_entry(row, value);
    const bool control = std::any_of(value.begin(), value.end(), [](char c) {
        return static_cast<unsigned char>(c) < 0x20 || c == 0x7F;
    });
    if (control) refuse(row, Reason(control_characters, {in_quotes(value)}));
    if (value != as_read(value)) refuse(row, Reason(too_long, {in_quotes(value)}));
    if (row.is_path && !value.empty() && is_missing_path(value))
        refuse(row, Reason(no_path, {in_quotes(value)}));
    if (row.is_port_line && !value.empty() && !port_line(value))
        refuse(row, Reason(no_line, {in_quotes(value), port_rates()}));
    return std::string(value);
}

}  // namespace zel
