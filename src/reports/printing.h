#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/printers.h"
#include "platform/sheets_document.h"
#include "reports/report.h"
#include "reports/report_print.h"
#include "shell/error_handling.h"

// Reports on their way to a printer or the preview.

namespace zel {

enum class ReportKind : std::int16_t {
    SteadyTable = 1,
    SteadyGraph = 2,
    TransientGraph = 3,
    TransientTable = 4,
    ShortCircuit = 5,
    Picture = 6
};

enum class PrintTarget : std::int16_t { Printer = 1, Preview = 2 };

inline constexpr std::string_view print_module = "PRINT_Modul";

/// A report that is asked for. It is made anew for each print and each preview.
struct PrintOrder {
    ReportKind kind = ReportKind::SteadyTable;
    std::string_view procedure{};  // that makes it
    /// Nothing where there is nothing to tell: an empty document.
    std::function<std::optional<Report>(const ReportPrint&)> report{};
    std::string_view module = print_module;
};

/// What a print works with.
struct PrintTools {
    Printers& printers;
    ErrorHandling& errors;
    std::function<std::string(const SheetsDocument&)> make_file;
};

/// Prints the report on the current printer and ends the document. A failure while it is made is
/// told under its own procedure. A property that the printer does not have is passed over as the
/// central table says. False where nothing was printed, which was told.
bool S00_Drucken(const PrintOrder& order, const ReportPrint& print, const PrintTools& tools);

/// The report of `order` for the preview; nothing where it could not be made, which was told.
[[nodiscard]] std::optional<Report> report_for_preview(const PrintOrder& order,
                                                       const ReportPrint& print,
                                                       ErrorHandling& errors);

inline constexpr std::size_t sheets_in_preview = 2;

/// The sheets for `target`: the preview has room for two, which is told of longer reports.
[[nodiscard]] std::vector<ReportSheet> sheets_for(PrintTarget target,
                                                  std::vector<ReportSheet> sheets, LangId lang,
                                                  Dialogs& dialogs);

}  // namespace zel
