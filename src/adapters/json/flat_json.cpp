#include "adapters/json/flat_json.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <nlohmann/json.hpp>

#include "platform/errors.h"

namespace zel {
namespace {

using nlohmann::json;

/// Takes the members as the parser meets them; a document tree would drop repeated keys.
class FlatHandler : public json::json_sax_t {
public:
    FlatObject object;

    bool key(string_t& name) override {
        key_ = name;
        const bool known = std::any_of(object.begin(), object.end(), [&](const FlatMember& member) {
            return member.key == name;
        });
        if (known) throw InputError(name + ": the key stands twice");
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
        refuse("null is no value; leave the key out where there is no input");
        return false;
    }
    bool binary(binary_t& /*value*/) override {
        refuse("binary data is no value");
        return false;
    }
    bool start_object(std::size_t /*elements*/) override {
        if (inside_) refuse("an object is no value");
        inside_ = true;
        return true;
    }
    bool end_object() override { return true; }
    bool start_array(std::size_t /*elements*/) override {
        refuse("an array is no value");
        return false;
    }
    bool end_array() override { return true; }
    bool parse_error(std::size_t /*position*/, const std::string& last_token,
                     const nlohmann::detail::exception& error) override {
        if (error.id == number_overflow) refuse(last_token + " is beyond the range of a number");
        const std::string text = error.what();
        const std::size_t head = text.find("] ");  // "[json.exception.parse_error.101] "
        throw InputError("no JSON: " + (head == std::string::npos ? text : text.substr(head + 2)));
    }

private:
    static constexpr int number_overflow = 406;

    bool take(FlatValue value) {
        if (!inside_) refuse("");
        object.push_back({key_, std::move(value)});
        return true;
    }
    [[noreturn]] void refuse(const std::string& reason) const {
        if (!inside_) throw InputError("the file must hold one JSON object");
        throw InputError(key_ + ": " + reason);
    }

    std::string key_;
    bool inside_ = false;
};

std::string printed(bool value) { return value ? "true" : "false"; }

std::string printed(double value) {
    if (value == 0 && std::signbit(value)) return "-0.0";  // "-0" would be read as an integer
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value);
    return {buffer.data(), end.ptr};
}

std::string printed(const std::string& value) {
    return json(value).dump(-1, ' ', false, json::error_handler_t::replace);
}

}  // namespace

FlatObject parse_flat_json(std::string_view text) {
    // The parser takes a zero byte for the end of the text and would not see what follows.
    if (const std::size_t zero = text.find('\0'); zero != std::string_view::npos)
        throw InputError("no JSON: a zero byte stands at " + std::to_string(zero + 1));
    FlatHandler handler;
    json::sax_parse(text, &handler);
    return std::move(handler.object);
}

std::string print_flat_json(const FlatObject& object) {
    std::string text;
    for (const auto& [key, value] : object)
        text += (text.empty() ? "\n  " : ",\n  ") + printed(key) + ": " +
                std::visit([](const auto& held) { return printed(held); }, value);
    return "{" + text + "\n}\n";
}

}  // namespace zel
