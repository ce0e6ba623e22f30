#pragma once

#include <string>

#include "platform/text/number_text.h"
#include "reports/print_text.h"

namespace zel {

/// What a report is printed with.
struct ReportPrint {
    PrintLang lang;
    DecimalSeparator separator;
    std::string print_date;  // see `print_date_text`

    [[nodiscard]] std::string number(double value, std::string_view mask) const {
        return masked(value, mask, separator);
    }
};

}  // namespace zel
