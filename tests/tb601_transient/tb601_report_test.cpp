#include "tb601_transient/tb601_report.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/program_end.h"

namespace zel {
namespace {

using enum Tb601Cause;

struct Answering : RecordingDialogs {
    explicit Answering(Answer given) : answer(given) {}
    Answer show(const Box& box) override {
        RecordingDialogs::show(box);
        return answer;
    }
    Answer answer;
};

#define SOLVER "ST_00_CigreTB601_temp_strom_steady_state"

struct StatusRow {
    Tb601Failure failure;
    const char* title;
    const char* status;
    const char* silent_status;
};

constexpr Tb601Failure fault(Tb601Procedure procedure) {
    return {Fault, procedure, ArithmeticFault::DivisionByZero};
}

constexpr const char* convection_title = "Funktion: ST_F03_CigreTB601_PC_steady";
constexpr const char* convection = "ST_F03_CigreTB601_PC_steady";
constexpr const char* convection_and_blank = "ST_F03_CigreTB601_PC_steady ";
constexpr const char* single_layer =
    "ErrHandler_ST_F01_CigreTB601_PJ_steady  Error_conductor_type2_und_Anzahl_Alu_layer_1";

StatusRow of_procedure(Tb601Procedure procedure, const char* name) {
    return {fault(procedure), name, name, name};
}

const StatusRow status_rows[] = {
    {{SingleLayer}, "Function ST_F01_CigreTB601_PJ_steady", single_layer, single_layer},
    {{SmoothReynolds}, convection_title, convection_and_blank, convection},
    {{StrandedReynolds}, convection_title, convection_and_blank, convection},
    {{RoughReynolds}, convection_title, convection_and_blank, convection},
    {{GrashofPrandtlTooLarge}, convection_title, convection_and_blank, convection},
    {{CurrentAllAbove}, SOLVER " - 001", SOLVER ": err02 ", SOLVER ": err02 "},
    {{CurrentAllBelow},
     SOLVER " - 002",
     SOLVER ": Iteration does not converge 01",
     SOLVER ":: Iteration does not converge 01\""},
    {{CurrentNotReached}, SOLVER " - 003", SOLVER, SOLVER " "},
    {{TemperatureAllAbove}, SOLVER " - 004", SOLVER, SOLVER},
    {{TemperatureAllBelow}, SOLVER " - 005", SOLVER ": Iteration does not converge 02", SOLVER},
    {{TemperatureNotReached}, SOLVER " - 006", SOLVER ": Iteration does not converge 03", SOLVER},
    of_procedure(Tb601Procedure::SteadyState, SOLVER),
    of_procedure(Tb601Procedure::JouleHeating, "ST_F01_CigreTB601_PJ_steady"),
    of_procedure(Tb601Procedure::Resistance, "ST_F01_CigreTB601_Resistance"),
    of_procedure(Tb601Procedure::SkinEffect, "ST_F06_CigreTB601_skin_effect_factor_601"),
    of_procedure(Tb601Procedure::MagneticHeating,
                 "ST_F08_CigreTB601_magnetic_heating_factor_einfach"),
    of_procedure(Tb601Procedure::SolarHeating, "ST_F02_CigreTB601_PS_steady"),
    of_procedure(Tb601Procedure::SurfaceTemperature,
                 "ST_S09_CigreTB601_Tsurface_conductor_temperature_distribution"),
    of_procedure(Tb601Procedure::Convection, "ST_F03_CigreTB601_PC_steady"),
    of_procedure(Tb601Procedure::Radiation, "ST_F04_CigreTB601_PR_steady"),
};

TEST(Tb601Report, names_each_failure_in_title_and_abort_text) {
    for (const auto& [failure, title, status, silent_status] : status_rows) {
        RecordingDialogs dialogs;
        EXPECT_EQ(report(failure, {RunMode::Messages, LangId::German, dialogs}), status);
        ASSERT_EQ(dialogs.shown().size(), 1) << status;
        EXPECT_EQ(dialogs.shown()[0].title, title);
        EXPECT_EQ(report(failure, {RunMode::Silent, LangId::German, dialogs}), silent_status);
        EXPECT_EQ(dialogs.shown().size(), 1) << status;
    }
    RecordingDialogs dialogs;
    EXPECT_EQ(report(Tb601Failure{}, {RunMode::Messages, LangId::German, dialogs}), "");
    EXPECT_TRUE(dialogs.shown().empty());
}

TEST(Tb601Report, ends_the_program_in_any_other_message_mode) {
    for (const StatusRow& row : status_rows) {
        RecordingDialogs dialogs;
        int closed = 0;
        const Reporting reporting = {RunMode{3}, LangId::English, dialogs, [&] { ++closed; }};
        EXPECT_THROW(report(row.failure, reporting), ProgramEnd) << row.status;
        EXPECT_EQ(closed, 1);
        EXPECT_TRUE(dialogs.shown().empty());
    }
}

TEST(Tb601Report, asks_whether_to_leave_the_program) {
    for (const auto cause :
         {SmoothReynolds, StrandedReynolds, RoughReynolds, GrashofPrandtlTooLarge}) {
        for (const auto& [answer, ends] : {std::pair{Answer::Yes, true}, {Answer::Ok, true}}) {
            Answering dialogs(answer);
            const Reporting reporting = {RunMode::Messages, LangId::English, dialogs};
            EXPECT_THROW(report({cause}, reporting), ProgramEnd);
        }
        Answering dialogs(Answer::No);
        EXPECT_EQ(report({cause}, {RunMode::Messages, LangId::English, dialogs}),
                  convection_and_blank);
        const Box& box = dialogs.shown().at(0);
        EXPECT_EQ(box.icon, Icon::Warning);
        EXPECT_EQ(box.buttons, Buttons::YesNo);
        EXPECT_EQ(box.unattended, Answer::No);
    }
}

TEST(Tb601Report, ends_the_program_on_an_undefined_mode) {
    for (const auto& [mode, boxes] : {std::pair{RunMode::Messages, 1U}, {RunMode::Silent, 0U}}) {
        RecordingDialogs dialogs;
        try {
            report({ModeUndefined}, {mode, LangId::English, dialogs});
            ADD_FAILURE();
        } catch (const ProgramEnd& end) {
            EXPECT_STREQ(end.what(), SOLVER ": err01 ");
        }
        ASSERT_EQ(dialogs.shown().size(), boxes);
        for (const Box& box : dialogs.shown()) EXPECT_EQ(box.title, "Function: " SOLVER);
    }
}

struct LinesRow {
    Tb601Cause cause;
    Icon icon;
    std::string de;
    std::string en;
};

const std::string range_de =
    "Dieser Wert befindet sich außerhalb des in Cigre TB 601 definierten Bereiches.|"
    "Bitte überprüfen Sie ihre Eingabedaten auf Realitätsnähe|"
    "und starten die Berechnung mit korrigierten Werten neu !| |"
    "Wollen Sie das Programm abbrechen bzw. beenden? ";
const std::string range_en =
    "This value is beyond the defined range of Cigre TB 601.|Please check your input data |"
    "and start a new caculation with adjusted values !|Do you want to close the application ?";

// The lines of each box, joined by "|".
const LinesRow lines_rows[] = {
    {SmoothReynolds, Icon::Warning, "Reynoldszahl ist größer als 200000.|" + range_de,
     "Reynolds Number is bigger than 200000.|" + range_en},
    {StrandedReynolds, Icon::Warning, "Reynoldszahl ist größer als 50000.|" + range_de,
     "Reynolds number is bigger than 50000 .|" + range_en},
    {GrashofPrandtlTooLarge, Icon::Warning,
     "Produkt aus Prandtl- u. Grashofzahl ist größer als 10^12 .|" + range_de,
     "The product from Prandtl & Grashof numbers is bigger than 10^12 .|" + range_en},
    {RoughReynolds, Icon::Warning,
     "Reynoldszahl ist größer als 50000.|"
     "Dieser Wert befindet sich außerhalb des in Cigre TB 601 definierten Bereiches für laminare "
     "Strömungen.|"
     "Bitte verringern sie den  zugrundeliegende Wert der Windgeschwindigkeit.|"
     "und starten die Berechnung mit korrigierten Werten neu !|"
     "oder führen sie alternativ die Berechnung mit Webs oder Cigre TB 207 durch !| |"
     "Wollen Sie das Programm abbrechen bzw. beenden? ",
     "Reynolds number is bigger than 50000 .|"
     "This value is beyond the defined range of Cigre TB 601.|"
     "for perpenticular flow / high windspeeds.|Please reduce windspeed in your input data |"
     "and start a new caculation with adjusted values !|"
     "or use Webs or Cigre TB 207 for this calcukation !|Do you want to close the application ?"},
    {SingleLayer, Icon::Stop,
     "Die Berechnung nach Cigre TB 601 kann mit vorliegendem Programm nicht für hohe Stromstärke |"
     "und Seilen mit Stahlkern und nur einer Lage Leiterdraht durchgeführt werden, |"
     "die gemachten Vereinfachung gelten nicht für diese SeilkonfigurationDiese werden in der "
     "Praxis zudem nicht für hohe Ströme verwendet !+ Chr(10) + Chr(13)Die Berechnung wird an "
     "dieser Stelle abgebrochen !",
     "The calculation by Cigre TB601 cannot succeed within this application for high current "
     "densities|and steel-reinforced conductors with only one conductor layer!|"
     "These kind of conductors are not used in reality for overhead lines with high currentsFor "
     "this reason the calculation is interrupted !"},
    {CurrentAllAbove, Icon::Stop,
     "Die Berechnungsiteration nach Cigre TB601|ergab kein brauchbares Ergebnis!|"
     "Bitte überprüfen Sie ihre Eingabedaten auf Plausibilität !|und Realitätsnähe !",
     "The calculation by Cigre TB601|did not lead to a usable result!|"
     "Please check your input values for plausibility !"},
    {ModeUndefined, Icon::Stop,
     "Berechnungsabbruch 01 -  Berechnungsart undefiniert.|"
     "Bitte wenden Sie sich mit den Eingabedaten an den Entwickler des Programms.|"
     "Das Programm muß zur Erlangung eines|definierten Zustandes leider beendet werden!",
     "Berechnungsabbruch 01 -  Berechnungsart undefiniert.|"
     "Please contact the developer of the program and enclose your input data.|"
     "The application must be cancelled for|having a defined state!"},
};

TEST(Tb601Report, speaks_both_languages) {
    for (const auto& [cause, icon, de, en] : lines_rows)
        for (const auto& [lang, lines] : {std::pair{LangId::German, de}, {LangId::English, en}}) {
            RecordingDialogs dialogs;
            try {
                report({cause}, {RunMode::Messages, lang, dialogs});
            } catch (const ProgramEnd&) {
                EXPECT_EQ(cause, ModeUndefined);
            }
            ASSERT_EQ(dialogs.shown().size(), 1);
            EXPECT_EQ(dialogs.shown()[0].icon, icon);
            EXPECT_EQ(joined(dialogs.shown()[0].lines, "|"), lines);
        }
}

}  // namespace
}  // namespace zel
