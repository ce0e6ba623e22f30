#include "fakes/access_file.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numeric>
#include <utility>

namespace zel::access_file {
namespace {

/// The low bytes of a number, the lowest first.
std::string low(std::uint64_t number, int count) {
    std::string bytes;
    for (; count > 0; --count, number >>= 8U) bytes += static_cast<char>(number & 0xFFU);
    return bytes;
}

/// What a page holds: its bytes, and the marks in front of their place.
struct Slot {
    std::string bytes;
    unsigned marks = 0;
};
constexpr unsigned deleted = 0x8000;
constexpr unsigned points_elsewhere = 0x4000;

/// The first bytes behind the mark of a file are covered by this.
void rc4(std::string& bytes, std::size_t from, std::size_t count) {
    constexpr unsigned char key[] = {0xC7, 0xDA, 0x39, 0x6B};
    std::array<unsigned char, 256> state{};
    std::iota(state.begin(), state.end(), static_cast<unsigned char>(0));
    for (std::size_t i = 0, j = 0; i < state.size(); ++i) {
        j = (j + state[i] + key[i % sizeof key]) % state.size();
        std::swap(state[i], state[j]);
    }
    for (std::size_t n = 0, i = 0, j = 0; n < count; ++n) {
        i = (i + 1) % state.size();
        j = (j + state[i]) % state.size();
        std::swap(state[i], state[j]);
        const unsigned sum = unsigned{state[i]} + state[j];
        bytes[from + n] = static_cast<char>(bytes[from + n] ^ state[sum % state.size()]);
    }
}

bool varies(Type type) { return type == Type::Text || type == Type::Memo || type == Type::Picture; }

std::uint16_t width_of(Type type) {
    constexpr std::uint16_t widths[] = {0, 1, 1, 2, 4, 8, 4, 8, 8};
    return widths[static_cast<std::size_t>(type)];
}

std::string number_bytes(Type type, double value) {
    std::uint64_t bits = 0;
    const auto single = static_cast<float>(value);
    if (type == Type::Single)
        std::memcpy(&bits, &single, sizeof single);
    else if (type == Type::Double || type == Type::Date)
        std::memcpy(&bits, &value, sizeof value);
    else
        bits =
            static_cast<std::uint64_t>(std::llround(type == Type::Currency ? value * 1e4 : value));
    return low(bits, width_of(type));
}

class Writer {
public:
    Writer(Version version, std::uint32_t key)
        : old_(version == Version::Jet3), unit_(old_ ? 1 : 2), page_size_(old_ ? 2048 : 4096) {
        std::string head("\0\1\0\0Standard Jet DB\0", 20);
        if (version == Version::Ace) head.replace(13, 3, "ACE");
        head += static_cast<char>(version);
        head.resize(page_size_);
        head.replace(0x3C, 6, low(1252, 2) + low(key, 4));
        rc4(head, 0x18, old_ ? 126 : 128);
        pages_ = {head, data_page(1, {}), std::string()};
    }

    std::string write(const std::vector<Table>& tables) {
        Table catalog = {"MSysObjects",
                         {{"Id", Type::Long},
                          {"Name", Type::Text, 64},
                          {"Type", Type::Integer},
                          {"Flags", Type::Long},
                          {"LvProp", Type::Picture}},
                         {},
                         system_table};
        const auto enter = [&](const Table& table, std::size_t page) {
            const double flags = static_cast<std::int32_t>(table.flags);
            catalog.rows.push_back({double(page), table.name, 1.0, flags, std::monostate{}});
        };
        enter(catalog, catalog_page);
        for (const Table& table : tables) {
            enter(table, pages_.size());
            pages_.emplace_back();
            add(table, pages_.size() - 1);
        }
        add(catalog, catalog_page);
        return std::accumulate(pages_.begin(), pages_.end(), std::string());
    }

private:
    static constexpr std::size_t catalog_page = 2;

    [[nodiscard]] std::size_t page_head() const { return old_ ? 10 : 14; }

