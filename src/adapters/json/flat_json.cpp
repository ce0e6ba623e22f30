#include "adapters/json/flat_json.h"

#include <cmath>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "platform/errors.h"
#include "platform/text/number_text.h"

namespace zel {
namespace {

using nlohmann::json;

constexpr Text twice = {"der Schlüssel steht zweimal da", "the key stands twice"};
constexpr Text null_value = {"null ist kein Wert; ohne Angabe lassen Sie den Schlüssel weg",
                             "null is no value; leave the key out where there is no input"};
constexpr Text binary_value = {"Binärdaten sind kein Wert", "binary data is no value"};
constexpr Text object_value = {"ein Objekt ist kein Wert", "an object is no value"};
constexpr Text array_value = {"eine Liste ist kein Wert", "an array is no value"};
constexpr Text beyond_range = {"{0} liegt außerhalb des Bereichs einer Zahl",
                               "{0} is beyond the range of a number"};
constexpr Text one_object = {"die Datei muss ein JSON-Objekt enthalten",
                             "the file must hold one JSON object"};
constexpr Text too_many = {"mehr als {0} Werte, keine Datei eines Falls",
                           "more than {0} values, no file of a case"};
constexpr Text zero_byte = {"kein JSON: ein Nullbyte steht an Stelle {0}",
                            "no JSON: a zero byte stands at {0}"};
constexpr Text at_place = {"kein JSON: Fehler in Zeile {0}, Spalte {1}",
                           "no JSON: error at line {0}, column {1}"};

/// Ten times what a case has: a file of 16 MiB could fill two hundred.
constexpr std::size_t most_values = 10'000;

/// The parser's words are English: the German reason names the place alone.
Reason no_json(std::string text) {
    constexpr std::size_t longest = 300;  // the words quote what was read last
    if (const std::size_t head = text.find("] "); head != std::string::npos)
        text.erase(0, head + 2);  // "[json.exception.parse_error.101] "
    Reason reason("no JSON: " + shortened(text, longest));
    std::size_t line = 0;
    std::size_t column = 0;
    if (std::sscanf(text.c_str(), "parse error at line %zu, column %zu", &line, &column) == 2)
        reason.de = Reason(at_place, {std::to_string(line), std::to_string(column)}).de;
    return reason;
}

/// Takes the members as the parser meets them; a document tree would drop repeated keys.
class FlatHandler : public json::json_sax_t {
public:
    FlatObject object;

    bool key(string_t& name) override {
        key_ = name;
        if (keys_.size() == most_values)
            throw InputError(Reason(too_many, {std::to_string(most_values)}));
        if (!keys_.insert(name).second) throw InputError(at(shortened(name), Reason(twice)));
        return true;
    }
    bool boolean(bool value) override { return take(value); }
    bool number_integer(number_integer_t value) override {
        return take(static_cast<double>(value));
    }
    bool number_unsigned(number_unsigned_t value) override {
        return take(static_cast<double>(value));
    }
    bool number_float(number_float_t value, const string_t& /*text*/) override {
        return take(value);
    }
    bool string(string_t& value) override { return take(value); }
    bool null() override {
        refuse(Reason(null_value));
        return false;
    }
    bool binary(binary_t& /*value*/) override {
        refuse(Reason(binary_value));
        return false;
    }
    bool start_object(std::size_t /*elements*/) override {
        if (inside_) refuse(Reason(object_value));
        inside_ = true;
        return true;
    }
    bool end_object() override { return true; }
    bool start_array(std::size_t /*elements*/) override {
        refuse(Reason(array_value));
        return false;
    }
    bool end_array() override { return true; }
    bool parse_error(std::size_t /*position*/, const std::string& last_token,
                     const nlohmann::detail::exception& error) override {
        if (error.id == number_overflow) refuse(Reason(beyond_range, {shortened(last_token)}));
        throw InputError(no_json(error.what()));
    }

private:
    static constexpr int number_overflow = 406;

    bool take(FlatValue value) {
        if (!inside_) refuse(std::string());
        object.push_back({key_, std::move(value)});
        return true;
    }
    [[noreturn]] void refuse(const Reason& reason) const {
        if (!inside_) throw InputError(Reason(one_object));
        throw InputError(at(shortened(key_), reason));
    }

    std::unordered_set<std::string> keys_;
    std::string key_;
    bool inside_ = false;
};

std::string printed(bool value) { return value ? "true" : "false"; }

std::string printed(double value) {
    if (value == 0 && std::signbit(value)) return "-0.0";  // "-0" would be read as an integer
    return exact_number(value);
}

std::string printed(const std::string& value) {
    return json(value).dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace

FlatObject parse_flat_json(std::string_view text) {
    // The parser takes a zero byte for the end of the text and would not see what follows.
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos)
        throw InputError(Reason(zero_byte, {std::to_string(zero + 1)}));
    FlatHandler handler;
    json::sax_parse(text, &handler);
    return std::move(handler.object);
}

std::string print_flat_json(const FlatObject& object) {
    std::string text;
    for (const auto& [key, value] : object)
        text += (text.empty() ? "\n  " : ",\n  ") + printed(key) + ": " +
                std::visit([](const auto& held) { return printed(held); }, value);
    return terminal_safe("{" + text + "\n}\n");
}

std::string terminal_safe(std::string_view json) {
    constexpr std::string_view hex = "0123456789abcdef";
    std::string safe;
    for (std::size_t i = 0; i < json.size(); ++i) {
        const auto byte = static_cast<unsigned char>(json[i]);
        const auto next = static_cast<unsigned char>(i + 1 < json.size() ? json[i + 1] : 0);
        const bool is_pair = byte == 0xC2 && next >= 0x80 && next < 0xA0;  // U+0080 to U+009F
        if (!is_pair && byte != 0x7F) {
            safe += json[i];
            continue;
        }
        const unsigned code = is_pair ? next : byte;
        safe += "\\u00";
        safe += {hex[code >> 4U], hex[code & 0xFU]};
        if (is_pair) ++i;
    }
    return safe;
}

}  // namespace zel
