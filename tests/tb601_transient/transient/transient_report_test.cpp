#include "tb601_transient/transient/transient_report.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/scripted_dialogs.h"
#include "platform/errors.h"

namespace zel {
namespace {

using testing::ElementsAre;

constexpr std::string_view run = "TS_S01_CigreTB207_temp_strom_transient_state";

RowFailure failure_of(RowCause cause) {
    return {cause, 3, 7, 80, 55.5, 0, 1350.25, 2700.5, ArithmeticFault::None};
}

Box told(const RowFailure& failure, LangId lang) {
    ScriptedDialogs dialogs;
    const auto separator =
        lang == LangId::German ? DecimalSeparator::Comma : DecimalSeparator::Point;
    tell(failure, run, {{RunMode::Messages, lang, dialogs}, separator, {}});
    return dialogs.shown.at(0);
}

TEST(TransientReport, of_a_target_that_is_not_reached) {
    const Box german = told(failure_of(RowCause::TargetNotReached), LangId::German);
    EXPECT_EQ(german.icon, Icon::Stop);
    EXPECT_EQ(german.title, run);
    EXPECT_THAT(german.lines,
                ElementsAre("In Zustandsänderung 3", "konvergieren Stromstärke_neu",
                            "und Temperatur_neu nicht über die Zeit",
                            "- die Berechnung wird an dieser Zustandsänderung abgebrochen.",
                            "Bitte überprüfen Sie Ihre Eingabedaten",
                            "und starten Sie die Berechnung neu !"));
    EXPECT_THAT(told(failure_of(RowCause::TargetNotReached), LangId::English).lines,
                ElementsAre("At change-of-state 3", "current(new) and temperature(new)",
                            "do not converge over the time ",
                            "- the calculation is cancelled at this change-of-state.",
                            "Please check your input values", "and start the calculation again !"));
}

TEST(TransientReport, of_a_current_that_is_not_found_shows_the_search) {
    const Box german = told(failure_of(RowCause::CurrentNotFound), LangId::German);
    EXPECT_EQ(german.icon, Icon::Stop);
    EXPECT_EQ(german.title, run);
    EXPECT_THAT(
        german.lines,
        ElementsAre(
            "In Zustandsänderung 3", "konvergieren die Zeitdauer und Temperatur_neu",
            "innerhalb der programminternen Iterationseinschränkungen",
            "nicht über die zu berechnende Stromstärke_neu:", "", "iterationsmerker2= 7",
            "Temp_it(1)= 55,5", "Zustand16(3).Temp= 80", "I_it(1)= 0", "I_it(2)= 1350,25",
            "I_it(3)= 2700,5", "", "Die Berechnung wird an dieser Zustandsänderung abgebrochen.",
            "Bitte überprüfen Sie die Eingabedaten", "der Zustandsänderung 3 auf Realitätsnähe3",
            "und starten Sie die Berechnung neu !"));
}

TEST(TransientReport, of_too_many_rounds_tells_their_number) {
    const Box german = told(failure_of(RowCause::TooManyRounds), LangId::German);
    EXPECT_EQ(german.title, run);
    EXPECT_THAT(german.lines,
                ElementsAre("In Zustandsänderung 3", "konvergieren die Zeitdauer",
                            "und Temperatur_neu auch nach", "7 Iterationsschritten nicht über",
                            "die zu berechnende Stromstärke_neu.",
                            "Die Berechnung wird an dieser Zustandsänderung abgebrochen.",
                            "Bitte überprüfen Sie die Eingabedaten", "der Zustandsänderung 3",
                            "und starten Sie die Berechnung neu !"));
    const auto english =
        ElementsAre("At change-of-state 3", "time period and temperature(new)",
                    "do not converge over the calculating current ",
                    "- the calculation is cancelled at this change-of-state.",
                    "Please check your input values", "and start the calculation again !");
    for (const RowCause cause : {RowCause::TooManyRounds, RowCause::CurrentNotFound})
        EXPECT_THAT(told(failure_of(cause), LangId::English).lines, english);
}

TEST(TransientReport, of_an_invalid_argument_names_the_procedure) {
    RowFailure failure = failure_of(RowCause::Fault);
    failure.fault = ArithmeticFault::InvalidArgument;
    EXPECT_THAT(told(failure, LangId::German).lines,
                ElementsAre("Fehler in Prozedur TS_S01_CigreTB207_temp_strom_transient_state",
                            "Funktionsaufruf unzulässig ",
                            "Es hat sich programmintern ein unzulässiger Aufruf einer",
                            "einer mathematischen Funktion ergeben",
                            "Evtl. liegt ein Eingabe-Zahlenwert ausserhalb des Zahlenbereiches",
                            " für welchen die Berechnung durchgeführt werden kann.",
                            "Bitte überprüfen u. korrigieren Sie ihre Eingabedaten",
                            "oder starten Sie das Programm bitte neu !"));
    EXPECT_THAT(told(failure, LangId::English).lines,
                ElementsAre("Error 5 in TS_S01_CigreTB207_temp_strom_transient_state ",
                            "Error function call ", "Probably an input data is outside",
                            "the suitable range of numbers ", "for the computation",
                            "Please check and eventually modify the input data",
                            "or shut down program and start new"));
}

TEST(TransientReport, of_another_fault_tells_its_number) {
    RowFailure failure = failure_of(RowCause::Fault);
    failure.fault = ArithmeticFault::Overflow;
    const Box german = told(failure, LangId::German);
    EXPECT_EQ(german.title, "Unbehandelter Fehler");
    EXPECT_THAT(german.lines, ElementsAre("Fehler 6 bei Zeile 0 aufgetreten.",
                                          "Bitte Programm schließen und neu starten"));
    const Box english = told(failure, LangId::English);
    EXPECT_EQ(english.title, "Unhandled error");
    EXPECT_THAT(english.lines,
                ElementsAre("Error 6 at row 0 occured.", "Please shut down program and start new"));
}

TEST(TransientReport, of_an_unknown_type_ends_the_program) {
    ScriptedDialogs dialogs;
    EXPECT_THROW(tell_unknown_type("TS_F02_CigreTB207_MC_Theta",
                                   {RunMode::Messages, LangId::German, dialogs}),
                 ProgramEnd);
    EXPECT_THROW(tell_unknown_type("TS_F02_CigreTB601_MC_Theta",
                                   {RunMode::Messages, LangId::English, dialogs}),
                 ProgramEnd);
    EXPECT_EQ(dialogs.shown.at(0).title, "TS_F02_CigreTB207_MC_Theta");
    EXPECT_THAT(dialogs.shown[0].lines,
                ElementsAre("Es wurde keine verwertbare Angabe",
                            "gemacht ob das Seil eine Stahlseele hat.",
                            "( conductor_type <> 1 bzw. 2 )",
                            "Bitte kontrollieren und korrigieren Sie ihre",
                            "Einträge zu diesem Leiterseil in der Seildatenbank",
                            "und starten die Berechnung mit korrigierten Werten neu !"));
    EXPECT_EQ(dialogs.shown[1].title, "TS_F02_CigreTB601_MC_Theta");
    EXPECT_THAT(dialogs.shown[1].lines,
                ElementsAre("There was no indication in the conductor database R-MOX",
                            "if the conductor is ferrous or non-ferrous.",
                            "( conductor_type <> 1 bzw. 2 )",
                            "Please check and correct this input value",
                            "für this distinct conductor in the conductor database",
                            "und start the calculation completely once more after this !"));
}

TEST(TransientReport, without_messages_is_silent) {
    ScriptedDialogs dialogs;
    tell(failure_of(RowCause::TargetNotReached), run,
         {{RunMode::Silent, LangId::German, dialogs}, DecimalSeparator::Point, {}});
    EXPECT_THROW(
        tell_unknown_type("TS_F02_CigreTB207_MC_Theta", {RunMode::Silent, LangId::German, dialogs}),
        ProgramEnd);
    EXPECT_TRUE(dialogs.shown.empty());
}

TEST(TransientReport, in_an_undefined_mode_closes_the_batch_and_ends_the_program) {
    ScriptedDialogs dialogs;
    int closed = 0;
    const Reporting reporting = {RunMode{3}, LangId::German, dialogs, [&] { ++closed; }};
    EXPECT_THROW(
        tell(failure_of(RowCause::TooManyRounds), run, {reporting, DecimalSeparator::Point, {}}),
        ProgramEnd);
    EXPECT_THROW(tell_unknown_type("TS_F02_CigreTB601_MC_Theta", reporting), ProgramEnd);
    EXPECT_EQ(closed, 2);
    EXPECT_TRUE(dialogs.shown.empty());
}

}  // namespace
}  // namespace zel
