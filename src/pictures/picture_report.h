#pragma once

#include "pictures/picture.h"
#include "reports/report_frame.h"
#include "reports/report_print.h"

namespace zel {

/// A picture on a sheet of paper, as large as in a file, with the project that it is about. It is
/// to be in the language that `print` has for what is told in German and English only.
[[nodiscard]] Report picture_report(Picture picture, const ReportProject& project,
                                    const ReportPrint& print);

}  // namespace zel
