#include "shell/error_handling.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "fakes/scripted_dialogs.h"
#include "platform/errors.h"
#include "platform/workbook.h"
#include "shell/expected_errors.h"

namespace zel {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class ErrorHandlingTest : public testing::Test {
protected:
    std::int16_t handle(std::int32_t number) {
        const std::string text = number == 339 ? "libprint.so" : "";
        return Fehlerbehandlung(program, {number, text, "fixed_input"}, 7, "Modul", "S30_Proc");
    }
    void expect(std::int32_t number, const ExpectedError& expected) {
        dialogs.shown.clear();
        EXPECT_EQ(handle(number), expected.action) << number;
        EXPECT_EQ(program.Fehler_Aktion, expected.action);
        if (expected.silent) {
            EXPECT_THAT(dialogs.shown, IsEmpty()) << number;
            return;
        }
        const bool german = lang == LangId::German;
        const std::string digits = std::to_string(number);
        Box box = {expected.icon, german ? expected.german_title : expected.english_title, {}};
        box.lines = {"Error " + digits + " in Modul.S30_Proc"};
        for (const std::string& line : german ? expected.german : expected.english)
            box.lines.push_back(fill(line, {digits}));
        ASSERT_THAT(dialogs.shown, SizeIs(number == 482 ? 2 : 1)) << number;
        EXPECT_EQ(dialogs.shown.back(), box)
            << number << testing::PrintToString(dialogs.shown.back().lines);
        EXPECT_EQ(program.message, joined(box.lines, "\r\n") + "\r\n");
    }
    std::int16_t trapped(const std::function<void()>& body) {
        return trap(program, "Modul", "S30_Proc", body);
    }

    LangId lang = LangId::German;
    ScriptedDialogs dialogs;
    ErrorHandling program{lang, dialogs};
};

TEST_F(ErrorHandlingTest, each_row_tells_head_lines_title_and_icon_and_answers_its_action) {
    for (const ExpectedError& expected : expected_errors())
        for (const std::int32_t number : expected.numbers)
            for (const LangId language : {LangId::German, LangId::English}) {
                lang = language;
                expect(number, expected);
            }
}

TEST_F(ErrorHandlingTest, a_missing_printer_is_asked_for_first) {
    handle(482);
    EXPECT_EQ(
        dialogs.shown.at(0),
        (Box{Icon::None, "VOR V.8.2", {"Ist der Drucker angeschlossen bzw. eingeschaltet ?"}}));
    lang = LangId::English;
    handle(482);
    EXPECT_EQ(dialogs.shown.at(2), (Box{Icon::None, "ZEL V.8.2", {"Can't find the printer !"}}));
}

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

TEST_F(ErrorHandlingTest, a_missing_sheet_closes_the_workbook_before_the_message) {
    std::size_t shown_before = 99;
    program.close_workbook = [&] { shown_before = dialogs.shown.size(); };
    handle(70);
    EXPECT_EQ(shown_before, 99U);
    dialogs.shown.clear();
    handle(9);
    EXPECT_EQ(shown_before, 0U);
}

TEST_F(ErrorHandlingTest, the_cause_of_an_error_without_a_row_is_told_below) {
    Fehlerbehandlung(program, {61, "/x/y: No space left on device", {}}, 0, "M", "P");
    EXPECT_EQ(dialogs.shown.at(0).lines.back(), "/x/y: No space left on device");
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

TEST(ErrorTable, no_number_stands_in_two_rows) {
    for (std::int32_t number = 0; number <= 33000; ++number) {
        int rows = 0;
        for (const ErrorRow& row : error_rows()) rows += row.numbers.hold(number) ? 1 : 0;
        EXPECT_LE(rows, 1) << number;
    }
}

TEST(ErrorTable, arithmetic_faults_have_the_first_row) {
    const Box box = arithmetic_error(ArithmeticFault::DivisionByZero, "M", "P", LangId::English);
    EXPECT_THAT(box.lines, SizeIs(9));
    EXPECT_EQ(box.lines.at(0), "Error 11 in M.P");
}

}  // namespace
}  // namespace zel