    [[nodiscard]] std::string data_page(std::size_t owner, const std::vector<Slot>& slots) const {
        std::string page("\1\1\0\0", 4);
        page += low(owner, 4) + low(0, old_ ? 0 : 4) + low(slots.size(), 2);
        std::size_t end = page_size_;
        for (const auto& [bytes, marks] : slots) page += low((end -= bytes.size()) | marks, 2);
        page.replace(2, 2, low(end - page.size(), 2));
        page.resize(end);
        for (auto slot = slots.rbegin(); slot != slots.rend(); ++slot) page += slot->bytes;
        return page;
    }

    /// In UTF-16 or, in an old file, Windows-1252, of which the tests need what is Latin 1.
    [[nodiscard]] std::string text_bytes(const std::string& text) const {
        std::string bytes;
        for (std::size_t i = 0; i < text.size();) {
            const auto lead = static_cast<unsigned char>(text[i++]);
            std::uint32_t code = lead < 0x80 ? lead : lead < 0xE0 ? lead & 0x1FU : lead & 0x0FU;
            for (int more = lead < 0xC0 ? 0 : lead < 0xE0 ? 1 : 2; more > 0; --more)
                code = code << 6U | (static_cast<unsigned char>(text[i++]) & 0x3FU);
            bytes += low(code, unit_);
        }
        return bytes;
    }

    [[nodiscard]] std::string varying_bytes(const Column& column, const Cell& cell) const {
        const auto* text = std::get_if<std::string>(&cell);
        if (text == nullptr) return {};
        if (column.type == Type::Text) return text_bytes(*text);
        const std::string inside = text_bytes(*text);
        return low(inside.size() | 0x80000000U, 12) + inside;  // the text follows here
    }

    [[nodiscard]] std::string row_bytes(const Table& table, const std::vector<Cell>& cells) const {
        std::string row = low(table.columns.size(), unit_);
        std::string present((table.columns.size() + 7) / 8, '\0');
        for (std::size_t i = 0; i < cells.size(); ++i) {
            const Column& column = table.columns[i];
            const double* value = std::get_if<double>(&cells[i]);
            const bool there = column.type == Type::Boolean ? value != nullptr && *value != 0
                                                            : cells[i].index() != 0;
            if (there) present[i / 8] = static_cast<char>(present[i / 8] | 1 << i % 8);
            if (column.type != Type::Boolean && !varies(column.type))
                row += number_bytes(column.type, value != nullptr ? *value : 0);
        }
        std::vector<std::size_t> places;
        for (std::size_t i = 0; i < cells.size(); ++i) {
            if (!varies(table.columns[i].type)) continue;
            places.push_back(row.size());
            row += varying_bytes(table.columns[i], cells[i]);
        }
        if (!places.empty()) {
            places.push_back(row.size());
            for (auto place = places.rbegin(); place != places.rend(); ++place)
                row += low(*place, unit_);
            if (old_) row += jumps(row.size() + present.size(), places);
            row += low(places.size() - 1, unit_);
        }
        return row + present;
    }

    /// Places of one byte: from which of them on 256 are to be added, the last such first.
    static std::string jumps(std::size_t length, const std::vector<std::size_t>& places) {
        std::string bytes;
        std::size_t count = 0;
        while ((length + count) / 256 > count) ++count;
        for (; count > 0; --count) {
            const auto first = std::find_if(places.begin(), places.end(), [&](std::size_t place) {
                return place >= 256 * count;
            });
            bytes += first == places.end() ? '\xFF' : static_cast<char>(first - places.begin());
        }
        return bytes;
    }

