#include "workflow/run/advice.h"

#include <cmath>

#include "steady/case/case_fields.h"
#include "workflow/run/steady_methods.h"

namespace zel {
namespace {

constexpr BoxText webs_angle = {
    Icon::Warning,
    {"Wichtige Anmerkung zum Berechnungsergebnis nach Webs:",
     "Important remark to calculation result by Webs:"},
    {"Der Winkel zwischen Leiterseil u. angreifender Luftgeschwindigkeit\n"
     "beträgt {0} ° und ist damit kleiner 60° bzw. größer 120°!\n"
     "Bei Verwendung des Berechnungsergebnisses zur\n"
     "Ermittlung der Dauerstrombelastbarkeit nach Webs\n"
     "wird empfohlen, den Betrag der im 90°-Winkel zum Leiterseil\n"
     "angreifenden Luftgeschwindigkeit (= {1} m/s)\n"
     "als Windgeschwindigkeit zu verwenden\n"
     "und die Windrichtung auf einen Wert abzuändern\n"
     "welcher 90° zur Seilrichtung ergibt !\n"
     "Siehe auch Benutzerhandbuch, Abschnitt:\n"
     "Empfehlungen für die Berechnung der Dauerstrombelastbarkeit\n"
     "von Freileitungen bei variablen Umgebungsparametern",
     "The angle betwenn conductor and wind vector\n"
     "is {0} ° and more little than 60° or bigger than 120°!\n"
     "To use the results to get knowledge about the\n"
     "permanent steady-state current by Webs\n"
     "it is recommended, to use the amount of the wind vector with 90°-angle to conductor\n"
     "as wind speed\n"
     "and to change the wind direction angle to an value\n"
     "which completes to 90° to conductor direction !\n"
     "See also in ZEL-userbook - chapter:\n"
     "Recommendations for calculation the permanent steady-state current\n"
     "of overhead conductors at variable ambient parameters"}};

constexpr BoxText low_wind_along = {
    Icon::Warning,
    {"Empfehlung 1 für Nachvermessung unterschritten:",
     "Recommendation 1 for measuring of span fields failed:"},
    {"Der Betrag der im 90°-Winkel zum Leiterseil angreifenden Luftgeschwindigkeit\n"
     "ist bei Windgeschwindigkeit: {2} m/s \n"
     "und Anströmwinkel Wind/Seil : {0} ° \n"
     "= {1} m/s u. damit kleiner als der Wert 0,6 m/s!\n"
     "Ein Wert kleiner 0.6 m/s für die Luftgeschwindigkeit liefert\n"
     "bei Anströmwinkeln Wind/Seil kleiner 20° bzw. größer 160°\n"
     "bei Eingabe von real gemessenen Werten zur Verwendung\n"
     "bei der Nachvermessung von Freileitungsspannfeldern\n"
     "aufgrund möglicher Diskrepanz\n"
     "zwischen Meßwert u. tatsächlich für die Wärmeabfuhr\n"
     "vorhandener Luftgeschwindigkeit keine Sicherheit\n"
     "daß die hiermit berechnete Seiltemperatur\n"
     "innerhalb der Grenze +/- 3 K zur Realität liegt !\n"
     "Es können bei Unterschreitung der Empfehlung \n"
     "im Einzelfall Abweichungen bis zu +/- 7 K auftreten !",
     "The amount of the wind speed at 90° to conductor orientation\n"
     "is at wind speed: {2} m/s \n"
     "and angle wind / conductor : {0} ° \n"
     "= {1} m/s and thereby more little as the value 0,6 m/s!\n"
     "A wind speed value more little than 0.6 m/s delivers\n"
     "by angles wind / conductor more little than 20° or bigger than 160°\n"
     "for use to measuring of span fields\n"
     "no security the calculated conductor temperature is between the range\n"
     "of +/- 3 K to reality !\n"
     "In this case there can be differences up to +/- 7 K\n"
     "in extreme cases !"}};

constexpr BoxText beyond_rating = {
    Icon::Warning,
    {"Empfehlung 2 für Nachvermessung unterschritten:",
     "Recommendation 2 for measuring of span fields failed:"},
    {"Die eingegebene Stromstärke ist wesentlich höher\n"
     "als die Nennstromstärke des Seiles !\n"
     "Aufgrund fehlender Vergleiche Meßwerte/Berechnungswerte\n"
     "kann nicht sichergestellt werden\n"
     "daß die hiermit berechnete Seiltemperatur\n"
     "innerhalb der Grenze +/- 3 K zur Realität liegt !",
     "The input current is much higher than the allowable staead-state current of the conductor\n"
     "There is no security the calculated conductor temperature \n"
     "is between the range of +/- 3 K to reality !"}};

constexpr BoxText hot = {Icon::Warning,
                         {"Empfehlung 3 für Nachvermessung unterschritten:",
                          "Recommendation 3 for measuring of span fields failed:"},
                         {"Die nach Kirn berechnete Seiltemperatur beträgt\n"
                          "{3} °C\n"
                          "und damit mehr als 65 °C!\n"
                          "Aufgrund fehlender Vergleiche Meßwerte/Berechnungswerte\n"
                          "für diesen Temperaturbereich\n"
                          "kann nicht sichergestellt werden\n"
                          "daß die hiermit berechnete Seiltemperatur\n"
                          "innerhalb der Grenze +/- 3 K zur Realität liegt !",
                          "The calculated conductor temperature by to Kirn is\n"
                          "{3}\n"
                          "and thereby more than 65 °C!\n"
                          "There is no security the calculated conductor temperature\n"
                          "is between the range of +/- 3 K to reality !"}};

bool outside(double value, double low, double high) { return value < low || value > high; }

bool for_a_rating(const CalcCase& c, const AdviceInput& run) {
    return is_selected(c, Method::Webs) && outside(std::abs(run.angle), 60, 120);
}

bool wind_is_low(const CalcCase& /*c*/, const AdviceInput& run) {
    return run.perpendicular_wind < 0.6 && outside(std::abs(run.angle), 20, 160);
}

bool current_is_high(const CalcCase& c, const AdviceInput& /*run*/) {
    const double rating = c.Dauerstrombelastbarkeit_db.value;
    return rating > 0 && c.Stromstaerke_db.value > 1.5 * rating;
}

bool conductor_is_hot(const CalcCase& /*c*/, const AdviceInput& run) {
    return run.Kirn_temperature && *run.Kirn_temperature > 65;
}

struct Advice {
    bool for_survey;  // shown for the survey of a span only
    bool (*applies)(const CalcCase&, const AdviceInput&);
    const BoxText* text;
    FieldKey field;  // by which it is met
};

// The order is that in which the boxes come up.
constexpr Advice rows[] = {
    {false, for_a_rating, &webs_angle, &CalcCase::Winkel_W_S_db},
    {true, wind_is_low, &low_wind_along, &CalcCase::Windgeschwindigkeit_db},
    {true, current_is_high, &beyond_rating, &CalcCase::Stromstaerke_db},
    {true, conductor_is_hot, &hot, &CalcCase::Stromstaerke_db},
};

}  // namespace

std::vector<FieldBox> advice(const CalcCase& c, const AdviceInput& run, const Session& session) {
    std::vector<FieldBox> boxes;
    if (session.Meldung_merker != RunMode::Messages) return boxes;
    const bool survey =
        session.wi_v_wi_merker && is_selected(c, Method::Kirn) && c.Stromstaerke_Merker_db;
    const auto shown = [&](double value, std::string_view mask) {
        return masked(value, mask, session.separator);
    };
    for (const auto& [for_survey, applies, text, field] : rows)
        if ((!for_survey || survey) && applies(c, run))
            boxes.push_back(
                {box_in(session.lang, *text,
                        {shown(run.angle, "##0.0"), shown(run.perpendicular_wind, "##0.0#"),
                         shown(c.Windgeschwindigkeit_db.value, "##0.0#"),
                         shown(run.Kirn_temperature.value_or(0), "###0.0")}),
                 &field_of(field)});
    return boxes;
}

}  // namespace zel
