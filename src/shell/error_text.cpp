#include "shell/error_text.h"

#include <string>

#include "shell/program_texts.h"

namespace zel {
namespace {

// "+ Chr(13) + Chr(10)" is part of the English wording.
constexpr BoxText fault_in_function = {
    Icon::None,
    short_name,
    {"Error {0} in {1}.{2}\n"
     "Funktionsaufruf unzulässig \n"
     "Evtl. liegt ein Eingabe-Zahlenwert ausserhalb des Zahlenbereiches\n"
     " für welchen die Berechnung durchgeführt werden kann.\n"
     "Bitte überprüfen u. korrigieren Sie ihre Eingabedaten\n"
     "oder starten Sie das Programm bitte neu !\n"
     "Tritt dieser Fehler häufig auf\n"
     "setzen Sie sich bitte mit dem Entwickler\n"
     "des Programms in Verbindung.",
     "Error {0} in {1}.{2}\n"
     "Error function call \n"
     "Probably an input data is outside\n"
     "the suitable range of numbers \n"
     "for the computation\n"
     "Please check and eventually modify the input data or + Chr(13) + Chr(10)\n"
     "or shut down program ans start new\n"
     "If this occures more often\n"
     "please contact the developer of the program."}};

}  // namespace

Box arithmetic_error(ArithmeticFault fault, std::string_view module, std::string_view procedure,
                     LangId lang) {
    return box_in(lang, fault_in_function,
                  {std::to_string(static_cast<int>(fault)), module, procedure});
}

}  // namespace zel
