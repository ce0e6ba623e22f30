#include "adapters/access/jet_file.h"

#include <sys/stat.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace zel::access {
namespace {

constexpr std::uint64_t catalog_page = 2;
constexpr std::int64_t hidden_or_system = 0x80000002;
constexpr std::int64_t page_of_table = 0x00FFFFFF;

// What stands in front of a row's place in its page.
constexpr int deleted_row = 0x8000;  // or one that is read where another points to it
constexpr int moved_row = 0x4000;    // the row's place holds the place where it stands
constexpr int place_of_row = 0x1FFF;
constexpr int most_moves = 8;
constexpr int most_definition_pages = 64;

constexpr int owner_place = 4;  // in a page of rows: its table
/// In bytes of UTF-8, for the longest memo that can be typed.
constexpr std::size_t longest_text = 200'000;

template <class Number>
std::string shortest(Number value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    return {digits.data(), end.ptr};
}

/// A text that libmdb has made, or null.
std::optional<std::string> taken(char* text) {
    if (text == nullptr) return std::nullopt;
    std::string copy = text;
    g_free(text);
    return copy;
}

/// A decimal without the zeros at its end.
std::optional<std::string> without_zeros(std::optional<std::string> number) {
    if (!number || number->find('.') == std::string::npos) return number;
    number->erase(number->find_last_not_of('0') + 1);
    if (number->ends_with('.')) number->pop_back();
    return number;
}

/// Days since the end of 1899; the fraction is the time of the day, in front of that day too.
std::string date_text(double value) {
    constexpr double first_day = -657'434;  // in the year 100
    constexpr double last_day = 2'958'465;  // in the year 9999
    if (!(value >= first_day && value < last_day + 1)) return shortest(value);
    using namespace std::chrono;
    constexpr sys_days origin = 1899y / December / 30;
    const double day = std::trunc(value);
    const auto moment =
        origin + days(std::lround(day)) + seconds(std::lround(std::abs(value - day) * 86'400));
    const year_month_day date(floor<days>(moment));
    const hh_mm_ss time(moment - floor<days>(moment));
    char text[32];
    std::snprintf(text, sizeof text, "%04d-%02u-%02u", int{date.year()}, unsigned{date.month()},
                  unsigned{date.day()});
    if (time.to_duration() == seconds(0)) return text;
    char clock[16];
    std::snprintf(clock, sizeof clock, " %02d:%02d:%02d", static_cast<int>(time.hours().count()),
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()));
    return std::string(text) + clock;
}

/// The bytes of a type; 0 where they vary.
int width_of(int type) {
    switch (type) {
        case MDB_BYTE: return 1;
        case MDB_INT: return 2;
        case MDB_LONGINT:
        case MDB_FLOAT: return 4;
        case MDB_MONEY:
        case MDB_DOUBLE:
        case MDB_DATETIME: return 8;
        case MDB_REPID: return 16;
        case MDB_NUMERIC: return 17;
        default: return 0;
    }
}

MdbColumn* column_at(const MdbTableDef& table, std::uint64_t place) {
    return static_cast<MdbColumn*>(g_ptr_array_index(table.columns, place));
}

/// libmdb would take what is cut off from the end of a file for zeros.
void read_page(MdbHandle* file, std::uint64_t page) {
    if (file->cur_pg == page && page != 0) return;
    struct stat facts {};
    const auto length = static_cast<std::uint64_t>(file->fmt->pg_size);
    if (::fstat(file_number, &facts) != 0 ||
        (page + 1) * length > static_cast<std::uint64_t>(facts.st_size) ||
        mdb_read_pg(file, page) == 0)
        throw Outcome::Damaged;
}

}  // namespace

JetTable::JetTable(MdbHandle* file, const std::string& name, std::uint64_t page)
    : file_(file), entry_(std::make_unique<MdbCatalogEntry>()) {
    entry_->mdb = file;
    entry_->object_type = MDB_TABLE;
    entry_->table_pg = page;
    name.copy(entry_->object_name, MDB_MAX_OBJ_NAME);
    table_.reset(mdb_read_table(entry_.get()));
    if (!table_ || table_->num_cols > most_columns) throw Outcome::Damaged;
    if (mdb_read_columns(table_.get()) == nullptr || table_->columns->len != table_->num_cols)
        throw Outcome::Damaged;
    fields_.resize(most_columns + 1);
    require_pages(page);
}

/// The pages that tell of the table are there: its definition and the maps of its pages.
void JetTable::require_pages(std::uint64_t page) {
    constexpr int next_place = 4;  // in a page of a definition
    constexpr std::size_t entry_length = 4;
    constexpr unsigned char map_of_maps = 1;
    const auto number_at = [](void* bytes, std::size_t place) {
        return static_cast<guint32>(mdb_get_int32(bytes, static_cast<int>(place)));
    };
    read_page(file_, page);
    const guint32 map = number_at(file_->pg_buf, file_->fmt->tab_usage_map_offset);
    for (int pages = 0; const guint32 next = number_at(file_->pg_buf, next_place); ++pages) {
        if (pages == most_definition_pages || file_->pg_buf[0] != MDB_PAGE_TABLE)
            throw Outcome::Damaged;
        read_page(file_, next);
    }
    read_page(file_, map >> 8U);
    if (table_->map_sz < 1 + entry_length) throw Outcome::Damaged;
    if (table_->usage_map[0] != map_of_maps) return;
    for (std::size_t at = 1; at + entry_length <= table_->map_sz; at += entry_length)
        read_page(file_, number_at(table_->usage_map, at));
}

std::vector<std::string> JetTable::columns() const {
    std::vector<std::string> names;
    for (unsigned place = 0; place < table_->num_cols; ++place)
        names.emplace_back(column_at(*table_, place)->name);
    return names;
}

bool JetTable::go(std::uint64_t key) {
    page_ = key >> 16U;
    row_ = key & 0xFFFFU;
    if (page_ == 0 && !next_page()) return false;
    for (;;) {
        read_page(file_, page_);
        // Only the first page of a file has this type; an emptied one has it too.
        if (file_->pg_buf[0] == MDB_PAGE_DB) throw Outcome::Damaged;
        // A map may name pages that belong to others by now.
        const bool own =
            file_->pg_buf[0] == MDB_PAGE_DATA &&
            mdb_get_int32(file_->pg_buf, owner_place) == static_cast<long>(table_->entry->table_pg);
        const int rows = own ? mdb_get_int16(file_->pg_buf, file_->fmt->row_count_offset) : 0;
        for (; row_ < static_cast<std::uint64_t>(rows); ++row_) {
            if (read_row()) return true;
            read_page(file_, page_);
        }
        if (!next_page()) return false;
    }
}

bool JetTable::next_page() {
    const gint32 next =
        mdb_map_find_next(file_, table_->usage_map, static_cast<unsigned>(table_->map_sz),
                          static_cast<guint32>(page_));
    if (next == 0) return false;
    if (next < 0 || static_cast<std::uint64_t>(next) <= page_) throw Outcome::Damaged;
    page_ = static_cast<std::uint64_t>(next);
    row_ = 0;
    return true;
}

bool JetTable::read_row() {
    int start = 0;
    std::size_t length = 0;
    const auto find = [&](guint32 row) {
        return mdb_find_row(file_, static_cast<int>(row), &start, &length) != -1;
    };
    // Of a deleted row nothing else need be right.
    const bool found = find(static_cast<guint32>(row_));
    if ((start & deleted_row) != 0) return false;
    if (!found) throw Outcome::Damaged;
    if (length == 0) return false;
    for (int moves = 0; (start & moved_row) != 0; ++moves) {
        const auto place = static_cast<guint32>(mdb_get_int32(file_->pg_buf, start & place_of_row));
        if (length < sizeof place || moves == most_moves) throw Outcome::Damaged;
        read_page(file_, place >> 8U);
        if (!find(place & 0xFFU)) throw Outcome::Damaged;
    }
    if (mdb_crack_row(table_.get(), start & place_of_row, length, fields_.data()) < 0)
        throw Outcome::Damaged;
    return true;
}

std::optional<std::string> JetTable::cell(std::uint64_t column) const {
    const MdbColumn& type = *column_at(*table_, column);
    const MdbField& field = fields_[column];
    // Yes is the mark itself.
    if (type.col_type == MDB_BOOL) return field.is_null != 0 ? "0" : "-1";
    if (field.is_null != 0) return std::nullopt;
    const int width = std::max(width_of(type.col_type), field.siz);
    if (field.start < 0 || field.siz < 0 || field.start + width > file_->fmt->pg_size)
        throw Outcome::Damaged;
    unsigned char* const page = file_->pg_buf;
    const int start = field.start;
    switch (type.col_type) {
        case MDB_BYTE: return shortest(static_cast<int>(mdb_get_byte(page, start)));
        case MDB_INT: return shortest(static_cast<std::int16_t>(mdb_get_int16(page, start)));
        case MDB_LONGINT: return shortest(static_cast<std::int32_t>(mdb_get_int32(page, start)));
        case MDB_FLOAT: return shortest(mdb_get_single(page, start));
        case MDB_DOUBLE: return shortest(mdb_get_double(page, start));
        case MDB_DATETIME: return date_text(mdb_get_double(page, start));
        case MDB_MONEY: return without_zeros(taken(mdb_money_to_string(file_, start)));
        case MDB_NUMERIC:
            return without_zeros(
                taken(mdb_numeric_to_string(file_, start, type.col_scale, type.col_prec)));
        case MDB_REPID:
        case MDB_TEXT:
        case MDB_MEMO:
            return taken(mdb_col_to_string(file_, page, start, type.col_type, field.siz));
        default: return std::nullopt;
    }
}

JetFile::JetFile() {
    const std::string path = "/proc/self/fd/" + std::to_string(file_number);
    file_.reset(mdb_open(path.c_str(), MDB_NOFLAGS));
    if (!file_) throw Outcome::Damaged;
    // The pages of newer files are encrypted by the password, those of older ones by this key.
    if (file_->f->jet_version >= MDB_VER_ACCDB_2007 && file_->f->db_key != 0)
        throw Outcome::Encrypted;
    mdb_set_bind_size(file_.get(), longest_text);
    read_catalog();
}

/// libmdb would take a catalog that breaks off for one that ends.
void JetFile::read_catalog() {
    JetTable catalog(file_.get(), "MSysObjects", catalog_page);
    const auto columns = catalog.columns();
    const auto text = [&](const char* column) {
        const auto found = std::find(columns.begin(), columns.end(), column);
        if (found == columns.end()) throw Outcome::Damaged;
        return catalog.cell(static_cast<std::uint64_t>(found - columns.begin())).value_or("");
    };
    const auto number = [&](const char* column) {
        return std::strtoll(text(column).c_str(), nullptr, 10);
    };
    for (bool more = catalog.go(0); more; more = catalog.next())
        if (number("Type") == MDB_TABLE && (number("Flags") & hidden_or_system) == 0)
            tables_.emplace_back(file_.get(), text("Name"),
                                 static_cast<std::uint64_t>(number("Id") & page_of_table));
}

}  // namespace zel::access
