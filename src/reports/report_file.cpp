#include "reports/report_file.h"

namespace zel {

ReportFile file_of(const std::optional<Report>& report, PrintLang lang,
                   const std::function<std::string(const SheetsDocument&)>& make_file) {
    ReportFile file;
    SheetsDocument document = {report_paper,
                               {},
                               tag_of(lang),
                               [](Canvas&, const std::function<void()>& /*next_sheet*/) {}};
    if (report) {
        document.title = without_outer_blanks(report->title);
        document.draw = [&](Canvas& canvas, const std::function<void()>& next_sheet) {
            const std::vector<ReportSheet> sheets = set_in_sheets(*report, canvas);
            file.sheets = sheets.size();
            for (std::size_t i = 0; i < sheets.size(); ++i) {
                if (i > 0) next_sheet();
                draw(canvas, sheets[i]);
            }
        };
    }
    file.pdf = make_file(document);
    return file;
}

}  // namespace zel
