#include "shell/error_handling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/scripted_dialogs.h"
#include "platform/errors.h"
#include "platform/workbook.h"

// What is told stands in tests/data/shell.json.

namespace zel {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

class ErrorHandlingTest : public testing::Test {
protected:
    std::int16_t handle(std::int32_t number) {
        return Fehlerbehandlung(program, {number, {}, {}}, 7, "Modul", "S30_Proc");
    }
    std::int16_t trapped(const std::function<void()>& body) {
        return trap(program, "Modul", "S30_Proc", body);
    }

    LangId lang = LangId::German;
    ScriptedDialogs dialogs;
    ErrorHandling program{lang, dialogs};
};

TEST_F(ErrorHandlingTest, the_fourth_380_in_a_row_is_unhandled) {
    for (int i = 0; i < 3; ++i) EXPECT_EQ(handle(380), next_statement);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(handle(380), leave_procedure_told);
    ASSERT_THAT(dialogs.shown, SizeIs(1));
    EXPECT_EQ(dialogs.shown[0].title, "Unbehandelter Fehler");
    EXPECT_EQ(dialogs.shown[0].lines.at(1), "Unbehandelter Fehler 380 bei Zeile 7 aufgetreten.");
    program.Druck_Fehlerzaehler = 0;  // a new print
    EXPECT_EQ(handle(380), next_statement);
}

TEST_F(ErrorHandlingTest, trap_lets_sound_work_pass) {
    EXPECT_EQ(trapped([] {}), 0);
    EXPECT_EQ(program.Fehler_Modulname, "Modul");
    EXPECT_EQ(program.Fehler_Prozedurname, "S30_Proc");
    EXPECT_THAT(dialogs.shown, IsEmpty());
}

TEST_F(ErrorHandlingTest, trap_answers_by_the_row_of_the_fault) {
    const auto fail = [](PlatformFault fault) {
        return [fault] { throw PlatformError(fault, "reason"); };
    };
    EXPECT_EQ(trapped(fail(PlatformFault::NoCurrentRecord)), next_statement);
    EXPECT_EQ(trapped(fail(PlatformFault::DialogCancelled)), leave_procedure_told);
    EXPECT_THAT(dialogs.shown, IsEmpty());
    EXPECT_EQ(trapped(fail(PlatformFault::TableExists)), leave_procedure_told);
    EXPECT_EQ(dialogs.shown.at(0).lines.at(0), "Error 3010 in Modul.S30_Proc");
    EXPECT_EQ(trapped([] { throw InputError("x.json: no JSON"); }), leave_procedure_told);
    EXPECT_EQ(dialogs.shown.at(1).lines.back(), "x.json: no JSON");
    EXPECT_EQ(trapped([] { throw std::bad_alloc(); }), leave_procedure_told);
    EXPECT_EQ(dialogs.shown.at(2).lines.at(0), "Error 7 in Modul.S30_Proc");
}

TEST_F(ErrorHandlingTest, a_fault_of_a_workbook_has_its_row) {
    lang = LangId::English;
    const std::pair<WorkbookFault, int> rows[] = {
        {WorkbookFault::Missing, 3044}, {WorkbookFault::Denied, 3051}, {WorkbookFault::Locked, 55},
        {WorkbookFault::Changed, 51},   {WorkbookFault::Damaged, 51},  {WorkbookFault::NoSheet, 9},
        {WorkbookFault::Entwined, 51}};
    for (const auto& [fault, number] : rows) {
        trapped([fault = fault] { throw WorkbookError(fault, "w.xlsx: reason", "fixed_input"); });
        EXPECT_EQ(dialogs.shown.back().lines.at(0),
                  "Error " + std::to_string(number) + " in Modul.S30_Proc");
        if (number == 9) {
            EXPECT_EQ(dialogs.shown.back().lines.at(3), "   fixed_input   ");
        }
        if (number == 51) {
            EXPECT_EQ(dialogs.shown.back().lines.back(), "w.xlsx: reason");
        }
    }
}

TEST_F(ErrorHandlingTest, trap_names_the_row_that_was_passed_last) {
    trapped([&] {
        program.Zeile = 30;
        trapped([&] {
            program.Zeile = 4;
            throw PlatformError(PlatformFault::DiskFull, "full");
        });
        EXPECT_EQ(program.Zeile, 30);
        throw PlatformError(PlatformFault::DiskFull, "full");
    });
    ASSERT_THAT(dialogs.shown, SizeIs(2));
    EXPECT_EQ(dialogs.shown[0].lines.at(1), "Unbehandelter Fehler 61 bei Zeile 4 aufgetreten.");
    EXPECT_EQ(dialogs.shown[1].lines.at(1), "Unbehandelter Fehler 61 bei Zeile 30 aufgetreten.");
}

TEST_F(ErrorHandlingTest, trap_ends_the_program_where_the_row_says_so) {
    for (const PlatformFault fault :
         {PlatformFault::AccessDenied, PlatformFault::ComponentMissing,
          PlatformFault::TableExclusive, PlatformFault::DatabaseExclusive}) {
        dialogs.shown.clear();
        EXPECT_THROW(trapped([&] { throw PlatformError(fault, "reason"); }), ProgramEnd);
        EXPECT_THAT(dialogs.shown, SizeIs(1));
    }
    EXPECT_THROW(trapped([] { throw ProgramEnd("method"); }), ProgramEnd);
}

}  // namespace
}  // namespace zel
