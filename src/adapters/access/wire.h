#pragma once

#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

// What the program and the reader of Access files say to each other. A message is its length in 32
// bits and that many bytes: numbers of 64 bits in the order of the machine, and texts behind their
// lengths.
//
//   Tables                                  answer: n, then of each its name, the rows that the
//                                           file counts, n columns and their names
//   Rows table from most n columns          answer: whether rows follow, n, then of each row at
//                                           `from` or behind it its key and the columns' values
//
// Tables and columns are places in the answer to Tables. Every answer begins with an `Outcome`;
// only Done has more.

namespace zel::access {

enum class Question : std::uint8_t { Tables = 1, Rows = 2 };
enum class Outcome : std::uint8_t { Done = 1, Damaged = 2, Encrypted = 3 };

/// Where the reader finds what it is started with.
constexpr int channel_number = 3;
constexpr int file_number = 4;

using MessageLength = std::uint32_t;
constexpr MessageLength longest_message = 64U << 20U;
/// An answer is sent once it is longer than this; one row always has room behind it.
constexpr std::size_t full_answer = 1U << 20U;
constexpr std::uint64_t most_columns = 255;

/// In the place of a text's length.
constexpr std::uint64_t null_mark = ~std::uint64_t{0};

class Message {
public:
    Message& number(std::uint64_t value) {
        char bytes[sizeof value];
        std::memcpy(bytes, &value, sizeof value);
        bytes_.append(bytes, sizeof bytes);
        return *this;
    }
    Message& text(std::string_view value) {
        number(value.size());
        bytes_.append(value);
        return *this;
    }
    Message& cell(const std::optional<std::string>& value) {
        return value ? text(*value) : number(null_mark);
    }
    Message& append(const Message& more) {
        bytes_ += more.bytes_;
        return *this;
    }
    [[nodiscard]] const std::string& bytes() const { return bytes_; }

private:
    std::string bytes_;
};

/// What is no message.
struct Nonsense {};

/// Takes a message apart; throws `Nonsense` where something else stands in it.
class MessageParts {
public:
    explicit MessageParts(std::string_view bytes) : rest_(bytes) {}

    std::uint64_t number() {
        std::uint64_t value = 0;
        std::memcpy(&value, take(sizeof value).data(), sizeof value);
        return value;
    }
    /// A number up to `most`.
    std::uint64_t number(std::uint64_t most) {
        const std::uint64_t value = number();
        if (value > most) throw Nonsense();
        return value;
    }
    std::string text() { return std::string(take(number())); }
    std::optional<std::string> cell() {
        const std::uint64_t length = number();
        if (length == null_mark) return std::nullopt;
        return std::string(take(length));
    }
    void end() const {
        if (!rest_.empty()) throw Nonsense();
    }

private:
    std::string_view take(std::uint64_t length) {
        if (length > rest_.size()) throw Nonsense();
        const std::string_view taken = rest_.substr(0, length);
        rest_.remove_prefix(length);
        return taken;
    }

    std::string_view rest_;
};

}  // namespace zel::access
