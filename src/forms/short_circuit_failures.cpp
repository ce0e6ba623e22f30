#include "forms/short_circuit_failures.h"

#include "platform/errors.h"
#include "shell/program_texts.h"

namespace zel::forms {
namespace {

// Places in lines: {0} number, {1} row where it came up.
constexpr Text invalid_call = {" Funktionsaufruf unzulässig \n"
                               "Ein oder einige von Ihnen eingegebenen Zahlenwerte\n"
                               "liegen wahrscheinlich ausserhalb des Zahlenbereiches für \n"
                               "den die Berechnung durchgeführt werden kann.\n"
                               "Es hat sich deshalb programmintern ein unzulässiger Aufruf einer\n"
                               "einer mathematischen Funktion ergeben\n"
                               "Bitte überprüfen u. korrigieren Sie ihre Eingabedaten !"};
constexpr Text overflow = {
    " Zu hohe Werte Überlauf \n"
    "Es hat sich deshalb programmintern eine Division durch 0\n"
    "Bitte überprüfen Sie ihre Eingabe auf Plausibilität bzw. Realitätsnähe\n"
    " u. korrigieren Sie ihre Eingabedaten !"};
constexpr Text file_blocked = {" Datei bereits von anderer Anwendung geoeffnet. \n"
                               "Schliessen Sie diese Anwendung und versuchen Sie es \n"
                               "erneut."};
constexpr Text any_other = {"Fehler {0} bei Zeile {1} aufgetreten."};
constexpr Text while_dropping = {
    "Fehler {0} bei Zeile {1} aufgetreten.\n"
    "Bitte Programm schließen und neu starten\n"
    "Tritt dieser Fehler häufig auf\n"
    "setzen Sie sich bitte mit dem Entwickler des Programms in Verbindung.",
    "Error {0} in KS_Form4_command3_click at row {1} occured.\n"
    "Please shut down program and start new\n"
    "If this occures more often\n"
    "please contact the developer of the program."};

constexpr std::string_view title_of_form = " Fehlerhafte Eingabe";
constexpr std::string_view title_of_procedure = " Fehler in Funktion ";
constexpr std::string_view title_of_print = " Fehler in Sub ";
constexpr std::string_view dropping = "Command3_click";  // of the browser

constexpr std::string_view printing = "KS10_tab_print_Kurzschluss_2";

/// The wording; null where the central table has the message.
const Text* lines_for(const ErrorObject& error, std::string_view procedure) {
    const ErrorRow& row = error_row(error.number);
    if (row.silent()) return nullptr;
    if (procedure == dropping) return &while_dropping;
    switch (static_cast<PlatformFault>(error.number)) {
        case PlatformFault::InvalidCall: return &invalid_call;
        case PlatformFault::Overflow:
        case PlatformFault::DivisionByZero: return &overflow;
        case PlatformFault::FileOpen: return procedure == printing ? &file_blocked : nullptr;
        default: return &row == &unhandled_row() ? &any_other : nullptr;
    }
}

std::string title_for(std::string_view procedure, LangId lang) {
    if (procedure == dropping) return std::string(short_circuit_title.in(lang));
    // Event procedures of the forms are named after a control, the others after their step.
    if (!procedure.starts_with("KS")) return std::string(title_of_form);
    return std::string(procedure == printing ? title_of_print : title_of_procedure) +
           std::string(procedure);
}

}  // namespace

std::optional<Box> short_circuit_failure(const ErrorObject& error, std::int16_t Zeile,
                                         std::string_view procedure, LangId lang) {
    const Text* lines = lines_for(error, procedure);
    if (lines == nullptr) return std::nullopt;
    std::string told = fill(lines->in(lang), {std::to_string(error.number), std::to_string(Zeile)});
    if (!error.text.empty()) told += '\n' + error.text;
    return Box{Icon::Stop, title_for(procedure, lang), lines_of(told)};
}

}  // namespace zel::forms
