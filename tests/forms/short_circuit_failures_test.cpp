#include "forms/short_circuit_failures.h"

#include <gtest/gtest.h>

#include "platform/errors.h"
#include "shell/error_handling.h"

namespace zel::forms {
namespace {

struct Row {
    PlatformFault fault;
    const char* procedure;
    LangId lang;
    std::string title;
    std::vector<std::string> lines;  // the last one is the cause where the wording is ours
};

const std::string cause = "IK: 1e39";

const Row rows[] = {
    {PlatformFault::Overflow,
     "KS82_Tabellendaten_speichern",
     LangId::German,
     " Fehler in Funktion KS82_Tabellendaten_speichern",
     {" Zu hohe Werte Überlauf ", "Es hat sich deshalb programmintern eine Division durch 0",
      "Bitte überprüfen Sie ihre Eingabe auf Plausibilität bzw. Realitätsnähe",
      " u. korrigieren Sie ihre Eingabedaten !", cause}},
    {PlatformFault::Unforeseen,
     "Command2_click",
     LangId::English,
     " Fehlerhafte Eingabe",
     {"Fehler 51 bei Zeile 30 aufgetreten.", cause}},
    {PlatformFault::DatabaseDenied,
     "Command3_click",
     LangId::English,
     "Short-circuit current - Thermal effect on bare conductors and equipment",
     {"Error 3051 in KS_Form4_command3_click at row 30 occured.",
      "Please shut down program and start new", "If this occures more often",
      "please contact the developer of the program.", cause}},
};

TEST(ShortCircuitFailures, have_their_own_wording_with_the_cause_below) {
    for (const Row& row : rows) {
        RecordingDialogs dialogs;
        ErrorHandling errors(row.lang, dialogs);
        EXPECT_EQ(trap(
                      errors, "Ks_Form4", row.procedure,
                      [&] {
                          errors.Zeile = 30;
                          throw PlatformError(row.fault, Reason(cause));
                      },
                      short_circuit_failure),
                  leave_procedure_told);
        ASSERT_EQ(dialogs.shown().size(), 1U) << row.procedure;
        EXPECT_EQ(dialogs.shown()[0].title, row.title);
        EXPECT_EQ(dialogs.shown()[0].lines, row.lines);
    }
}

TEST(ShortCircuitFailures, leave_the_others_to_the_central_table) {
    for (const std::int32_t number : {3051, 3356, 26469, 3021, 32755})
        EXPECT_FALSE(short_circuit_failure({number, cause, {}}, 0, "Form_Load", LangId::German))
            << number;
    EXPECT_FALSE(short_circuit_failure({3021, {}, {}}, 0, "Command3_click", LangId::German));
}

}  // namespace
}  // namespace zel::forms
