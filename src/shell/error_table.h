#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "platform/arithmetic_fault.h"
#include "platform/message_box.h"

namespace zel {

/// What the procedure in which an error came up does next.
enum FehlerAktion : std::int16_t {
    leave_procedure = 10,
    next_statement = 20,
    leave_procedure_told = 30,
    end_program = 40,
};

/// The numbers of a row: one, or a few with the same message.
class ErrorNumbers {
public:
    constexpr ErrorNumbers(std::int32_t only) : numbers_{only, only, only} {}
    constexpr ErrorNumbers(std::int32_t a, std::int32_t b) : numbers_{a, b, b} {}
    constexpr ErrorNumbers(std::int32_t a, std::int32_t b, std::int32_t c) : numbers_{a, b, c} {}
    [[nodiscard]] constexpr bool hold(std::int32_t number) const {
        return numbers_[0] == number || numbers_[1] == number || numbers_[2] == number;
    }

private:
    std::array<std::int32_t, 3> numbers_;
};

/// Places in lines: {0} number, {1} module, {2} procedure, {3} short name of the program, {4} the
/// name that the error is about, {5} the error's own text, {6} the row where it came up.
struct ErrorRow {
    enum Extra : std::uint8_t {
        Nothing,
        ClosesWorkbook,  // before the message
        CountsToLast,    // the first three after a print began are silent, the next are unhandled
        AsksForPrinter,  // a plain message goes before the head
    };

    ErrorNumbers numbers;
    Text lines;  // below the head
    Icon icon;
    Text title;
    FehlerAktion action;
    Extra extra = Nothing;

    /// Without a message.
    [[nodiscard]] constexpr bool silent() const { return lines.de.empty() && extra == Nothing; }
};

/// Stands above the lines of every message.
inline constexpr std::string_view error_head = "Error {0} in {1}.{2}";

/// Goes before the message of a row that `AsksForPrinter`.
inline constexpr Text printer_question = {"Ist der Drucker angeschlossen bzw. eingeschaltet ?",
                                          "Can't find the printer !"};

inline constexpr int tolerated_print_errors = 3;

/// The rows in the order in which they are tested.
[[nodiscard]] std::span<const ErrorRow> error_rows();

/// The row of all other numbers, the last one.
[[nodiscard]] const ErrorRow& unhandled_row();

/// The first row that holds `number`, or the last one.
[[nodiscard]] const ErrorRow& error_row(std::int32_t number);

/// A failure as the table knows it.
struct ErrorObject {
    std::int32_t number = 0;
    std::string text;     // what failed and why
    std::string subject;  // the name that the message needs
};

/// The message of an error in one language, as the row of its number tells it.
[[nodiscard]] Box error_box(const ErrorObject& error, std::int16_t Zeile, std::string_view module,
                            std::string_view procedure, LangId lang);
/// The same by the wording of `row`.
[[nodiscard]] Box error_box(const ErrorRow& row, const ErrorObject& error, std::int16_t Zeile,
                            std::string_view module, std::string_view procedure, LangId lang);

/// The same for an arithmetic fault, which is no exception.
[[nodiscard]] Box arithmetic_error(ArithmeticFault fault, std::string_view module,
                                   std::string_view procedure, LangId lang);

}  // namespace zel
