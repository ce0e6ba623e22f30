#include "forms/database_forms.h"

#include <cstdio>

#include "forms/short_circuit_failures.h"
#include "persistence/database/case_table.h"
#include "shell/program_texts.h"
#include "short_circuit/short_circuit_case.h"
#include "short_circuit/short_circuit_table.h"
#include "steady/case/method.h"

namespace zel::forms {
namespace {

using S = ProgramSettings;
using Values = std::span<const std::string>;

// ---- the list of all rows, by the places of the list columns

template <std::size_t place>
std::string value(Values values, LangId /*lang*/) {
    return values[place];
}

/// What tells it from the others: "TB 601" of "Cigre TB 601".
std::string short_name_of(Method method) {
    constexpr std::string_view common = "Cigre ";
    const std::string_view name = name_of(method);
    return std::string(name.starts_with(common) ? name.substr(common.size()) : name);
}

std::string methods(Values values, LangId /*lang*/) {
    constexpr std::size_t first = 6;
    std::string names;
    for (const Method method : all_methods)
        if (values[first + static_cast<std::size_t>(method)] == "1")
            names += (names.empty() ? "" : ", ") + short_name_of(method);
    return names;
}

std::string judged_object(Values values, LangId lang) {
    constexpr Text objects[] = {{},
                                {"blanker Leiter", "bare conductor"},
                                {"elektrisches Betriebsmittel", "electrical equipment"}};
    for (const std::int16_t index : {bare_conductor, equipment})
        if (values[4] == std::to_string(index))
            return std::string(objects[static_cast<std::size_t>(index)].in(lang));
    return {};
}

constexpr ListColumn line_list[] = {
    {{"Projekt", "Project"}, value<0>, 16},     {{"Datum", "Date"}, value<1>, 11, true},
    {{"Bearbeiter", "Operator"}, value<2>, 11}, {{"Leiter", "Conductor"}, value<4>, 16},
    {{"Verfahren", "Methods"}, methods, 30},
};

constexpr ListColumn short_circuit_list[] = {
    {{"Kennung", "Identification"}, value<0>, 16},
    {{"Datum", "Date"}, value<1>, 11, true},
    {{"Bearbeiter", "Operator"}, value<2>, 11},
    {{"Beurteilt wird", "Judged object"}, judged_object, 26},
    {{"Werkstoff", "Material"}, value<5>, 16},
};

// ---- questions for paths

constexpr Text open_filters = {"mdb-Dateien (*.mdb) (*.mdb)\nAlle Dateien (*.*) (*)",
                               "mdb-Dateien (*.mdb) (*.mdb)\nAll files (*.*) (*)"};
constexpr Text new_filters = {"mdb-Dateien (*.mdb) (*.mdb)\nAlle Dateien (*.*) (*)",
                              "mdb - files (*.mdb) (*.mdb)\nall files (*.*) (*)"};

constexpr Text open_caption = {"Datenbank ö&ffnen ...", "&Open database ..."};
constexpr Text existing_caption = {"Speichern in &bestehender Datenbank ...",
                                   "Save in &existing database ..."};
constexpr Text new_caption = {"Speichern in &neuer Datenbank ...", "Save in &new database ..."};
constexpr Text new_title = {"Speichern in neuer Datenbank (Access-Format)",
                            "Save in new database (Access format)"};

constexpr Text save_title = {"Speichern in : {0}", "Save in : {0}"};
constexpr Text saved_title = {"Speichern des Datensatzes", "Saving data"};

// ---- questions before something is lost

constexpr Text delete_row_lines = {"Wollen Sie den aktuellen Datensatz wirklich löschen?",
                                   "Do you really want to delete this data record?"};
constexpr std::string_view delete_table_german =
    "Wollen Sie die  aktuelle Tabelle wirklich löschen?\n"
    "Alle darin enthaltenen Datensätze gehen verloren !";

constexpr BoxText question(const Text& lines) {
    return {Icon::Stop, short_name, lines, Buttons::YesNo, Answer::No};
}

DatabaseForms make_line() {
    return {
        .format = case_tables,
        .open = {"mOeffnendatenbank",
                 open_caption,
                 {"Datenbank (Access-Format) oeffnen ...", "Open database (Access format) ..."},
                 open_filters},
        .opens_at_calculations = false,
        .open_calculations = DatabaseQuestion{"mBerechnungsdatenbank",
                                              {"Be&rechnungs-Datenbank öffnen ...",
                                               "Open &calculation database ..."},
                                              {"Berechnungs-Datenbank (Access-Format) oeffnen ...",
                                               "Open calculation database (Access format) ..."},
                                              open_filters},
        .save_in_existing = {"mbestehendeDatenbank",
                             existing_caption,
                             {"Speichern in bestehender Datenbank (Access-Format) ...",
                              "Save in existing database (Access-format) ..."},
                             open_filters},
        .save_in_new = {"mneueDatenbank", new_caption, new_title, new_filters},
        .fixed = {"mSchnellzugriff",
                  {"Schnell&zugriff-Tabelle öffnen", "Open &Quick-Access-Table"},
                  "mSchnellzugriff_speichern",
                  {"&Speichern in Schnellzugriff-Tabelle", "&Save in Quick-Access-Table"},
                  &S::worstcasedatenVORV81,
                  "worst_cases",
                  {" ->Tabelle: worst_cases", " ->Table: worst_cases"},
                  false,
                  {Icon::None,
                   saved_title,
                   {"Datensatz wurde in Schnellzugriff-Tabelle abgelegt!",
                    "Data were save in Quick-Access-Table!"}},
                  "Form1",
                  "Command2_click"},
        .reserved = reserved_case_database,
        .browser = "frm_db_open",
        .loading = "S01_frm_db_open_Load",
        .browser_title = {"Öffnen der Datenbank ", "Open database "},
        .pages = {Text{"&Eingabedaten", "&Input data"}, Text{"&Leiterdaten", "&Conductor data"}},
        .list = line_list,
        .count = {"Datensatz {0} von {1}", "Data record {0} of {1}"},
        .first_number = 0,
        .goes_to_first = true,
        .delete_row = question(delete_row_lines),
        .delete_table =
            question({delete_table_german, "Do you really want to delete this table ?\n"
                                           "All data records in this table will be deleted !"}),
        .save_form = "frm_db_save",
        .new_form = "frm_db_new",
        .save_title = save_title,
        .new_title = save_title,
        .existing_option = "Option1",
        .new_option = "Option2",
        .choose_hint = {"Wählen Sie die Tabelle aus, zu der der Datensatz hinzugefügt wird.",
                        "Choose the table to which the data record is added."},
        .name_hint = {"Geben Sie den Namen der neuen Tabelle ein.",
                      "Enter the name of the new table."},
        .new_hint = {"Geben Sie den Namen der ersten Tabelle der neuen Datenbank ein.",
                     "Enter the name of the first table of the new database."},
        .name_taken = {},
        .vanished = {},
        .own_failure = nullptr,
        .reading = "S30_Access_Daten_einlesen",
        .writing = "S30_Access_Daten_speichern",
    };
}

DatabaseForms make_short_circuit() {
    return {
        .format = short_circuit_tables,
        .open = {"mOeffnendatenbank",
                 open_caption,
                 {"Datenbank (Access-Format) oeffnen ...", "Open database (Access format) ..."},
                 open_filters},
        .opens_at_calculations = true,
        .open_calculations = {},
        .save_in_existing = {"mbestehendeDatenbank",
                             existing_caption,
                             {"Speichern in bestehender Datenbank (Access-Format) ...",
                              "Save in existing database (Access-format) ..."},
                             open_filters},
        .save_in_new = {"mneueDatenbank", new_caption, new_title, new_filters},
        .fixed = {"mStandardfall",
                  {"&Auswahl aus Standardfall-Tabelle", "&Choose from standard-case table"},
                  "mStandardfall_speichern",
                  {"&Speichern in Standardfall-Tabelle", "&Save in standard-case table"},
                  &S::Standardfalldaten,
                  "st_cases",
                  {" ->Tabelle: st_cases", " ->Table: st_cases"},
                  true,
                  {Icon::None,
                   {saved_title.de},
                   {"Datensatz wurde in Standardfall-Datenbank\nin Tabelle:  st_cases  abgelegt!"}},
                  "KS_Form1",
                  "Command2_click"},
        .reserved = [](std::string_view path, std::string_view /*folder*/,
                       LangId /*lang*/) { return reserved_short_circuit_database(path); },
        .browser = "Ks_Form4",
        .loading = "KS7_Datenbank_oeffnen_Tabellen_auflisten",
        .browser_title = {"Öffnen der Datenbank ", "Open database "},
        .pages = {Text{"&Eingabedaten", "&Input data"}, Text{"&Leiterdaten", "&Conductor data"}},
        .list = short_circuit_list,
        .count = {"Datensatz {0} von {1}", "Data record {0} of {1}"},
        .first_number = 1,
        .goes_to_first = false,
        .delete_row = question({delete_row_lines.de}),
        .delete_table = question(
            {delete_table_german,
             "Do you really to delete this table ?\nAll conductor in there will be lost! "}),
        .save_form = "Ks_Form3",
        .new_form = "Ks_Form8",
        .save_title = {"Speichern in: {0}", "Save in: {0}"},
        .new_title = save_title,
        .existing_option = "Option2",
        .new_option = "Option1",
        .choose_hint = {"Wählen Sie eine der nachfolgend im Pull-Down-Listenfeld aufgeführten "
                        "Tabellen aus.",
                        "Choose one of the tables of the list."},
        .name_hint = {"Geben Sie den Namen der neuen Tabelle ein.",
                      "Enter the name of the new table."},
        .new_hint = {"Der Datensatz wird nun in der neu angelegten Datenbank in der soeben "
                     "benannten Tabelle gespeichert.",
                     "The data record is now saved in the new database, in the table just named."},
        .name_taken = BoxText{Icon::None,
                              short_circuit_title,
                              {" Eine Tabelle mit diesem Namen ist bereits in der Datenbank  \n"
                               " vorhanden. Bitte geben Sie einen anderen Tabellennamen ein\n"
                               " oder wählen Sie 'Speichern in ...bestehender Tabelle'  "}},
        .vanished =
            BoxText{Icon::None,
                    short_circuit_title,
                    {"Die ausgewählte Datenbank existiert\nin diesem Verzeichnis nicht.! "}},
        .own_failure = short_circuit_failure,
        .reading = "KS72_Daten_einlesen",
        .writing = "KS82_Tabellendaten_speichern",
    };
}

}  // namespace

std::string date_order(const std::string& date) {
    int day = 0;
    int month = 0;
    int year = 0;
    int end = 0;
    if (std::sscanf(date.c_str(), "%2d.%2d.%4d%n", &day, &month, &year, &end) != 3 ||
        static_cast<std::size_t>(end) != date.size())
        return date;
    std::array<char, 16> ordered{};
    std::snprintf(ordered.data(), ordered.size(), "%04d-%02d-%02d", year, month, day);
    return ordered.data();
}

const DatabaseForms& line_databases() {
    static const DatabaseForms forms = make_line();
    return forms;
}

const DatabaseForms& short_circuit_databases() {
    static const DatabaseForms forms = make_short_circuit();
    return forms;
}

}  // namespace zel::forms
