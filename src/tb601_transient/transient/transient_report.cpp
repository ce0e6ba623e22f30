#include "tb601_transient/transient/transient_report.h"

#include <string>

#include "platform/errors.h"

namespace zel {
namespace {

// The places: {0} procedure, {1} row, {2} rounds, {3} Temp_it(1), {4} target, {5} to {7} I_it.

constexpr BoxText target_not_reached = {
    Icon::Stop,
    {"{0}"},
    {"In Zustandsänderung {1}\n"
     "konvergieren Stromstärke_neu\n"
     "und Temperatur_neu nicht über die Zeit\n"
     "- die Berechnung wird an dieser Zustandsänderung abgebrochen.\n"
     "Bitte überprüfen Sie Ihre Eingabedaten\n"
     "und starten Sie die Berechnung neu !",
     "At change-of-state {1}\n"
     "current(new) and temperature(new)\n"
     "do not converge over the time \n"
     "- the calculation is cancelled at this change-of-state.\n"
     "Please check your input values\n"
     "and start the calculation again !"}};

constexpr std::string_view current_not_found_en =
    "At change-of-state {1}\n"
    "time period and temperature(new)\n"
    "do not converge over the calculating current \n"
    "- the calculation is cancelled at this change-of-state.\n"
    "Please check your input values\n"
    "and start the calculation again !";

// The number of the row stands twice in the last line but one.
constexpr BoxText current_not_found = {
    Icon::Stop,
    {"{0}"},
    {"In Zustandsänderung {1}\n"
     "konvergieren die Zeitdauer und Temperatur_neu\n"
     "innerhalb der programminternen Iterationseinschränkungen\n"
     "nicht über die zu berechnende Stromstärke_neu:\n"
     "\n"
     "iterationsmerker2= {2}\n"
     "Temp_it(1)= {3}\n"
     "Zustand16({1}).Temp= {4}\n"
     "I_it(1)= {5}\n"
     "I_it(2)= {6}\n"
     "I_it(3)= {7}\n"
     "\n"
     "Die Berechnung wird an dieser Zustandsänderung abgebrochen.\n"
     "Bitte überprüfen Sie die Eingabedaten\n"
     "der Zustandsänderung {1} auf Realitätsnähe{1}\n"
     "und starten Sie die Berechnung neu !",
     current_not_found_en}};

constexpr BoxText too_many_rounds = {
    Icon::Stop,
    {"{0}"},
    {"In Zustandsänderung {1}\n"
     "konvergieren die Zeitdauer\n"
     "und Temperatur_neu auch nach\n"
     "{2} Iterationsschritten nicht über\n"
     "die zu berechnende Stromstärke_neu.\n"
     "Die Berechnung wird an dieser Zustandsänderung abgebrochen.\n"
     "Bitte überprüfen Sie die Eingabedaten\n"
     "der Zustandsänderung {1}\n"
     "und starten Sie die Berechnung neu !",
     current_not_found_en}};

// {0} procedure, {1} number of the fault.
constexpr BoxText invalid_argument = {
    Icon::Stop,
    {"{0}"},
    {"Fehler in Prozedur {0}\n"
     "Funktionsaufruf unzulässig \n"
     "Es hat sich programmintern ein unzulässiger Aufruf einer\n"
     "einer mathematischen Funktion ergeben\n"
     "Evtl. liegt ein Eingabe-Zahlenwert ausserhalb des Zahlenbereiches\n"
     " für welchen die Berechnung durchgeführt werden kann.\n"
     "Bitte überprüfen u. korrigieren Sie ihre Eingabedaten\n"
     "oder starten Sie das Programm bitte neu !",
     "Error {1} in {0} \n"
     "Error function call \n"
     "Probably an input data is outside\n"
     "the suitable range of numbers \n"
     "for the computation\n"
     "Please check and eventually modify the input data\n"
     "or shut down program and start new"}};

// No numbered statements are kept: the row in the text is 0.
constexpr BoxText other_fault = {Icon::Stop,
                                 {"Unbehandelter Fehler", "Unhandled error"},
                                 {"Fehler {1} bei Zeile 0 aufgetreten.\n"
                                  "Bitte Programm schließen und neu starten",
                                  "Error {1} at row 0 occured.\n"
                                  "Please shut down program and start new"}};

// The second line is German in both languages, and so is a word of the fifth.
constexpr BoxText unknown_type = {Icon::Stop,
                                  {"{0}"},
                                  {"Es wurde keine verwertbare Angabe\n"
                                   "gemacht ob das Seil eine Stahlseele hat.\n"
                                   "( conductor_type <> 1 bzw. 2 )\n"
                                   "Bitte kontrollieren und korrigieren Sie ihre\n"
                                   "Einträge zu diesem Leiterseil in der Seildatenbank\n"
                                   "und starten die Berechnung mit korrigierten Werten neu !",
                                   "There was no indication in the conductor database R-MOX\n"
                                   "if the conductor is ferrous or non-ferrous.\n"
                                   "( conductor_type <> 1 bzw. 2 )\n"
                                   "Please check and correct this input value\n"
                                   "für this distinct conductor in the conductor database\n"
                                   "und start the calculation completely once more after this !"}};

Box fault_box(const RowFailure& failure, std::string_view procedure, LangId lang) {
    const BoxText& text =
        failure.fault == ArithmeticFault::InvalidArgument ? invalid_argument : other_fault;
    return box_in(lang, text, {procedure, std::to_string(static_cast<int>(failure.fault))});
}

Box box_of(const RowFailure& failure, std::string_view procedure,
           const TransientSurroundings& surroundings) {
    const LangId lang = surroundings.reporting.lang;
    if (failure.cause == RowCause::Fault) return fault_box(failure, procedure, lang);
    const BoxText& text = failure.cause == RowCause::TargetNotReached  ? target_not_reached
                          : failure.cause == RowCause::CurrentNotFound ? current_not_found
                                                                       : too_many_rounds;
    const auto number = [&](double value) { return plain_number(value, surroundings.separator); };
    return box_in(lang, text,
                  {procedure, std::to_string(failure.row), std::to_string(failure.rounds),
                   number(failure.Temp_it1), number(failure.Temp), number(failure.I_it1),
                   number(failure.I_it2), number(failure.I_it3)});
}

/// Closes the workbook of a batch whose message mode knows no failure.
[[noreturn]] void end_program(const std::string& why, const Reporting& reporting) {
    const RunMode mode = reporting.Meldung_merker;
    if (mode != RunMode::Messages && mode != RunMode::Silent) reporting.Excel_close();
    throw ProgramEnd(why);
}

}  // namespace

void tell(const RowFailure& failure, std::string_view procedure,
          const TransientSurroundings& surroundings) {
    const Reporting& reporting = surroundings.reporting;
    if (reporting.Meldung_merker == RunMode::Silent) return;
    if (reporting.Meldung_merker != RunMode::Messages)
        end_program("failure in " + std::string(procedure), reporting);
    reporting.dialogs.show(box_of(failure, procedure, surroundings));
}

void tell_unknown_type(std::string_view procedure, const Reporting& reporting) {
    if (reporting.Meldung_merker == RunMode::Messages)
        reporting.dialogs.show(box_in(reporting.lang, unknown_type, {procedure}));
    end_program(std::string(unknown_type_status), reporting);
}

}  // namespace zel
