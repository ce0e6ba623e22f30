#include "reports/report_frame.h"

#include <array>
#include <cstdio>

#include "shell/program_texts.h"

namespace zel {

std::string print_date_text(const CalendarTime& time) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%02d/%02d/%04d / %02d:%02d", time.day, time.month,
                  time.year, time.hour, time.minute);
    return text.data();
}

ReportProject project_of(const CalcCase& c) {
    return {c.Projekt_db, c.Datum_db, c.Bearbeiter_db, c.Abteilung_db};
}

std::string program_line(PrintLang lang, const Text& program) {
    constexpr Text line = {"{0} vom {1}", "{0} of {1}"};
    const LangId named = language_of(lang);
    return fill(line.in(named), {program.in(named), program_date});
}

void add_footer(Report& report, LabelWriter& say, const FrameTexts& texts,
                const std::string& print_date, const std::string& operator_name) {
    report.print_date = {std::string(say(texts.print_date)), print_date};
    report.operator_name = {std::string(say(texts.operator_name)), operator_name};
    report.footer_sheet = say(texts.footer_sheet);
    report.program = program_line(say.lang(), short_name);
}

ProjectBand project_band(LabelWriter& say, const PrintText (&labels)[4],
                         const ReportProject& project) {
    const auto row = [&](const PrintText& label, const std::string& value) {
        return ReportRow{std::string(say(label)), value, {}, true};
    };
    ProjectBand band;
    band.project = row(labels[0], project.project);
    band.date = row(labels[1], project.date);
    band.operator_name = row(labels[2], project.operator_name);
    band.department = row(labels[3], project.department);
    return band;
}

}  // namespace zel
