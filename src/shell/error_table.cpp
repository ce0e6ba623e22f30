#include "shell/error_table.h"

#include <algorithm>

#include "shell/program_texts.h"

namespace zel {
namespace {

using Extra = ErrorRow::Extra;

constexpr Text no_lines = {};

// The order is behaviour.
constexpr ErrorRow rows[] = {
    // "+ Chr(13) + Chr(10)" is part of the English wording.
    {{5, 6, 11},
     {"Funktionsaufruf unzulässig \n"
      "Evtl. liegt ein Eingabe-Zahlenwert ausserhalb des Zahlenbereiches\n"
      " für welchen die Berechnung durchgeführt werden kann.\n"
      "Bitte überprüfen u. korrigieren Sie ihre Eingabedaten\n"
      "oder starten Sie das Programm bitte neu !\n"
      "Tritt dieser Fehler häufig auf\n"
      "setzen Sie sich bitte mit dem Entwickler\n"
      "des Programms in Verbindung.",
      "Error function call \n"
      "Probably an input data is outside\n"
      "the suitable range of numbers \n"
      "for the computation\n"
      "Please check and eventually modify the input data or + Chr(13) + Chr(10)\n"
      "or shut down program ans start new\n"
      "If this occures more often\n"
      "please contact the developer of the program."},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{9},
     {"Die ausgewählte Excel-Arbeitsmappe\n"
      "enthält kein Arbeitsblatt mit Namen:\n"
      "   {4}   \n"
      "Bitte wählen Sie eine formatgültige Arbeitsmappe aus!",
      "The selected excel-file\n"
      "is not containing a excel worksheet named:\n"
      "   {4}   \n"
      "Please select a excel worksheet with valid format!"},
     Icon::Stop,
     {" Fehler aufgetreten", " Fehler aufgetreten"},
     leave_procedure_told,
     Extra::ClosesWorkbook},
    {{53},
     {"Für das aufzufrufende Programm wurde bisher kein Pfad festgelegt.\n"
      "Sie müssen zunächst einen Pfad im Menü festlegen !\n"
      " \n"
      " oder :\n"
      " \n"
      "Unter dem festgelegten Pfad befindet sich \n"
      "kein entsprechendes Programm mehr.\n"
      "Legen Sie bitte den Pfad neu fest !",
      "Under the defined path there is no\n"
      "extern program to start !\n"
      "Define the program path before extern program starts !"},
     Icon::Warning,
     {" Fehler bei Programmstart...", "Error extern program start..."},
     leave_procedure_told},
    {{55},
     {" Datei bereits von anderer Anwendung geoeffnet.\n"
      "Schliessen Sie diese Anwendung \n"
      "und versuchen Sie erneut.",
      " File is already opened by another application. \n"
      "Close this application \n"
      "and try again."},
     Icon::None,
     short_name,
     leave_procedure_told},
    // A German line stands in the English wording.
    {{70},
     {"Zugriff auf Datei wurde verweigert !\n"
      "Die Datei wird möglicherweise bereits \n"
      "von einem anderem Programm benutzt.\n"
      "{3}wird beendet !\n"
      "Schliessen Sie die Datei im aufrufenden Programm.\n"
      "oder das aufrufende Programm.\n"
      "Starten Sie anschließend {3} erneut.",
      "The access to this file is denied !\n"
      "The file is probably already used from another aplication. \n"
      "von einem anderem Programm benutzt.\n"
      "{3}will be closed !\n"
      "Close the file at the other application\n"
      "or, better, close the whole application.\n"
      "After this, restart {3}\n"
      "to continue your work !"},
     Icon::None,
     short_name,
     end_program},
    // The German wording speaks of the conductor file whatever the file was.
    {{76},
     {"Seil-Datei wurde nicht gefunden. \n"
      "Kontrollieren Sie den Pfad im Programm-Menue \n"
      "und legen Sie ihn neu fest! ",
      "The requested file was not found!\n"
      "Control and correct path and file name\n"
      "and start a new request!"},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{91, 364}, no_lines, Icon::None, short_name, leave_procedure_told},
    {{380}, no_lines, Icon::None, short_name, next_statement, Extra::CountsToLast},
    {{339},
     {"Fehlende oder nicht registrierte Windows-Bibliothek:\n"
      "{5}\n"
      "Bitte Vorhandensein in Ordner C:\\\\Windows\\\\SysWOW64\n"
      "sowie korrekte Registrierung checken.",
      "Missing or unregistered component:\n"
      "{5}\n"
      " Please check correct registration within C:\\\\Windows\\\\SysWOW64."},
     Icon::Stop,
     {"Fehlende Komponente", short_name.en},
     end_program},
    {{482},
     no_lines,
     Icon::Stop,
     {" Drucker-Fehler", "Printer error !"},
     leave_procedure_told,
     Extra::AsksForPrinter},
    {{3008},
     {"Die ausgewählte Tabelle ist bereits exclusiv\n"
      "durch einen anderen Benutzer bzw. ein anderes Programm geöffnet !\n"
      "Bitte schliessen Sie das Programm, welches die Tabelle\n"
      "und starten Sie das vorliegende Programm erneut !",
      "The selcected table is already opened exclusively\n"
      "from another application !\n"
      "Please close both applications\n"
      "and start once more !"},
     Icon::None,
     short_name,
     end_program},
    {{3010},
     {" Eine Tabelle mit diesem Namen ist bereits in der Datenbank  \n"
      " vorhanden. Bitte geben Sie einen anderen Tabellennamen ein\n"
      " oder wählen Sie 'Speichern in ...bestehender Tabelle'  ",
      " A table with this name already exists in this database ! \n"
      " Please define a new table name\n"
      " or select 'Save in ...existing table'  "},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{3021}, no_lines, Icon::None, short_name, next_statement},
    {{3024},
     {"Die ausgewählte Datenbank existiert\n"
      "in diesem Verzeichnis nicht.! \n"
      "Wählen Sie 'Speichern in neuer Datenbank'\n"
      "oder schauen Sie in einem anderen Verzeichnis nach.! ",
      "The selected database did not exists\n"
      "in this path ! \n"
      "Select  'Save in new database'\n"
      "or search in another directory path ! "},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{3043, 3044},
     {"Unter dem mit Menüpunkt <Einstellungen / Pfad der Seildatenbank-/ der Berechnungsdaten-Tabellen / oder der Schnellzugriff-Tabelle festlegen> \n"
      "eingestellten Pfad befindet sich keine entsprechende Datei. \n"
      "Sie müssen diesen Pfad nun mittels \n"
      "des genannten Menüpunktes neu festlegen \n"
      "und das Programm neu starten !",
      "The requested file cannot be found under the selected path\n"
      "Please chose another path which contains the file. \n"
      "After this, restart {3}\n"
      "to continue your work !"},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{3045},
     {"Datei / Dateiname wird in anderer Sitzung bereits verwendet.\n"
      "Bitte beenden Sie zunächst diese Sitzung ! ",
      "Data file / Data filename is already used in another session.\n"
      "Please end this session first ! "},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{3051},
     {"Das Programm kann die Datei \n"
      " nicht öffnen, in sie schreiben oder löschen.\n"
      "Sie haben entweder keine Schreibberechtigung  für diese Datei\n"
      " oder die Datei wurde bereits von einem anderen Benutzer exklusiv geöffnet.",
      "The file \n"
      "cannot be opened, written or deleted.\n"
      "You either do not have write permission for this file\n"
      "or the file has already been opened exclusively by another user.."},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{3204},
     {"Eine Datenbank diesen Namens ist in\n"
      "diesem Verzeichnis bereits vorhanden.\n"
      "Wechseln Sie Namen oder Verzeichnis!",
      "A database with this name already\n"
      "exists in this path.\n"
      "Change name or path!"},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{3265}, no_lines, Icon::None, short_name, next_statement},
    {{3356},
     {"Die Access-Seildatenbank ist bereits exclusiv geoeffnet \n"
      "und somit für einen weiteren Datenzugriff gesperrt \n"
      "Schliessen Sie das Programm, welches die Datenbank \n"
      "blockiert ( z.B. MS Access oder ein weiterer Aufruf des\n"
      "vorliegenden Programmes)\n"
      "und starten Sie das vorliegende Programm erneut !",
      "The file or database is already opened exclusively from another application.\n"
      "{3}will be closed !\n"
      "Close the file or database at the other application\n"
      "or, better, close the whole application.\n"
      "After this, restart {3}\n"
      "to continue your work !"},
     Icon::None,
     short_name,
     end_program},
    {{26469},
     {"Keine Datensätze in geoeffneter Tabelle vorhanden !",
      "No suitable data records found in this table or database !"},
     Icon::None,
     short_name,
     leave_procedure_told},
    {{32755}, no_lines, Icon::None, short_name, leave_procedure_told},
    {{-2147417848}, no_lines, Icon::None, short_name, leave_procedure_told},
};

constexpr ErrorRow unhandled = {{0},
                                {"Unbehandelter Fehler {0} bei Zeile {6} aufgetreten.\n"
                                 "Tritt dieser Fehler häufig auf\n"
                                 "und ist dieser nicht auf fehlende\n"
                                 "oder fehlerhafte Eingabedaten zurückzuführen\n"
                                 "setzen Sie sich bitte mit uns\n"
                                 "mit Beschreibung des Fehlers\n"
                                 "in Verbindung.\n"
                                 "Bitte Programm schließen und neu starten",
                                 "Error {0} bei Zeile {6} occured.\n"
                                 "Please shut down program and start new\n"
                                 "If this occures more often\n"
                                 "please contact the developer of the program."},
                                Icon::Stop,
                                {"Unbehandelter Fehler", "Unhandled error"},
                                leave_procedure_told};

}  // namespace

std::span<const ErrorRow> error_rows() { return rows; }

const ErrorRow& unhandled_row() { return unhandled; }

const ErrorRow& error_row(std::int32_t number) {
    const auto* found = std::find_if(std::begin(rows), std::end(rows),
                                     [&](const ErrorRow& row) { return row.numbers.hold(number); });
    return found == std::end(rows) ? unhandled : *found;
}

Box error_box(const ErrorRow& row, const ErrorObject& error, std::int16_t Zeile,
              std::string_view module, std::string_view procedure, LangId lang) {
    std::string lines(error_head);
    if (!row.lines.de.empty()) lines += '\n' + std::string(row.lines.in(lang));
    // The fixed wording says nothing of the cause of an error without a row of its own, nor which
    // printer it is that is missing.
    if ((&row == &unhandled_row() || row.extra == Extra::AsksForPrinter) && !error.text.empty())
        lines += "\n{5}";
    const std::string number = std::to_string(error.number);
    const std::string Zeile_text = std::to_string(Zeile);
    const std::initializer_list<std::string_view> values = {
        number, module, procedure, short_name.in(lang), error.subject, error.text, Zeile_text};
    return {row.icon, std::string(row.title.in(lang)), lines_of(fill(lines, values))};
}

Box error_box(const ErrorObject& error, std::int16_t Zeile, std::string_view module,
              std::string_view procedure, LangId lang) {
    return error_box(error_row(error.number), error, Zeile, module, procedure, lang);
}

Box arithmetic_error(ArithmeticFault fault, std::string_view module, std::string_view procedure,
                     LangId lang) {
    return error_box({static_cast<std::int32_t>(fault), {}, {}}, 0, module, procedure, lang);
}

}  // namespace zel
