#include "shell/linked_libraries.h"

// The versions are those of the build.

namespace zel {
namespace {

constexpr LinkedLibrary libraries[] = {
    {"Qt 6 (Core, Gui, Widgets, SVG)",
     ZEL_VERSION_QT,
     "LGPL-3.0",
     {"Fenster und Zeichnungen", "windows and drawings"},
     "Qt6"},
    {"CUPS", ZEL_VERSION_CUPS, "Apache-2.0", {"Drucker", "printers"}, "Cups"},
    {"qpdf", ZEL_VERSION_QPDF, "Apache-2.0", {"PDF-Dateien", "PDF files"}, "libqpdf"},
    {"libzip",
     ZEL_VERSION_ZIP,
     "BSD-3-Clause",
     {"Arbeitsmappen lesen und schreiben", "reading and writing workbooks"},
     "libzip"},
    {"pugixml",
     ZEL_VERSION_PUGIXML,
     "MIT",
     {"Arbeitsmappen lesen und schreiben", "reading and writing workbooks"},
     "pugixml"},
    {"libxlsxwriter",
     {},  // its package names another number
     "BSD-2-Clause",
     {"neue Arbeitsmappen", "new workbooks"},
     "xlsxwriter"},
    {"zlib", {}, "Zlib", {"Arbeitsmappen", "workbooks"}},
    {"SQLiteCpp", ZEL_VERSION_SQLITECPP, "MIT", {"Datenbanken", "databases"}, "SQLiteCpp"},
    {"SQLite", {}, "public domain", {"Datenbanken", "databases"}},
    {"MDB Tools (libmdb)",
     ZEL_VERSION_MDB,
     "LGPL-2.0-or-later",
     {"alte Datenbanken lesen", "reading old databases"},
     "libmdb"},
    {"GLib", {}, "LGPL-2.1-or-later", {"alte Datenbanken lesen", "reading old databases"}},
    {"JSON for Modern C++",
     ZEL_VERSION_JSON,
     "MIT",
     {"Dateien der Fälle", "files of cases"},
     "nlohmann_json"},
    {"CLI11", ZEL_VERSION_CLI11, "BSD-3-Clause", {"Befehlszeile", "command line"}, "CLI11"},
    {"Date (time zones)",
     ZEL_VERSION_DATE,
     "MIT",
     {"Zeitzonen von Wetterdaten", "time zones of weather data"},
     "date"},
    {"OpenSSL (libcrypto)",
     ZEL_VERSION_OPENSSL,
     "Apache-2.0",
     {"Prüfsummen gelesener Dateien", "checksums of files read"},
     "OpenSSL"},
    {"Python", {}, "PSF-2.0", {"Python-Paket", "Python package"}, "Python3"},
    {"pybind11", {}, "BSD-3-Clause", {"Python-Paket", "Python package"}, "pybind11"},
    {"GNU C and C++ library",
     {},
     "LGPL-2.1-or-later, GPL-3.0 (GCC exception)",
     {"Laufzeit, Threads", "run time, threads"},
     "Threads"},
};

}  // namespace

std::string_view release_number() { return ZEL_RELEASE; }

std::span<const LinkedLibrary> linked_libraries() { return libraries; }

}  // namespace zel
