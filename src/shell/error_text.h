#pragma once

#include <string_view>

#include "platform/arithmetic_fault.h"
#include "platform/message_box.h"

namespace zel {

/// The box of an arithmetic fault in `procedure` of `module`: its number and place, and what the
/// user can do.
[[nodiscard]] Box arithmetic_error(ArithmeticFault fault, std::string_view module,
                                   std::string_view procedure, LangId lang);

}  // namespace zel
