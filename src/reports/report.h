#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/canvas.h"

// What a report says, in its order and in one language, before it is set in sheets.

namespace zel {

/// A label with its value. Words that are long are broken into lines with their unit, and so is a
/// number that is too long for its column.
struct ReportRow {
    std::string label;
    std::string value{};
    std::string unit{};
    bool is_text = false;  // stands to the left as words do, not to the right as numbers
};

/// Rows under a head, in one column or side by side in two. It is kept together where a sheet has
/// room for it.
struct ReportSection {
    std::string head;
    std::vector<ReportRow> rows;
    int columns = 1;
};

/// Words over the whole width, below a head where there is one.
struct ReportParagraph {
    std::string text;
    bool bold = false;
    std::string head{};
};

/// A table whose head stands on each sheet that it reaches. The first column is the row heads.
struct ReportTable {
    std::string caption;                         // above the table
    std::string row_head;                        // of the first column, in lines
    std::string column_head;                     // across the others
    std::vector<std::string> columns;            // heads of the others
    std::vector<std::vector<std::string>> rows;  // cells, the row head first
};

/// A picture over the whole width.
struct ReportPicture {
    double height;  // twips
    std::function<void(Canvas&, const CanvasBox&)> draw;
};

/// What follows stands on another sheet.
struct SheetBreak {
    std::string title;          // of the sheets from here on
    std::string sheet_label{};  // of them too; empty where it stays
};

using ReportBlock =
    std::variant<ReportSection, ReportParagraph, ReportTable, ReportPicture, SheetBreak>;

/// The band of the project on the first sheet.
struct ProjectBand {
    ReportRow project, date, operator_name, department;
    std::string head{};  // above the band
};

struct Report {
    std::string title;
    std::string sheet_label;  // beside the title; {0} is the number of the sheet, {1} of all
    std::optional<ProjectBand> band;
    std::vector<ReportBlock> blocks;
    ReportRow print_date;        // of the footer
    ReportRow operator_name;     // of the footer
    std::string footer_sheet{};  // as `sheet_label`
    std::string program{};       // that made it, with its version: below the number of the sheet
};

// ---- set in sheets

struct PlacedText {
    double x = 0;
    double y = 0;
    std::string text;
    Font font;
};

struct PlacedLine {
    double x1, y1, x2, y2;
    int width = 1;
};

struct PlacedBox {
    CanvasBox box;
    int width = 1;
};

struct PlacedPicture {
    CanvasBox box;
    std::function<void(Canvas&, const CanvasBox&)> draw;
};

/// One sheet of paper, all places in twips from its top left corner.
struct ReportSheet {
    std::vector<PlacedText> texts;
    std::vector<PlacedLine> lines;
    std::vector<PlacedBox> boxes;
    std::vector<PlacedPicture> pictures;
};

/// A4.
inline constexpr CanvasBox report_paper = {0, 0, 11906, 16838};

/// The sheets of a report: at least one. Texts are measured by `canvas`, whose metrics are those of
/// every other one. A text that is too long for its place is broken or set smaller, never cut.
[[nodiscard]] std::vector<ReportSheet> set_in_sheets(const Report& report, const Canvas& canvas);

/// Draws a sheet with its corner at `offset`.
void draw(Canvas& canvas, const ReportSheet& sheet, const CanvasPoint& offset = {});

}  // namespace zel
