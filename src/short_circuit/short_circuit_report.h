#pragma once

#include <functional>

#include "reports/report.h"
#include "reports/report_print.h"
#include "short_circuit/modul_iec865.h"

namespace zel {

/// The report of a case that was calculated: what was given, the conductor where it is a bare one,
/// the verdict, and the intermediate results of the result page. It is one sheet. The verdict and
/// all words among the values are German in every language; most labels of the three others are
/// placeholders. Numbers that are typed and have no mask stand as they were typed, so they need to
/// have been typed with the separator of `print`. `guard` runs the second half, from the conductor
/// on, which `KS10_tab_print_Kurzschluss_2` adds: a failure of that does not end the report.
[[nodiscard]] Report KS10_tab_print_Kurzschluss_1(
    const ShortCircuitCase& c, const ShortCircuitResult& result, const ReportPrint& print,
    const std::function<void(const std::function<void()>& work)>& guard =
        [](const std::function<void()>& work) { work(); });

}  // namespace zel
