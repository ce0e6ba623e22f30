#include "fakes/access_file.h"

#include <array>
#include <cmath>
#include <cstring>
#include <numeric>
#include <utility>

namespace zel::access_file {
namespace {

/// Puts the low bytes of a number, the lowest first.
void put(std::string& bytes, std::uint64_t number, int count) {
    for (; count > 0; --count, number >>= 8U) bytes += static_cast<char>(number & 0xFFU);
}
/// What a page holds: its bytes, and the marks in front of their place.
struct Slot {
    std::string bytes;
    unsigned marks = 0;
};
constexpr unsigned deleted = 0x8000;
constexpr unsigned points_elsewhere = 0x4000;

void put_at(std::string& bytes, std::size_t place, std::uint64_t number, int count) {
    std::string low;
    put(low, number, count);
    bytes.replace(place, low.size(), low);
}

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
    std::string bytes;
    const int width = width_of(type);
    std::uint64_t bits = 0;
    if (type == Type::Single) {
        const auto single = static_cast<float>(value);
        std::memcpy(&bits, &single, sizeof single);
    } else if (type == Type::Double || type == Type::Date) {
        std::memcpy(&bits, &value, sizeof value);
    } else {
        bits =
            static_cast<std::uint64_t>(std::llround(type == Type::Currency ? value * 1e4 : value));
    }
    put(bytes, bits, width);
    return bytes;
}

class Writer {
public:
    Writer(Version version, std::uint32_t key)
        : old_(version == Version::Jet3), page_size_(old_ ? 2048 : 4096) {
        std::string head("\0\1\0\0Standard Jet DB\0", 20);
        if (version == Version::Ace) head.replace(13, 3, "ACE");
        head += static_cast<char>(version);
        head.resize(page_size_);
        put_at(head, 0x3C, 1252, 2);
        put_at(head, 0x3E, key, 4);
        rc4(head, 0x18, old_ ? 126 : 128);
        pages_ = {head, data_page(1, {}), std::string()};
    }

    std::string write(const std::vector<Table>& tables) {
        Table catalog = {"MSysObjects",
                         {{"Id", Type::Long},
                          {"ParentId", Type::Long},
                          {"Name", Type::Text, 64},
                          {"Type", Type::Integer},
                          {"Flags", Type::Long},
                          {"LvProp", Type::Picture}},
                         {},
                         system_table};
        const auto enter = [&](const Table& table, std::size_t page) {
            catalog.rows.push_back({double(page), 0.0, table.name, 1.0,
                                    double(static_cast<std::int32_t>(table.flags)),
                                    std::monostate{}});
        };
        enter(catalog, catalog_page);
        for (const Table& table : tables) {
            enter(table, pages_.size());
            pages_.emplace_back();
            add(table, pages_.size() - 1);
        }
        add(catalog, catalog_page);
        std::string bytes;
        for (const std::string& page : pages_) bytes += page;
        return bytes;
    }

private:
    static constexpr std::size_t catalog_page = 2;

    [[nodiscard]] std::size_t page_head() const { return old_ ? 10 : 14; }

    [[nodiscard]] std::string data_page(std::size_t owner, const std::vector<Slot>& slots) const {
        std::string page("\1\1\0\0", 4);
        put(page, owner, 4);
        if (!old_) put(page, 0, 4);
        put(page, slots.size(), 2);
        std::size_t end = page_size_;
        for (const auto& [bytes, marks] : slots) put(page, (end -= bytes.size()) | marks, 2);
        put_at(page, 2, end - page.size(), 2);
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
            put(bytes, code, old_ ? 1 : 2);
        }
        return bytes;
    }

    [[nodiscard]] std::string varying_bytes(const Column& column, const Cell& cell) const {
        const auto* text = std::get_if<std::string>(&cell);
        if (text == nullptr) return {};
        if (column.type == Type::Text) return text_bytes(*text);
        std::string bytes;
        const std::string inside = text_bytes(*text);
        put(bytes, inside.size() | 0x80000000U, 4);  // the text follows here
        put(bytes, 0, 8);
        return bytes + inside;
    }

