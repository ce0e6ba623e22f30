#include "reports/report_frame.h"

#include <array>

namespace zel {

std::string print_date_text(const std::tm& local_time) {
    std::array<char, 32> text{};
    const std::size_t length =
        std::strftime(text.data(), text.size(), "%d/%m/%Y / %H:%M", &local_time);
    return {text.data(), length};
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
