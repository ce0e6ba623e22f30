#include "steady/steady_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <utility>
#include <vector>

#include "fakes/scripted_dialogs.h"
#include "platform/program_end.h"

namespace zel {
namespace {

using enum SteadyCause;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr RunMode in_batch = RunMode(3);

/// What a user meets of a failure.
struct Told {
    std::string status;
    std::vector<Box> boxes;
    int workbooks_closed = 0;
    bool ended = false;
};

Told told(const SteadyFailure& failure, RunMode mode, LangId lang = LangId::English,
          std::deque<Answer> answers = {}) {
    ScriptedDialogs dialogs;
    dialogs.answers = std::move(answers);
    Told t;
    try {
        t.status = report(failure, {mode, lang, dialogs, [&] { ++t.workbooks_closed; }});
    } catch (const ProgramEnd&) {
        t.ended = true;
    }
    t.boxes = dialogs.shown;
    return t;
}

Box iteration_box(LangId lang, const std::string& title) {
    const std::vector<std::string> german = {
        "Die Berechnungsiteration nach Cigre TB207", "ergab kein brauchbares Ergebnis!",
        "Bitte überprüfen Sie ihre Eingabedaten auf Plausibilität !", "und Realitätsnähe !"};
    const std::vector<std::string> english = {"The calculation by Cigre TB207",
                                              "did not lead to a usable result!",
                                              "Please check your input values for plausibility !"};
    return {Icon::Warning, title, lang == LangId::German ? german : english};
}

const std::string solver = "ST_00_CigreTB207_temp_strom_steady_state";
const std::string joule = "ST_F01_CigreTB207_PJ_steady";
const std::string solar = "ST_F02_CigreTB207_PS_steady";
const std::string convection = "ST_F03_CigreTB207_PC_steady";
const std::string radiation = "ST_F04_CigreTB207_PR_steady";

TEST(SteadyReport, gives_the_status_text_of_each_failure) {
    const struct {
        SteadyCause cause;
        std::string status, when_silent;
    } rows[] = {{JouleBracketing, joule, joule},
                {ReynoldsTooLarge, convection + " ", convection},
                {GrashofPrandtlTooLarge, convection + " ", convection},
                {JouleFault, joule, joule},
                {SolarFault, solar, solar},
                {ConvectionFault, convection, convection},
                {RadiationFault, radiation, radiation},
                {CurrentAllAbove, solver + ": err02 ", solver + ": err02 "},
                {CurrentAllBelow, solver, solver},
                {CurrentNotReached, solver, solver + " "},
                {TemperatureAllAbove, solver, solver},
                {TemperatureAllBelow, solver, solver},
                {TemperatureNotReached, solver, solver}};
    for (const auto& [cause, status, when_silent] : rows) {
        EXPECT_EQ(Rechenfehler_Text(cause, RunMode::Messages), status);
        EXPECT_EQ(told({cause}, RunMode::Messages).status, status);
        EXPECT_EQ(told({cause}, RunMode::Silent).status, when_silent);
        if (cause < ModeUndefined) {
            EXPECT_EQ(told({cause}, in_batch).status, status);
        }
    }
    for (const RunMode mode : {RunMode::Messages, RunMode::Silent, in_batch}) {
        const Told sound = told({}, mode);
        EXPECT_EQ(sound.status, "");
        EXPECT_THAT(sound.boxes, IsEmpty());
        EXPECT_EQ(sound.workbooks_closed, 0);
        EXPECT_EQ(Rechenfehler_Text(None, mode), "");
        EXPECT_EQ(Rechenfehler_Text(ModeUndefined, mode), solver + ": err01 ");
    }
}

TEST(SteadyReport, shows_the_failure_message_titled_by_the_procedure) {
    for (const LangId lang : {LangId::German, LangId::English}) {
        for (const SteadyCause cause :
             {CurrentAllAbove, CurrentAllBelow, CurrentNotReached, TemperatureAllAbove,
              TemperatureAllBelow, TemperatureNotReached})
            EXPECT_THAT(told({cause}, RunMode::Messages, lang).boxes,
                        ElementsAre(iteration_box(lang, solver)));
        EXPECT_THAT(told({JouleBracketing}, RunMode::Messages, lang).boxes,
                    ElementsAre(iteration_box(lang, joule)));
    }
}

TEST(SteadyReport, asks_whether_to_end_above_reynolds_90000) {
    const SteadyFailure failure = {ReynoldsTooLarge};
    Box german = {Icon::Question,
                  "Funktion: ST_F03_CigreTB207_PC_steady",
                  {"Reynoldszahl ist größer als 50000.",
                   "Dieser Wert befindet sich außerhalb des in Cigre TB 207 definierten Bereiches "
                   "für laminare Strömungen.",
                   "Bitte verringern sie den  zugrundeliegende Wert der Windgeschwindigkeit.",
                   "und starten die Berechnung mit korrigierten Werten neu !",
                   "oder führen sie alternativ die Berechnung mit Webs oder Cigre TB 601 durch !",
                   "Wollen Sie das Programm abbrechen bzw. beenden? "},
                  Buttons::YesNo,
                  Answer::No};
    Box english = german;
    english.title = " ST_F03_CigreTB207_PC_steady";
    english.lines = {"Reynolds number is bigger than 50000 .",
                     "This value is beyond the defined range of Cigre TB 207.",
                     "for perpenticular flow / high windspeeds.",
                     "Please reduce windspeed in your input data ",
                     "and start a new caculation with adjusted values !",
                     "or use Webs or Cigre TB 601 for this calculation !",
                     "Do you want to close the application ?"};

    const Told no = told(failure, RunMode::Messages, LangId::German, {Answer::No});
    EXPECT_THAT(no.boxes, ElementsAre(german, iteration_box(LangId::German, convection)));
    EXPECT_FALSE(no.ended);
    EXPECT_EQ(no.status, convection + " ");
    const Told yes = told(failure, RunMode::Messages, LangId::English, {Answer::Yes});
    EXPECT_THAT(yes.boxes, ElementsAre(english));
    EXPECT_TRUE(yes.ended);
    EXPECT_EQ(yes.workbooks_closed, 0);
}

TEST(SteadyReport, tells_of_grashof_times_prandtl_above_a_million) {
    const SteadyFailure failure = {GrashofPrandtlTooLarge};
    const Box german = {
        Icon::Warning,
        "Funktion: ST_F03_CigreTB207_PC_steady",
        {"Produkt aus Prandtl- u. Grashofzahl ist größer als 10^6 .",
         "Dieser Wert befindet sich außerhalb des in Cigre TB 207 definierten Bereiches.",
         "Bitte überprüfen Sie ihre Eingabedaten auf Realitätsnähe",
         "und starten die Berechnung mit korrigierten Werten neu !"}};
    const Box english = {Icon::Warning,
                         " ST_F03_CigreTB207_PC_steady",
                         {"The product from Prandtl & Grashof numbers is bigger than 10^6 .",
                          "This value is beyond the defined range of Cigre TB 207.",
                          "Please check your input data "}};
    EXPECT_THAT(told(failure, RunMode::Messages, LangId::German).boxes,
                ElementsAre(german, iteration_box(LangId::German, convection)));
    EXPECT_THAT(told(failure, RunMode::Messages).boxes,
                ElementsAre(english, iteration_box(LangId::English, convection)));
}

TEST(SteadyReport, names_a_numeric_fault_by_its_number) {
    const struct {
        SteadyFailure failure;
        std::string procedure;
        const char* line;
    } rows[] = {
        {{JouleFault, ArithmeticFault::Overflow}, joule, "Error 6 in row 0 occured."},
        {{SolarFault, ArithmeticFault::InvalidArgument}, solar, "Error 5 in row 0 occured."},
        {{ConvectionFault, ArithmeticFault::DivisionByZero},
         convection,
         "Error 11 in row 0 occured."},
        {{RadiationFault, ArithmeticFault::Overflow}, radiation, "Error 6 in row 0 occured."}};
    for (const auto& [failure, procedure, line] : rows) {
        EXPECT_THAT(told(failure, RunMode::Messages, LangId::German).boxes,
                    ElementsAre(Box{Icon::Stop, "Funktion: " + procedure, {line}}));
        EXPECT_THAT(told(failure, RunMode::Messages).boxes,
                    ElementsAre(Box{Icon::Stop, " " + procedure, {line}}));
    }
}

TEST(SteadyReport, ends_the_program_where_the_mode_of_the_calculation_is_undefined) {
    const char* const first = "Berechnungsabbruch 01 -  Berechnungsart undefiniert.";
    const std::vector<Box> german = told({ModeUndefined}, RunMode::Messages, LangId::German).boxes;
    const std::vector<Box> english = told({ModeUndefined}, RunMode::Messages).boxes;
    ASSERT_THAT(german, SizeIs(1));
    ASSERT_THAT(english, SizeIs(1));
    EXPECT_EQ(german[0].title, "Function: " + solver);
    EXPECT_EQ(english[0].title, "Function: " + solver);
    EXPECT_THAT(german[0].lines,
                ElementsAre(first, HasSubstr("Entwickler"), "Das Programm muß zur Erlangung eines",
                            "definierten Zustandes leider beendet werden!"));
    EXPECT_THAT(english[0].lines,
                ElementsAre(first, HasSubstr("developer"), "The application must be cancelled for",
                            "having a defined state!"));
    for (const RunMode mode : {RunMode::Messages, RunMode::Silent, in_batch}) {
        const Told t = told({ModeUndefined}, mode);
        EXPECT_TRUE(t.ended);
        EXPECT_EQ(t.workbooks_closed, 1);
    }
}

TEST(SteadyReport, without_messages_shows_no_box_and_ends_the_program_only_in_a_batch) {
    for (int i = 1; i <= static_cast<int>(TemperatureNotReached); ++i) {
        const auto cause = SteadyCause(i);
        if (cause == ModeUndefined) continue;
        const Told silent = told({cause}, RunMode::Silent);
        EXPECT_THAT(silent.boxes, IsEmpty()) << i;
        EXPECT_FALSE(silent.ended) << i;
        EXPECT_EQ(silent.workbooks_closed, 0) << i;
        const Told batch = told({cause}, in_batch);
        EXPECT_THAT(batch.boxes, IsEmpty()) << i;
        EXPECT_EQ(batch.ended, cause > ModeUndefined) << i;  // of a search, not of an evaluation
        EXPECT_EQ(batch.workbooks_closed, 1) << i;
    }
}

}  // namespace
}  // namespace zel