    [[nodiscard]] std::string row_bytes(const Table& table, const std::vector<Cell>& cells) const {
        const int number = old_ ? 1 : 2;
        std::string row;
        std::string present((table.columns.size() + 7) / 8, '\0');
        put(row, table.columns.size(), number);
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
                put(row, *place, number);
            if (old_) put_jumps(row, places, present.size());
            put(row, places.size() - 1, number);
        }
        return row + present;
    }

    /// Places of one byte: from which of them on 256 are to be added.
    static void put_jumps(std::string& row, const std::vector<std::size_t>& places,
                          std::size_t behind) {
        std::size_t jumps = 0;
        while ((row.size() + jumps + 1 + behind - 1) / 256 > jumps) ++jumps;
        for (; jumps > 0; --jumps) {
            std::size_t first = 0;
            while (first < places.size() && places[first] < 256 * jumps) ++first;
            put(row, first < places.size() ? first : 0xFF, 1);
        }
    }

    /// The definition behind the head of its page.
    [[nodiscard]] std::string definition(const Table& table, std::size_t map_page) const {
        std::string fields;
        std::string names;
        std::uint16_t fixed = 0;
        std::uint16_t varying = 0;
        for (std::size_t i = 0; i < table.columns.size(); ++i) {
            const auto& [name, type, length] = table.columns[i];
            put(fields, static_cast<std::uint64_t>(type), old_ ? 1 : 5);
            put(fields, i, 2);
            put(fields, varies(type) ? varying++ : 0, 2);
            put(fields, i, 2);
            put(fields, 0, old_ ? 6 : 4);
            put(fields, varies(type) ? 2 : 3, old_ ? 1 : 6);
            put(fields, varies(type) ? 0 : fixed, 2);
            const int unit = old_ ? 1 : 2;
            put(fields, varies(type) ? static_cast<unsigned>(length * unit) : width_of(type), 2);
            if (!varies(type) && type != Type::Boolean)
                fixed = std::uint16_t(fixed + width_of(type));
            const std::string text = text_bytes(name);
            put(names, text.size(), unit);
            names += text;
        }
        std::string bytes;
        if (!old_) put(bytes, 1625, 4);
        put(bytes, table.rows.size(), 4);
        put(bytes, 0, old_ ? 4 : 20);
        put(bytes, table.flags == system_table ? 0x53 : 0x4E, 1);
        put(bytes, table.columns.size(), 2);
        put(bytes, varying, 2);
        put(bytes, table.columns.size(), 2);
        put(bytes, 0, 8);                    // no indexes
        put(bytes, map_page << 8U, 4);       // row 0 of the page: the table's pages
        put(bytes, map_page << 8U | 1U, 4);  // row 1: those with room
        return bytes + fields + names + "\xFF\xFF";
    }

    /// The first row of a page.
    static std::string pointer_to(std::size_t page) {
        std::string bytes;
        put(bytes, page << 8U, 4);
        return bytes;
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
            if (table.moved && n == 1) row = {pointer_to(first), points_elsewhere};
            if (row.bytes.size() + 2 > room) {
                pages_.push_back(data_page(page, rows));
                rows = fresh;
                room = whole_room;
            }
            room -= row.bytes.size() + 2;
            rows.push_back(row);
        }
        if (rows.size() > 1) pages_.push_back(data_page(page, rows));
        std::string map(5 + 64 + (pages_.size() - first) / 8, '\0');
        put_at(map, 1, first, 4);
        for (std::size_t n = 0; n < pages_.size() - first; ++n)
            map[5 + n / 8] = static_cast<char>(map[5 + n / 8] | 1 << n % 8);
        pages_[map_page] = data_page(1, {{map}, {std::string(69, '\0')}});
    }

    void put_definition(const std::string& bytes, std::size_t page) {
        for (std::size_t from = 0; from < bytes.size();) {
            const std::size_t head = from == 0 ? 12 : 8;
            const std::string part = bytes.substr(from, page_size_ - head);
            from += part.size();
            std::string text(old_ ? "\2\1VC" : std::string("\2\1\0\0", 4));
            put(text, from < bytes.size() ? pages_.size() : 0, 4);
            if (head == 12) put(text, bytes.size(), 4);
            text += part;
            text.resize(page_size_);
            pages_[page] = text;
            page = pages_.size();
            if (from < bytes.size()) pages_.emplace_back();
        }
    }

    bool old_;
    std::size_t page_size_;
    std::vector<std::string> pages_;
};

}  // namespace

std::string bytes_of(const std::vector<Table>& tables, Version version, std::uint32_t key) {
    return Writer(version, key).write(tables);
}

}  // namespace zel::access_file
