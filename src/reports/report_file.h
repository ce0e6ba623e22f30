#pragma once

#include <functional>
#include <optional>
#include <string>

#include "platform/sheets_document.h"
#include "reports/print_text.h"
#include "reports/report.h"

// A report as a document, for a file or a printer.

namespace zel {

inline constexpr std::string_view report_ending = ".pdf";
inline constexpr Text wrong_report_ending = {"ein Bericht wird als .pdf geschrieben",
                                             "a report is written as .pdf"};

struct ReportFile {
    std::string pdf;
    std::size_t sheets = 0;
};

/// The sheets of `report` by `make_file`; one empty sheet without a report.
[[nodiscard]] ReportFile file_of(
    const std::optional<Report>& report, PrintLang lang,
    const std::function<std::string(const SheetsDocument&)>& make_file);

}  // namespace zel
