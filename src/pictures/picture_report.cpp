#include "pictures/picture_report.h"

#include "tables_graphs/mapped_canvas.h"

namespace zel {
namespace {

constexpr PrintText title = {"Bild zur Berechnung", "Picture of the calculation"};

/// In the middle of `room`, at true size.
void draw_in(Canvas& canvas, const CanvasBox& room, const Picture& picture) {
    const double left = room.left + (room.width() - picture_sheet.width()) / 2;
    MappedCanvas there(
        canvas, picture_sheet,
        {left, room.top, left + picture_sheet.width(), room.top + picture_sheet.height()});
    draw(there, picture);
}

}  // namespace

Report picture_report(Picture picture, const ReportProject& project, const ReportPrint& print) {
    const FrameTexts frame = {.print_date = {"Druck-Datum:", "printout date:"}};
    LabelWriter say(print.lang);
    Report report;
    report.title = say(title);
    report.sheet_label = say(frame.sheet_label);
    report.band = project_band(say, band_labels, project);
    report.blocks.emplace_back(
        ReportPicture{picture_sheet.height(),
                      [picture = std::move(picture)](Canvas& canvas, const CanvasBox& room) {
                          draw_in(canvas, room, picture);
                      }});
    add_footer(report, say, frame, print.print_date, project.operator_name);
    return report;
}

}  // namespace zel
