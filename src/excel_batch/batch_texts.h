#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "excel_batch/batch_run.h"
#include "platform/message_box.h"
#include "shell/program_texts.h"
#include "workflow/run/steady_run.h"

// What a run tells. The wordings are joined without blanks of their own.

namespace zel::excel_batch {

inline constexpr Text opening = {"Arbeitsmappe:{0}wird geöffnet.",
                                 "Excel workbook: {0}will be opened."};
inline constexpr Text sheet_in_progress = {"Arbeitsblatt   {0}   wird bearbeitet",
                                           "Calculation excel sheet    {0}   in progress... "};
inline constexpr Text sheet_finished = {"Bearbeitung Arbeitsblatt {0} ist abgeschlossen.",
                                        "Calculation of excel sheet{0}has finished."};
inline constexpr Text rows_finished = {"Bearbeitung Arbeitsblatt   {0}   ist abgeschlossen.",
                                       "Calculation of worksheet   {0}   is finished."};
inline constexpr Text active_rows_line = {"Anzahl aktiver Berechnungszeilen: {0}",
                                          "number of active calculation rows: {0}"};
inline constexpr Text elapsed_line = {"aktuelle Berechnungsdauer: {0}",
                                      "elapsed calculation time: {0}"};

inline constexpr Text flags_of_first_pass = {
    "Zulässige Werte: 1 = aktiviert / leer = Berechnungsende",
    "permissible input values: 1 = active / empty = end of calculation"};
inline constexpr Text flags_of_second_pass = {
    "Zulässige Werte: 1 = aktiviert / 2 deaktiviert / leer = Berechnungsende",
    "permissible input values: 1 = active / 2 = inaktive / empty = end of calculation"};

inline constexpr BoxText template_refused = {
    Icon::Stop,
    short_name,
    {"Der Name {0} ist in diesem Verzeichnis\n"
     "fest definiert. Es darf keine weitere Excel-Arbeitsmappe \n"
     "diesen Namens angelegt werden ! \n"
     "Bitte korrigieren Sie ihre Eingabe !",
     "The file name:\n"
     "{0}\n"
     "is used in this directory.\n"
     "You are not allowed to create another\n"
     "excel workbook with this name ! \n"
     "Please correct your input !"}};

inline constexpr BoxText fixed_input_refused = {
    Icon::Stop,
    short_name,
    {"Excel-Berechnung wurde wegen fehlerhafter \n"
     "Eingabe-Daten im Excel-Arbeitsblatt\n"
     "{0}\n"
     "abgebrochen !\n"
     "Bitte korrigieren Sie zunächst die Daten im Arbeitsblatt\n"
     "und starten Sie anschließend die Berechnung erneut.",
     "Excel calculation was stopped because of \n"
     "incorrect input data in excel sheet:\n"
     "   \n"
     "{0}\n"
     "Please check and correct the input data in the ecxel sheet\n"
     "and start the calculation afterwards one more time."}};

inline constexpr BoxText row_refused = {Icon::Stop,
                                        short_name,
                                        {"Excel-Berechnung wurde wegen fehlerhafter\n"
                                         "Eingabe-Daten im Excel-Arbeitsblatt\n"
                                         "{0}\n"
                                         " abgebrochen !",
                                         "Excel calculation was stopped\n"
                                         "because of incorrect input values in excel worksheet\n"
                                         "{0}\n"
                                         "Please correct the input values\n"
                                         "and start the calculation once more."}};

inline constexpr BoxText run_failed = {Icon::Stop,
                                       short_name,
                                       {"Excel-Berechnung wurde abgebrochen.\n"
                                        "Bitte prüfen Sie  Sie zunächst ihre Arbeitsmappe\n"
                                        "und starten Sie anschließend die Berechnung erneut.",
                                        "Excel calculation was stopped.\n"
                                        "Please check and correct your Excel calculation sheet\n"
                                        "and start the calculation one more time!"}};

inline constexpr BoxText rows_beyond_limit = {
    Icon::Warning,
    short_name,
    {"Es können höchstens {0} Zeilen berechnet werden.\n"
     "Zeile {1} und die folgenden wurden nicht berechnet.",
     "No more than {0} rows can be calculated.\n"
     "Row {1} and those behind it were not calculated."}};

/// "12 of 300 rows calculated", while a run goes on.
[[nodiscard]] std::string rows_line(int done, int active, LangId lang);

/// What has become of the rows at the end of a run, however it ended.
[[nodiscard]] std::string end_line(const BatchResult& result, LangId lang);

/// A line for each wrong cell, as the clipboard takes them: sheet, name, text and reason.
[[nodiscard]] std::string cells_text(const std::vector<WrongCell>& cells, LangId lang);

/// Why a cell is refused.
[[nodiscard]] std::string reason_of(const WrongCell& cell, LangId lang);

/// The lines at the end of a run that went through: what was read, and where the results stand.
[[nodiscard]] std::vector<std::string> summary_of(const BatchResult& result,
                                                  std::string_view workbook, LangId lang);

/// The remarks on the rows, counted.
[[nodiscard]] std::vector<Note> notes_of(const BatchResult& result, LangId lang);

/// "1 h 02 min 03 sec" of 3723 s.
[[nodiscard]] std::string duration_text(double seconds);

}  // namespace zel::excel_batch
