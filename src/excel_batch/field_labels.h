#pragma once

#include <string_view>

#include "platform/text/text.h"
#include "steady/case/case_fields.h"

namespace zel::excel_batch {

/// What an input is called in the templates and in what is told of it.
struct FieldLabel {
    FieldKey field;
    Text label;
    std::string_view unit{};
};

/// Every field that a workbook names has a label.
[[nodiscard]] const FieldLabel& label_of(const FieldKey& field);

}  // namespace zel::excel_batch
