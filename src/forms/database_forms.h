#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "persistence/database/record_table.h"
#include "persistence/database/table_names.h"
#include "shell/error_handling.h"
#include "shell/program_settings.h"

// The windows of databases: what they are called and say in each program area. The windows
// themselves are the same in both.

namespace zel::forms {

/// An entry of the menu that asks for the path of a database.
struct DatabaseQuestion {
    const char* entry;
    Text caption;
    Text title;
    Text filters;  // see `PathQuestion`
};

/// A column of the list of all rows. `text` makes it of a row's `list_columns`, without the blanks
/// around them.
struct ListColumn {
    Text head;
    std::string (*text)(std::span<const std::string> values, LangId lang);
    int characters;  // wide
    bool is_date = false;
};

/// A text by which dates come in their order: "2026-03-07" for "7.3.2026"; other texts as they are.
[[nodiscard]] std::string date_order(const std::string& date);

/// The table at hand, which needs no question for a path: quick access, and the standard cases.
struct FixedTable {
    const char* open_entry;  // of the menu
    Text open_caption;
    const char* save_entry;
    Text save_caption;
    TextMember path;
    const char* table;
    Text behind_title;   // of the browser
    bool made_again;     // where its file is there without it
    BoxText saved;       // told after a save
    const char* module;  // of failures
    const char* saving;  // the procedure
};

struct DatabaseForms {
    const TableFormat& (*format)();

    // The menu.
    DatabaseQuestion open;
    bool opens_at_calculations;  // starts in the calculation folder; otherwise in the data folder
    std::optional<DatabaseQuestion> open_calculations;  // starts at the calculation database
    DatabaseQuestion save_in_existing;
    DatabaseQuestion save_in_new;
    FixedTable fixed;
    /// Whether a new database may have a path.
    ReservedName (*reserved)(std::string_view path, std::string_view calculation_folder,
                             LangId lang);

    // The browser of records.
    const char* browser;
    const char* loading;  // the procedure that failures name
    Text browser_title;
    std::array<Text, 2> pages;
    std::span<const ListColumn> list;
    Text count;          // "Datensatz {0} von {1}"
    int first_number;    // of the bar that moves through the rows
    bool goes_to_first;  // after a deletion; otherwise to the next row
    BoxText delete_row;  // questions
    BoxText delete_table;
    Text table_caption = {"&Tabelle :", "&Table :"};
    Text find_hint = {"Wörter aus Projekt, Datum, Bearbeiter, Leiter ...",
                      "Words of project, date, operator, conductor ..."};
    /// Before the bar that moves through the rows; without it the bar has only a name for readers.
    Text bar_caption{};
    const char* back = "mBack";

    // Saving.
    const char* save_form;
    const char* new_form;
    Text save_title, new_title;  // {0} is the path
    const char* existing_option;
    const char* new_option;
    Text choose_hint;  // to the tables that are there
    Text name_hint;    // to the name of a new one
    Text new_hint;     // to that of the first one of a new database
    /// Told instead of the error's own message.
    std::optional<BoxText> name_taken, vanished;

    OwnMessage own_failure;  // null where the central table tells every failure
    const char* reading;     // the procedures that make a case of a row and a row of the case
    const char* writing;
};

[[nodiscard]] const DatabaseForms& line_databases();
[[nodiscard]] const DatabaseForms& short_circuit_databases();

}  // namespace zel::forms
