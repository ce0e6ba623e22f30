#include <nlohmann/json.hpp>

#include "cli/case_output.h"
#include "cli/commands.h"
#include "cli/db_words.h"
#include "persistence/database/saving.h"
#include "persistence/database/table_export.h"
#include "persistence/database/table_names.h"
#include "platform/errors.h"
#include "program/database_files.h"
#include "program/stores.h"
#include "shell/error_handling.h"

namespace zel {
namespace {

using nlohmann::ordered_json;

constexpr std::string_view module_name = "db";

constexpr const char* db_notes =
    "\n"
    "A database is one file (.mdb) of tables, and a row of a table is one stored case. Tables have\n"
    "the names that you give them; rows count from 1. With --short-circuit the commands work on\n"
    "the cases of the short-circuit area, which have tables of their own.\n"
    "\n"
    "  zel db save lines.mdb North case.json --new-database    a new file with the table North\n"
    "  zel db save lines.mdb North other.json                  one row more\n"
    "  zel db list lines.mdb North                             what stands in it\n"
    "  zel db show lines.mdb North 1 --json | zel steady -     calculate a stored case\n"
    "  zel db import old.mdb lines.mdb                         copy an Access file\n"
    "  zel db export lines.mdb North -o north.xlsx             for a spreadsheet\n"
    "\n"
    "delete and drop ask nothing; export replaces a file of its name. docs/databases.md tells what is stored how.\n"
    "\n"
    "Exit status: 0 done; 2 refused, nothing was changed.";

constexpr Text no_such_row = {"{0}: es gibt keine Zeile {1}, die Tabelle hat {2}",
                              "{0}: there is no row {1}, the table has {2}"};

TableInfo case_table(Database& database, const DbWords& words) {
    return record_table(database, words.area().tables, words.table);
}

RowKey key_of(Database& database, const TableInfo& table, const DbWords& words) {
    const auto keys = database.rows(table.name);
    if (words.row < 1 || static_cast<std::size_t>(words.row) > keys.size())
        throw InputError(at(words.file, Reason(no_such_row, {table.name, std::to_string(words.row),
                                                             std::to_string(keys.size())})));
    return keys[static_cast<std::size_t>(words.row) - 1];
}

/// A damaged file may have lost some.
void tell_lost_rows(const DbWords& words, const TableInfo& table, std::size_t rows) {
    if (const auto lost = miscounted(table, rows))
        Console::tell_reason(words.file + ": " + table.name + ": " + lost->in(words.lang));
}

int tables(const DbWords& words, Console& /*console*/) {
    const auto database = DatabaseFiles().open(words.file);
    ordered_json list = ordered_json::array();
    std::string text;
    for (const TableInfo& table : record_tables(*database, words.area().tables)) {
        const std::size_t rows = database->rows(table.name).size();
        tell_lost_rows(words, table, rows);
        list.push_back({{"name", table.name}, {"columns", table.columns.size()}, {"rows", rows}});
        text += printable(table.name) + ": " + std::to_string(rows) +
                (words.lang == LangId::German ? " Zeilen" : " rows") + "\n";
    }
    return print_or_fail(words.json ? json_text({{"tables", list}}) : text);
}

int list(const DbWords& words, Console& /*console*/) {
    const auto database = DatabaseFiles().open(words.file);
    const TableInfo table = case_table(*database, words);
    const auto& columns = words.area().tables.list_columns;
    ordered_json rows = ordered_json::array();
    std::string text;
    database->each_row(table.name, columns, [&](RowKey /*key*/, const TableRow& row) {
        ordered_json entry = {{"row", rows.size() + 1}};
        text += std::to_string(rows.size() + 1);
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const std::string value = without_outer_blanks(row[column].value_or(""));
            entry[columns[column]] = value;
            text += "\t" + printable(value);
        }
        text += "\n";
        rows.push_back(std::move(entry));
        return true;
    });
    tell_lost_rows(words, table, rows.size());
    return print_or_fail(words.json ? json_text({{"rows", rows}}) : text);
}

int show(const DbWords& words, Console& console) {
    const auto database = DatabaseFiles().open(words.file);
    const TableInfo table = case_table(*database, words);
    const StoredRow row = stored_row(*database, table, key_of(*database, table, words));
    return print_or_fail(words.area().show(row, words, console));
}

/// A case that was saved is told in JSON alone.
int saved(const DbWords& words, const Console& console, const std::string& table, std::size_t row) {
    if (!words.json) return exit_done;
    return print_or_fail(
        json_text({{"table", table}, {"row", row}, {"messages", json_of(console.messages())}}));
}

int save(const DbWords& words, Console& console) {
    const DbArea& area = words.area();
    const bool new_table = words.new_table || words.new_database;
    const std::string name = without_outer_blanks(words.table);
    if (new_table) refuse_table_name(name);
    if (words.new_database) refuse_reserved(words, words.file);
    const auto values = area.load(words.case_path, words, console);
    if (words.new_database) {
        DatabaseFiles store;
        NewDatabase made(store, words.file);
        save_in_new_table(made.database(), area.tables, name, values);
        made.keep();
        return saved(words, console, name, 1);
    }
    const auto database = DatabaseFiles().open(words.file);
    if (new_table) {
        save_in_new_table(*database, area.tables, name, values);
        return saved(words, console, name, 1);
    }
    const TableInfo table = case_table(*database, words);
    // One that takes no rows at all tells so itself.
    if (const auto box = refused_table(area.tables, table, words.lang);
        box && database->writable()) {
        Console::tell_reason(paragraph_of(*box));
        return exit_refused;
    }
    std::vector<std::string> left_out;
    add_to_table(*database, table, values, left_out);
    if (const auto box = told_left_out(table, left_out, words.lang))
        Console::tell_reason(paragraph_of(*box));
    return saved(words, console, table.name, database->rows(table.name).size());
}

int write_out(const DbWords& words, Console& /*console*/) {
    const auto database = DatabaseFiles().open(words.file);
    refuse_itself(words.file, words.export_path);
    const TableInfo table = case_table(*database, words);
    XlsxStore workbooks;
    PosixFiles files;
    const std::size_t rows = export_table(*database, words.area().tables, table, words.export_path,
                                          workbooks, files, words.separator);
    constexpr Text done = {"{0}: {1} Zeilen in {2} geschrieben\n",
                           "{0}: {1} rows written to {2}\n"};
    return print_or_fail(
        words.json ? json_text({{"table", table.name}, {"rows", rows}, {"file", words.export_path}})
                   : fill(done.in(words.lang), {printable(table.name), std::to_string(rows),
                                                printable(words.export_path)}));
}

int erase(const DbWords& words, Console& /*console*/) {
    const auto database = DatabaseFiles().open(words.file);
    const TableInfo table = case_table(*database, words);
    database->delete_row(table.name, key_of(*database, table, words));
    constexpr Text done = {"{0}: Zeile {1} gelöscht\n", "{0}: row {1} deleted\n"};
    return print_or_fail(
        words.json ? json_text({{"table", table.name}, {"deleted_row", words.row}})
                   : fill(done.in(words.lang), {printable(table.name), std::to_string(words.row)}));
}

int drop(const DbWords& words, Console& /*console*/) {
    const auto database = DatabaseFiles().open(words.file);
    const TableInfo table = case_table(*database, words);
    const std::size_t rows = database->rows(table.name).size();
    database->drop_table(table.name);
    constexpr Text done = {"{0} mit {1} Zeilen gelöscht\n", "{0} with {1} rows deleted\n"};
    return print_or_fail(
        words.json ? json_text({{"table", table.name}, {"deleted_rows", rows}})
                   : fill(done.in(words.lang), {printable(table.name), std::to_string(rows)}));
}

/// Failures of databases are told by the central table of errors, all others as ever.
template <int (*body)(const DbWords&, Console&)>
int guarded_db(const DbWords& words) {
    // The document is a case or a list, so that messages have no place in it.
    CommonOptions told = words;
    told.json = false;
    Console console(told);
    try {
        return body(words, console);
    } catch (const PlatformError& error) {
        if (error.fault() == PlatformFault::Unforeseen) throw;
        Console::tell_reason(error.told(words.lang));
        if (words.silent) return exit_refused;
        ErrorHandling handling(words.lang, console);
        try {
            (void)handle_caught(handling, module_name, "zel_db");
        } catch (const ProgramEnd&) {
            // The windows end there; a command ends anyhow.
        }
        return exit_refused;
    }
}

// ---- the words of the commands

using DbCommand = Command<DbWords>;

void add_area(const DbCommand& command) {
    command.app.add_flag("--short-circuit", command.words.short_circuit,
                         "Cases of the short-circuit area");
    command.app.footer(db_notes);
}

void add_table(const DbCommand& command) {
    command.app.add_option("TABLE", command.words.table, "The table")->required();
}

void add_row(const DbCommand& command) {
    add_table(command);
    command.app.add_option("N", command.words.row, "The row, from 1")->required();
}

void finish(const DbCommand& command) {
    add_output(command.app, command.words);
    add_language(command.app, command.words.lang, command.words.separator);
}

/// A command on one database. `add_words` gives it what comes behind the file.
struct OnDatabase {
    const char* name;
    const char* description;
    int (*run)(const DbWords&);
    void (*add_words)(const DbCommand&);
};

void add_case(const DbCommand& command) {
    add_table(command);
    command.app.add_option("CASE", command.words.case_path, "Case file (JSON), or -")->required();
    command.app.add_flag("--new-database", command.words.new_database,
                         "Make the file, with this table");
    command.app.add_flag("--new-table", command.words.new_table, "Make the table");
}

void add_export(const DbCommand& command) {
    add_table(command);
    command.app.add_option("-o", command.words.export_path, "File to be written")
        ->required()
        ->option_text("FILE.xlsx|FILE.csv REQUIRED");
}

constexpr OnDatabase commands[] = {
    {"tables", "The tables of a database", guarded_db<tables>, [](const DbCommand&) {}},
    {"list", "The rows of a table", guarded_db<list>, add_table},
    {"show", "A row, with --json as a case file", guarded_db<show>, add_row},
    {"save", "Add a case to a table", guarded_db<save>, add_case},
    {"export", "A table as a workbook or a CSV file", guarded_db<write_out>, add_export},
    {"delete", "Delete a row", guarded_db<erase>, add_row},
    {"drop", "Delete a table with all its rows", guarded_db<drop>, add_table},
};

/// The one on two files.
void add_import(CommandLine& line, CLI::App& group) {
    const auto command =
        line.add<DbWords>(group, "import", "Copy the tables of an Access file into a new database",
                          guarded_db<import_database>);
    command.app.add_option("OLD", command.words.file, "The Access file, or any database")
        ->required();
    command.app.add_option("NEW", command.words.new_file, "The new database")->required();
    add_area(command);
    finish(command);
}

}  // namespace

void add_db(CommandLine& line) {
    CLI::App& group = line.add_group("db", "Databases of stored cases", db_notes);
    for (const auto& [name, description, run, add_words] : commands) {
        const auto command = line.add<DbWords>(group, name, description, run);
        command.app.add_option("FILE", command.words.file, "The database")->required();
        add_area(command);
        add_words(command);
        finish(command);
    }
    add_import(line, group);
}

}  // namespace zel
