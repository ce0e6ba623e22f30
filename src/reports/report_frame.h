#pragma once

#include "platform/clock.h"
#include "reports/print_text.h"
#include "reports/report.h"
#include "steady/case/calc_case.h"

// What the reports share: the words of band and footer.

namespace zel {

/// When a report is printed, for its footer: "22/11/2026 / 09:05".
[[nodiscard]] std::string print_date_text(const CalendarTime& time);

/// The project that a report is about.
struct ReportProject {
    std::string project, date, operator_name, department;
};

[[nodiscard]] ReportProject project_of(const CalcCase& c);
inline constexpr PrintText band_labels[] = {{"Projekt:", "project:"},
                                            {"Datum:", "date:"},
                                            {"Bearbeiter:", "operator:"},
                                            {"Firma/Abteilung:", "company/depart.:"}};

/// The words of the frame that the thermal rating prints in German and English.
struct FrameTexts {
    PrintText sheet_label = {"Blatt {0}", "page {0}"};
    PrintText print_date;
    PrintText operator_name = {"Bearbeiter(-in):", "operator:"};
    PrintText footer_sheet = {"Blatt {0}/{1}", "page {0}/{1}"};
};

/// What the program area `program` calls itself, with the date of the program: in German, or in
/// English for all others.
[[nodiscard]] std::string program_line(PrintLang lang, const Text& program);

/// Puts the footer to the end of a report.
void add_footer(Report& report, LabelWriter& say, const FrameTexts& texts,
                const std::string& print_date, const std::string& operator_name);

/// The band by its four labels, said in this order: project, date, operator, department.
[[nodiscard]] ProjectBand project_band(LabelWriter& say, const PrintText (&labels)[4],
                                       const ReportProject& project);

}  // namespace zel
