#include "shell/case_settings.h"

#include "shell/program_texts.h"
#include "steady/constants.h"

namespace zel {
namespace {

// Places: {0} the stored value, {1} the present one.
struct Question {
    std::int16_t MethodSelection::*stored;
    NumberMember present;
    std::int16_t last;  // of its values, which count from 1
    Text lines;
    Text (*value_in_stored)(std::int16_t value);  // how the lines name a stored value
    Text (*value_in_present)(std::int16_t value);
};

constexpr Text gravity_lines = {"Die Berechnungseinstellung <Erdbeschleunigung>\n"
                                "des einzulesenden Datensatzes\n"
                                "ist zu {0} m/s^2 angenommen !\n"
                                "Die aktuell verwendete Berechnungseinstellung \n"
                                "für die <Erdbeschleunigung>\n"
                                "ist zu {1} m/s^2 angenommen !\n"
                                "Soll die Berechnungseinstellung des einzulesenden\n"
                                "Datensatzes für <Erdbeschleunigung> übernommen werden ?",
                                "The setting : constant of gravity\n"
                                "of the read-in data file\n"
                                "is {0} m/s^2 !\n"
                                "The currently used setting \n"
                                "for  constant of gravity\n"
                                "is {1} m/s^2 !\n"
                                "Will you take over the setting\n"
                                "of the read-in data file ?"};

constexpr Text resistance_lines = {
    "Die Einstellung <Berechnung des Wechselstromwiderstandsbelages>\n"
    "des einzulesenden Datensatzes ist auf {0} gesetzt !\n"
    "Die aktuell verwendete Einstellung \n"
    "ist auf {1} gesetzt!\n"
    "Soll die Berechnungseinstellung des \n"
    "einzulesenden Datensatzes zur Berechnung des \n"
    "Wechselstromwiderstandsbelages übernommen werden ?",
    "The setting : Calculation of AC-resistance\n"
    "of the read-in data file\n"
    "is {0}\n"
    "The currently used setting \n"
    "for the calculation of AC-resistance\n"
    "is {1}\n"
    "Will you take over the setting\n"
    "of the read-in data file ?"};

constexpr Text summer_time_lines = {"Die Einstellung <Berücksichtigung der Sommer-/Winterzeit\n"
                                    "bei Bestimmung des Sonneneinstrahlwinkels >\n"
                                    "des einzulesenden Datensatzes ist auf {0} gesetzt !\n"
                                    "Die aktuell verwendete Einstellung \n"
                                    "ist auf {1} gesetzt!\n"
                                    "Soll die Berechnungseinstellung des \n"
                                    "einzulesenden Datensatzes zur Berechnung des \n"
                                    "Sonneneinstrahlwinkels übernommen werden ?",
                                    "The setting : Consideration summertime / wintertime\n"
                                    "of the read-in data file\n"
                                    "is set on: {0}\n"
                                    "The currently used setting for\n"
                                    "consideration of summertime / wintertime\n"
                                    "is set on: {1}\n"
                                    "Will you take over the setting\n"
                                    "of the read-in data file ?"};

Text stored_formula(std::int16_t value) {
    if (value == 1) return {"< Formel 1(ABB)>", "< formula 1(ABB) >"};
    return {"< Formel 2(Kiessling)>", "< formula 2(Kiessling)>"};
}

/// The English name of the second formula has one blank more.
Text present_formula(std::int16_t value) {
    if (value == 1) return {"< Formel 1(ABB)>", "< formula 1(ABB) >"};
    return {"< Formel 2(Kiessling)>", "< formula 2(Kiessling) >"};
}

Text summer_time(std::int16_t value) {
    if (value == 1) return {"< ja >", "< yes >"};
    return {"< nein >", "< no >"};
}

using M = MethodSelection;
using S = ProgramSettings;

// A gravity is a number in the separator of the session, no text.
constexpr Question questions[] = {
    {&M::Gravi_merker1_db, &S::Gravi_merker, 3, gravity_lines, nullptr, nullptr},
    {&M::Formel_merker1_db, &S::Formel_merker, 2, resistance_lines, stored_formula,
     present_formula},
    {&M::wzsz_merker_db, &S::wzsz_merker, 2, summer_time_lines, summer_time, summer_time},
};

std::string value_text(Text (*name)(std::int16_t), std::int16_t value, const Session& session) {
    if (name == nullptr) return plain_number(gravity(value), session.separator);
    return std::string(name(value).in(session.lang));
}

}  // namespace

void adopt_settings(MethodSelection& stored, Settings& settings, const Session& session) {
    for (const Question& question : questions) {
        const std::int16_t wanted = stored.*question.stored;
        const std::int16_t present = settings.now().*question.present;
        // A column that is missing or empty brings no value of its own, nor does a wrong one.
        if (wanted == present || wanted < 1 || wanted > question.last) continue;
        if (session.Meldung_merker == RunMode::Silent) continue;
        const BoxText text = {Icon::Question, short_name, question.lines, Buttons::YesNo,
                              Answer::No};
        const Box box = box_in(session.lang, text,
                               {value_text(question.value_in_stored, wanted, session),
                                value_text(question.value_in_present, present, session)});
        if (session.dialogs.show(box) == Answer::Yes) settings.set(question.present, wanted);
    }
    take_settings(stored, settings.now());
}

void take_settings(Session& session, const ProgramSettings& settings) {
    session.wi_v_wi_merker = settings.wi_v_wi_merker != 0;
    session.cigre_TKW_merker = settings.cigre_TKW_merker == 2 ? HeatCapacityOption::At20Degrees
                                                              : HeatCapacityOption::WithTemperature;
}

Session silent(const Session& of, MethodMemory* memory) {
    Session session = of;
    session.Meldung_merker = RunMode::Silent;
    session.memory = memory;
    return session;
}

}  // namespace zel
