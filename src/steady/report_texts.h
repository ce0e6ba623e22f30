#pragma once

#include "platform/message_box.h"

// Wordings that the reports of the heat balance methods share.

namespace zel {

/// Neither or both of current and temperature are given. {0}: the procedure.
inline constexpr BoxText undefined_mode_box = {
    Icon::Stop,
    {"Function: {0}"},
    {"Berechnungsabbruch 01 -  Berechnungsart undefiniert.\n"
     "Bitte wenden Sie sich mit den Eingabedaten an den Entwickler des Programms.\n"
     "Das Programm muß zur Erlangung eines\n"
     "definierten Zustandes leider beendet werden!",
     "Berechnungsabbruch 01 -  Berechnungsart undefiniert.\n"
     "Please contact the developer of the program and enclose your input data.\n"
     "The application must be cancelled for\n"
     "having a defined state!"}};

/// A search that found no result. {1}: the number of the brochure, "TB207".
inline constexpr Text no_result_lines = {
    "Die Berechnungsiteration nach Cigre {1}\n"
    "ergab kein brauchbares Ergebnis!\n"
    "Bitte überprüfen Sie ihre Eingabedaten auf Plausibilität !\n"
    "und Realitätsnähe !",
    "The calculation by Cigre {1}\n"
    "did not lead to a usable result!\n"
    "Please check your input values for plausibility !"};

}  // namespace zel
