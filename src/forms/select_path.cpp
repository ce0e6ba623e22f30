#include "forms/select_path.h"

#include "shell/program_texts.h"

namespace zel {
namespace {

using S = ProgramSettings;

constexpr std::size_t shortest_path = 2;
constexpr const char* root = "/";

// Programs have no ending here, so their filter shows every file.
constexpr std::string_view program_filters = "Programs (*.exe) (*)\nall files (*.*) (*)";
constexpr std::string_view database_filters =
    "Access-database (*.mdb) (*.mdb)\nall files (*.*) (*)";
constexpr std::string_view database_filter = "Access-database (*.mdb) (*.mdb)";

constexpr PathRole roles[] = {
    {"mVerzeichnispfad",
     {"Verzeichnispfad der &Seildatenbank festlegen ...",
      "Specify path for &conductor database (R-MOX)..."},
     {"Verzeichnispfad der Seildatenbank festlegen",
      "Select name and path of the conductor database (R-MOX)"},
     {"Name und Pfad der Seildatenbank sind wie folgt festgelegt :",
      "Name and path of the conductor database is defined as follows :"},
     &S::Seildatenbanknamepluspfad,
     program_filters,
     ""},
    {"mVerzeichnispfad_berech",
     {"Verzeichnispfad der &Berechnungsdaten festlegen ...",
      "Specify path for c&alculation database ..."},
     {"Verzeichnispfad der Berechnungsdaten festlegen",
      "Select name and path of the calculation database"},
     {"Name und Pfad der Berechnungsdaten sind wie folgt festgelegt :",
      "Name and path of the calculation database is defined as follows :"},
     &S::Berechnungsdaten,
     database_filters,
     "mdb"},
    {"mVerzeichnispfad_worstc",
     {"Verzeichnispfad der Schnell&zugriff-Tabelle Daten festlegen ...",
      "Specify path for &Quick-Access-Table ..."},
     {"Verzeichnispfad der Schnellzugriff-Tabelle Daten festlegen",
      "Select path of the Quick-Access-Table"},
     {"Name und Pfad der Schnellzugriff-Tabelle sind wie folgt festgelegt :",
      "Name and path of the Quick-Access-Table is defined as follows :"},
     &S::worstcasedatenVORV81,
     database_filter,
     "mdb"},
    {"mVerzeichnispfad_stcas",
     {"Verzeichnispfad der Standard&fall-Daten festlegen ...",
      "Specify path for Standar&d-Case-Table ..."},
     {"Verzeichnispfad der Standardfall-Daten festlegen",
      "Select name and path of the Standard-Case-Table"},
     {"Name und Pfad der Standardfall-Daten sind wie folgt festgelegt :",
      "Name and path of the Standard-Case-Table is defined as follows :"},
     &S::Standardfalldaten,
     database_filter,
     "mdb"},
};

}  // namespace

std::span<const PathRole> path_roles() { return roles; }

std::string start_folder(const std::string& path) {
    const std::string folder = folder_of(path);
    return path.size() < shortest_path || folder.empty() ? root : folder;
}

}  // namespace zel
