#include "shell/error_handling.h"

#include <new>

#include "platform/errors.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

/// The row that tells `error`: the counter lets the first errors of a printer pass, which the row
/// answers without a message.
const ErrorRow& row_for(const ErrorObject& error, ErrorHandling& program) {
    const ErrorRow& row = error_row(error.number);
    if (row.extra != ErrorRow::CountsToLast) return row;
    if (program.Druck_Fehlerzaehler >= tolerated_print_errors) return unhandled_row();
    ++program.Druck_Fehlerzaehler;
    return row;
}

ErrorObject caught(LangId lang) {
    try {
        throw;
    } catch (const PlatformError& error) {
        return {static_cast<std::int32_t>(error.fault()), error.told(lang), error.subject()};
    } catch (const std::bad_alloc& error) {
        return {static_cast<std::int32_t>(PlatformFault::OutOfMemory), error.what(), {}};
    } catch (const std::exception& error) {
        return {static_cast<std::int32_t>(PlatformFault::Unforeseen), error.what(), {}};
    }
}

std::string text_of(const Box& box) { return joined(box.lines, "\r\n") + "\r\n"; }

std::int16_t answer(ErrorHandling& program, const ErrorObject& error, std::string_view module,
                    std::string_view procedure, OwnMessage own) {
    const auto box =
        own != nullptr ? own(error, program.Zeile, procedure, program.lang) : std::nullopt;
    if (!box) return Fehlerbehandlung(program, error, program.Zeile, module, procedure);
    program.message = text_of(*box);
    program.dialogs.show(*box);
    program.Fehler_Aktion = leave_procedure_told;
    return program.Fehler_Aktion;
}

}  // namespace

std::int16_t Fehlerbehandlung(ErrorHandling& program, const ErrorObject& error, std::int16_t Zeile,
                              std::string_view module, std::string_view procedure) {
    program.Fehler_Aktion = 0;
    const ErrorRow& row = row_for(error, program);
    const Box box = error_box(row, error, Zeile, module, procedure, program.lang);
    program.message = text_of(box);
    if (row.extra == ErrorRow::ClosesWorkbook) program.close_workbook();
    if (row.extra == ErrorRow::AsksForPrinter)
        program.dialogs.show(box_in(program.lang, {Icon::None, short_name, printer_question}));
    if (!row.silent() && row.extra != ErrorRow::CountsToLast) program.dialogs.show(box);
    program.Fehler_Aktion = row.action;
    return row.action;
}

std::int16_t handle_caught(ErrorHandling& program, std::string_view module,
                           std::string_view procedure, OwnMessage own) {
    const std::int16_t action = answer(program, caught(program.lang), module, procedure, own);
    switch (action) {
        case leave_procedure:
        case next_statement:
        case leave_procedure_told: return action;
        default: throw ProgramEnd(program.message.substr(0, program.message.find("\r\n")));
    }
}

std::int16_t trap(ErrorHandling& program, std::string_view module, std::string_view procedure,
                  const std::function<void()>& body, OwnMessage own) {
    program.Fehler_Modulname = module;
    program.Fehler_Prozedurname = procedure;
    const std::int16_t Zeile_of_caller = program.Zeile;
    program.Zeile = 0;
    std::int16_t action = 0;
    try {
        body();
    } catch (const ProgramEnd&) {
        throw;
    } catch (const std::exception&) {
        action = handle_caught(program, module, procedure, own);
    }
    program.Zeile = Zeile_of_caller;
    return action;
}

}  // namespace zel