    /// The definition behind the head of its page.
    [[nodiscard]] std::string definition(const Table& table, std::size_t map_page) const {
        std::string fields;
        std::string names;
        unsigned fixed = 0;
        unsigned varying = 0;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const auto& [name, type, length] = table.columns[i];
            const bool var = varies(type);
            const unsigned width = var ? unsigned(length * unit_) : width_of(type);
            fields += low(std::uint64_t(type), old_ ? 1 : 5) + low(i, 2) +
                      low(var ? varying++ : 0, 2) + low(i, 2) + low(0, old_ ? 6 : 4) +
                      low(var ? 2 : 3, old_ ? 1 : 6) + low(var ? 0 : fixed, 2) + low(width, 2);
            if (!var && type != Type::Boolean) fixed += width;
            const std::string text = text_bytes(name);
            names += low(text.size(), unit_) + text;
        }
        const std::size_t count = table.columns.size();
        return low(1625, old_ ? 0 : 4) + low(table.rows.size(), 4) + low(0, old_ ? 4 : 20) +
               low(table.flags == system_table ? 0x53 : 0x4E, 1) + low(count, 2) + low(varying, 2) +
               low(count, 2) + low(0, 8) +    // no indexes
               low(map_page << 8U, 4) +       // row 0: the table's pages
               low(map_page << 8U | 1U, 4) +  // row 1: those with room
               fields + names + "\xFF\xFF";
    }

    void add(const Table& table, std::size_t page) {
        const std::size_t map_page = pages_.size();
        pages_.emplace_back();
        put_definition(definition(table, map_page), page);
        const std::size_t first = pages_.size();
        if (table.moved)
            pages_.push_back(data_page(page, {{row_bytes(table, table.rows[1]), deleted}}));
        // Each page begins with a row that is deleted.
        const std::vector<Slot> fresh = {{"", deleted | points_elsewhere}};
        const std::size_t whole_room = page_size_ - page_head() - 2;
        std::vector<Slot> rows = fresh;
        std::size_t room = whole_room;
        for (std::size_t n = 0; n < table.rows.size(); ++n) {
            Slot row = {row_bytes(table, table.rows[n])};
            if (table.moved && n == 1) row = {low(first << 8U, 4), points_elsewhere};
            if (row.bytes.size() + 2 > room) {
                pages_.push_back(data_page(page, rows));
                rows = fresh;
                room = whole_room;
            }
            room -= row.bytes.size() + 2;
            rows.push_back(row);
        }
        if (rows.size() > 1) pages_.push_back(data_page(page, rows));
        const std::string map = map_of(first, pages_.size());
        pages_[map_page] = data_page(1, {{map}, {std::string(69, '\0')}});
    }

    /// The map of the pages from `first` to `end`: in place, or where it has no room for them, of
    /// pages of maps.
    std::string map_of(std::size_t first, std::size_t end) {
        const auto bits = [&](std::size_t origin, std::size_t bytes) {
            std::string map(bytes, '\0');
            for (std::size_t n = std::max(first, origin); n < std::min(end, origin + bytes * 8);
                 ++n)
                map[(n - origin) / 8] =
                    static_cast<char>(map[(n - origin) / 8] | 1 << (n - origin) % 8);
            return map;
        };
        constexpr std::size_t bytes_in_place = 64;
        if (end - first <= bytes_in_place * 8)
            return low(0, 1) + low(first, 4) + bits(first, bytes_in_place);
        std::string map = low(1, 1);
        const std::size_t bytes = page_size_ - 4;
        for (std::size_t origin = 0; origin < end; origin += bytes * 8) {
            map += low(pages_.size(), 4);
            pages_.push_back(low(0x105, 4) + bits(origin, bytes));
        }
        map.resize(5 + bytes_in_place);
        return map;
    }

    void put_definition(const std::string& bytes, std::size_t page) {
        for (std::size_t from = 0; from < bytes.size();) {
            const std::size_t head = from == 0 ? 12 : 8;
            const std::string part = bytes.substr(from, page_size_ - head);
            from += part.size();
            const bool more = from < bytes.size();
            std::string text = (old_ ? "\2\1VC" : std::string("\2\1\0\0", 4)) +
                               low(more ? pages_.size() : 0, 4) +
                               low(bytes.size(), head == 12 ? 4 : 0) + part;
            text.resize(page_size_);
            pages_[page] = text;
            page = pages_.size();
            if (more) pages_.emplace_back();
        }
    }

    bool old_;
    int unit_;  // bytes of a character, and of a place in a row
    std::size_t page_size_;
    std::vector<std::string> pages_;
};

}  // namespace

std::string bytes_of(const std::vector<Table>& tables, Version version, std::uint32_t key) {
    return Writer(version, key).write(tables);
}

}  // namespace zel::access_file
