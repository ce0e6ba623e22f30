#include "steady/webs_report.h"

#include "platform/arithmetic_fault.h"
#include "platform/errors.h"

namespace zel {
namespace {

// Place {0} is the title.
constexpr Text program = {"{0}"};

constexpr BoxText low_wind_box = {
    Icon::Question,
    program,
    {"Der Betrag der im 90°-Winkel zum Leiterseil \n"
     "angreifenden Luftgeschwindigkeit ist bei\n"
     "Windgeschwindigkeit: {1} m/s\n"
     "und Winkel Wind/Seil : {2} °\n"
     "kleiner 0,2 m/s!\n"
     "(Wind90 = {3} m/s )\n"
     "Dieser Wert für die Luftgeschwindigkeit tritt in der Praxis \n"
     "aufgrund von Bodenthermik u. freier Konvektion nicht auf! \n"
     "Wollen Sie daher mit der praxisnäheren Mindestluftgeschwindigkeit 0,2 m/s\n"
     "weiterrechnen ?",
     "The 90°angle amount of the wind direction \n"
     "relative to conductor direction \n"
     "is at windspeed: {1} m/s\n"
     "and angle wind/condutor : {2} °\n"
     "less than 0,2 m/s!\n"
     "This value for the wind speed / air speed is because of \n"
     "ground thermic influences and convection practically never appearing! \n"
     "Would you prefer to go on calculating \n"
     "with the more practically minimum wind speed of 0,2 m/s ?"},
    Buttons::YesNo,
    Answer::Yes};

constexpr BoxText Grashof_box = {Icon::Question,
                                 program,
                                 {"Grashofzahl größer als 10000000 \n"
                                  "Die Genauigkeit der Berechnung \n"
                                  "ist bei den Eingabewerten für :\n"
                                  "Windgeschwindigkeit: {1} m/s\n"
                                  "Umgebungstemperatur: {2} °C\n"
                                  "Leitertemperatur: {3} °C\n"
                                  "nicht mehr gewährleistet.\n"
                                  "Wollen Sie die Berechnung trotzdem weiterführen ? ",
                                  "Grashof number greater than 10000000 \n"
                                  "The usability of the calculation \n"
                                  "with inpunt data :\n"
                                  "Wind speed: {1} m/s\n"
                                  "Ambient temperature: {2} °C\n"
                                  "conductor temperature: {3} °C\n"
                                  "can't be granted.\n"
                                  "Do you want to continue the calculation ? "},
                                 Buttons::YesNo,
                                 Answer::Yes};

constexpr BoxText end_box = {Icon::Stop,
                             program,
                             {"Das Programm muß zur Erlangung eines\n"
                              "definierten Zustandes leider beendet werden!",
                              "For coming into a defined state, the application \n"
                              "must be closed and restarted !"}};

constexpr BoxText Reynolds_box = {
    Icon::Stop,
    program,
    {"Reynoldszahl kleiner als 0.1 !\n"
     "Bitte überprüfe Sie ihre Eigabedaten.",
     "Reynoldszahl less than 0.1 !\n"
     "Please check and correct the input data.\n"
     "To get an defined state, the application will be closed now !"}};

}  // namespace

bool WebsQuestions::raises_low_wind(double V, double delta, double w) {
    if (!told_.wi_v_wi_merker || !speaks()) return true;
    if (low_wind_ == LowWindAnswer::NotAsked) {
        const Answer answer =
            show(low_wind_box, masked(V, "##0.0#", told_.separator),
                 masked(delta, "##0.0#", told_.separator), masked(w, "#0.0##", told_.separator));
        low_wind_ = answer == Answer::Yes ? LowWindAnswer::Yes : LowWindAnswer::No;
    }
    return low_wind_ == LowWindAnswer::Yes;
}

void WebsQuestions::Grashof_too_large(double V, double Ta, double T) const {
    if (!speaks()) return;
    const Answer answer =
        show(Grashof_box, masked(V, "##0.0#", told_.separator),
             masked(Ta, "###0.0", told_.separator), masked(T, "###0.0", told_.separator));
    if (answer == Answer::Yes) return;
    show(end_box);
    throw ProgramEnd("Webs: ended by the answer on a Grashof number above 10000000");
}

void WebsQuestions::Reynolds_too_small() const {
    if (speaks()) show(Reynolds_box);
    throw ProgramEnd("Webs: Reynolds number below 0.1");
}

Answer WebsQuestions::show(const BoxText& text, std::string_view value1, std::string_view value2,
                           std::string_view value3) const {
    const ArithmeticScope apart;  // what a window computes is no fault of the calculation
    const LangId lang = told_.reporting.lang;
    return told_.reporting.dialogs.show(
        box_in(lang, text, {told_.title.in(lang), value1, value2, value3}));
}

}  // namespace zel
