#pragma once

#include <string>
#include <string_view>

#include "platform/arithmetic_fault.h"
#include "shell/error_table.h"

namespace zel {

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
