#pragma once

#include <ctime>

#include "reports/print_text.h"
#include "reports/report.h"

// What the reports share: the words of band and footer.

namespace zel {

/// When a report is printed, for its footer: "22/11/2026 / 09:05".
[[nodiscard]] std::string print_date_text(const std::tm& local_time);

/// The project that a report is about.
struct ReportProject {
    std::string project, date, operator_name, department;
};

/// The band by its four labels, said in this order: project, date, operator, department.
[[nodiscard]] ProjectBand project_band(LabelWriter& say, const PrintText (&labels)[4],
                                       const ReportProject& project);

}  // namespace zel
