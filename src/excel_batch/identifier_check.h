#pragma once

#include <optional>
#include <string_view>

#include "excel_batch/workbook_contract.h"
#include "platform/message_box.h"

namespace zel::excel_batch {

/// The refusal of a workbook whose cell B2 does not hold an identifier of the wanted kind.
[[nodiscard]] std::optional<Box> identifier_refusal(std::string_view identifier,
                                                    WorkbookKind wanted, LangId lang);

}  // namespace zel::excel_batch
