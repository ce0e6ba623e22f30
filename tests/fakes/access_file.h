#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

// Makes Access files, as far as they hold tables: no indexes, no relations, no properties.

namespace zel::access_file {

enum class Type : std::uint8_t {
    Boolean = 1,
    Byte = 2,
    Integer = 3,
    Long = 4,
    Currency = 5,
    Single = 6,
    Double = 7,
    Date = 8,
    Text = 10,
    Picture = 11,
    Memo = 12,
};

struct Column {
    std::string name;
    Type type = Type::Text;
    std::uint16_t length = 0;  // characters of a text
};

using Cell = std::variant<std::monostate, double, std::string>;  // `monostate` is Null

constexpr std::uint32_t hidden = 2;
constexpr std::uint32_t system_table = 0x80000000;

struct Table {
    std::string name;
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows;
    std::uint32_t flags = 0;
    bool moved = false;  // the second row has moved to another page since it was written
};

enum class Version : std::uint8_t { Jet3 = 0, Jet4 = 1, Ace = 2 };

/// The bytes of a file. `key` is the one that the pages of an encrypted file need; they are not
/// encrypted here.
[[nodiscard]] std::string bytes_of(const std::vector<Table>& tables,
                                   Version version = Version::Jet4, std::uint32_t key = 0);

}  // namespace zel::access_file
