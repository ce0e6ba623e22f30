#include "persistence/database/table_import.h"

#include <algorithm>

#include "persistence/database/saving.h"
#include "platform/errors.h"
#include "platform/text/utf8.h"

namespace zel {
namespace {

constexpr Text no_such_tables = {"keine Tabelle der Datenbank enthält solche Fälle",
                                 "no table of the database holds such cases"};
constexpr Text import_cancelled = {"der Import wurde abgebrochen; es ist nichts gespeichert",
                                   "the import was cancelled; nothing is saved"};

constexpr Text holds_none = {"enthält keine solchen Fälle", "holds no such cases"};
constexpr Text no_such_column = {"die Spalte gehört nicht zu solchen Fällen",
                                 "the column does not belong to such cases"};
constexpr Text text_cut = {"der Text wurde auf {0} Zeichen gekürzt",
                           "the text was cut to {0} characters"};
constexpr Text no_number = {"{0} ist keine Zahl", "{0} is no number"};
constexpr Text beyond_column = {"{0} liegt außerhalb des Bereichs der Spalte",
                                "{0} is beyond the range of the column"};
constexpr Text rounded = {"{0} wurde auf eine ganze Zahl gerundet",
                          "{0} was rounded to a whole number"};

constexpr Text rows_imported = {"{0}: {1} Zeilen übernommen\n", "{0}: {1} rows imported\n"};
constexpr Text in_row = {"{0}, Zeile {1}, {2}", "{0}, row {1}, {2}"};
constexpr Text more_left_out = {"und {0} weitere\n", "and {0} more\n"};

/// The table, or a value in it.
std::string where(const LeftOut& left_out, LangId lang) {
    if (left_out.row == 0)
        return left_out.table + (left_out.column.empty() ? "" : ", " + left_out.column);
    return fill(in_row.in(lang), {left_out.table, std::to_string(left_out.row), left_out.column});
}

class Import {
public:
    Import(Database& from, Database& to, const TableFormat& format, const ImportProgress& progress)
        : from_(from), to_(to), format_(format), progress_(progress) {
        for (const TableColumn& column : format.columns) names_.push_back(column.name);
    }

    ImportResult run() {
        const std::vector<TableInfo> fitting = fitting_tables();
        for (const TableInfo& table : fitting) all_ += from_.rows(table.name).size();
        for (const TableInfo& table : fitting) copy(table);
        return std::move(result_);
    }

private:
    std::vector<TableInfo> fitting_tables() {
        std::vector<TableInfo> fitting;
        for (TableInfo& table : from_.tables()) {
            if (holds_records(format_, table))
                fitting.push_back(std::move(table));
            else
                tell({table.name, 0, {}, Reason(holds_none)});
        }
        return fitting;
    }

    void copy(const TableInfo& table) {
        for (const std::string& column : table.columns)
            if (!place_of(names_, column)) tell({table.name, 0, column, Reason(no_such_column)});
        format_.create(to_, table.name);
        std::size_t rows = 0;
        from_.each_row(table.name, names_, [&](RowKey /*key*/, const TableRow& row) {
            add(table.name, ++rows, row);
            ++done_;
            if (!progress_(done_, std::max(done_, all_)))
                throw InputError(Reason(import_cancelled), PlatformFault::DialogCancelled);
            return true;
        });
        if (const auto lost = miscounted(table, rows)) tell({table.name, 0, {}, *lost});
        result_.tables.push_back({table.name, rows});
    }

    void add(const std::string& table, std::size_t number, const TableRow& row) {
        std::vector<NamedValue> values;
        for (std::size_t place = 0; place < row.size(); ++place) {
            const TableColumn& column = format_.columns[place];
            const auto tell_of = [&](const Text& what, std::string_view value) {
                tell({table, number, column.name, Reason(what, {value})});
            };
            values.emplace_back(column.name, row[place] ? value_for(column, *row[place], tell_of)
                                                        : ColumnValue());
        }
        to_.add_row(table, values);
    }

    template <class Tell>
    static ColumnValue value_for(const TableColumn& column, const std::string& text,
                                 const Tell& tell_of) {
        if (column.type == ColumnType::Text) {
            std::string stored = first_characters(text, static_cast<std::size_t>(column.length));
            if (stored.size() < text.size()) tell_of(text_cut, std::to_string(column.length));
            return stored.empty() ? " " : stored;  // as texts are stored that are empty
        }
        const auto number = stored_number(text);
        if (!number) {
            if (!without_outer_blanks(text).empty()) tell_of(no_number, in_quotes(text));
            return std::monostate{};
        }
        const auto value = in_column(column.type, *number);
        if (!value) {
            tell_of(beyond_column, in_quotes(text));
            return std::monostate{};
        }
        const auto* whole = std::get_if<std::int16_t>(&*value);
        if (whole != nullptr && *whole != *number) tell_of(rounded, in_quotes(text));
        return *value;
    }

    void tell(LeftOut what) {
        if (what.row == 0 || result_.left_out.size() < ImportResult::most_told)
            result_.left_out.push_back(std::move(what));
        else
            ++result_.untold;
    }

    Database& from_;
    Database& to_;
    const TableFormat& format_;
    const ImportProgress& progress_;
    std::vector<std::string> names_;  // of the format's columns
    std::size_t all_ = 0;             // rows
    std::size_t done_ = 0;
    ImportResult result_;
};

}  // namespace

std::string listing_of(const ImportResult& result, LangId lang, std::size_t most) {
    std::string text;
    for (const auto& [name, rows] : result.tables)
        text += fill(rows_imported.in(lang), {printable(name), std::to_string(rows)});
    const std::size_t named = std::min(most, result.left_out.size());
    for (const LeftOut& left_out : std::span(result.left_out).first(named))
        text += printable(where(left_out, lang) + ": " + left_out.reason.in(lang)) + "\n";
    const std::size_t untold = result.untold + result.left_out.size() - named;
    return untold == 0 ? text : text + fill(more_left_out.in(lang), {std::to_string(untold)});
}

ImportResult import_tables(Database& from, const TableFormat& format, TableStore& store,
                           const std::string& path, const ImportProgress& progress) {
    if (record_tables(from, format).empty())
        throw InputError(Reason(no_such_tables), PlatformFault::NoRecords);
    NewDatabase made(store, path);
    ImportResult result;
    made.database().whole([&] { result = Import(from, made.database(), format, progress).run(); });
    made.keep();
    return result;
}

}  // namespace zel
