#include <algorithm>
#include <cmath>

#include "platform/text/text.h"
#include "reports/report.h"
#include "reports/text_lines.h"

namespace zel {
namespace {

// The page frame, in twips.
constexpr CanvasBox title_box = {900, 450, 10800, 900};
constexpr double title_y = 500;
constexpr double title_end = 9500;  // where the sheet label begins at the latest
constexpr double sheet_label_x = 9700;
constexpr double sheet_label_y = 680;
constexpr CanvasBox band_box = {900, 1100, 10800, 1900};
constexpr double band_rule_y = 1500;
constexpr double band_rule_x = 2100;  // over the full height
constexpr double upper_rules_x[] = {8600, 9500};
constexpr double lower_rules_x[] = {5250, 7000};
constexpr double left = 900;
constexpr double right = 10800;
constexpr double top_below_band = 2100;
constexpr double top_of_next = 1100;
constexpr double footer_y = 15900;
constexpr double bottom = footer_y - 150;
constexpr int frame_width = 3;

constexpr double inset = 80;  // of a text from the rule beside it
constexpr double gap = 160;   // between blocks

constexpr Font title_font = {10, true};
constexpr Font head_font = {10, true};
constexpr Font text_font = {8};
constexpr Font bold_font = {8, true};

/// Where the parts of a row stand, from its left edge.
struct RowPlaces {
    double label_width;
    double number_end;  // numbers end here
    double text_start;  // words begin here
    double width;
};
constexpr RowPlaces wide_row = {4500, 6200, 4700, right - left};
constexpr RowPlaces half_row = {2950, 3900, 3050, (right - left - 300) / 2};

class Setter {
public:
    Setter(const Report& report, const Canvas& canvas)
        : report_(report),
          canvas_(canvas),
          pitch_(canvas.text_height(text_font) * 1.25),
          title_(report.title),
          label_(report.sheet_label) {
        begin_sheet();
    }

    std::vector<ReportSheet> set() {
        for (const ReportBlock& block : report_.blocks)
            std::visit([this](const auto& b) { add(b); }, block);
        number_sheets();
        return std::move(sheets_);
    }

private:
    [[nodiscard]] ReportSheet& sheet() { return sheets_.back(); }

    void text(double x, double y, const std::string& text, const Font& font) {
        if (!text.empty()) sheet().texts.push_back({x, y, text, font});
    }
    void text_to(double end, double y, const std::string& text, const Font& font) {
        this->text(end - canvas_.text_width(text, font), y, text, font);
    }
    void line(double x1, double y1, double x2, double y2, int width = 1) {
        sheet().lines.push_back({x1, y1, x2, y2, width});
    }
    /// What fits into a box, broken or set smaller where it has to be.
    void text_in(const CanvasBox& box, const std::string& words, const Font& font) {
        const auto [lines, fitting] = fitted_lines(canvas_, words, font, box.width(), box.height());
        double y = box.top;
        for (const std::string& part : lines) {
            text(box.left, y, part, fitting);
            y += canvas_.text_height(fitting);
        }
    }

    // ---- the frame

    void begin_sheet() {
        const bool first = sheets_.empty();
        sheets_.emplace_back();
        labels_.push_back(label_);
        sheet().boxes.push_back({title_box, frame_width});
        text_in({title_box.left + inset, title_y, title_end, title_box.bottom}, title_, title_font);
        if (first && report_.band) add_band(*report_.band);
        top_ = y_ = first && report_.band ? top_below_band : top_of_next;
        add_footer();
    }

    void add_band(const ProjectBand& band) {
        text_in({band_box.left, title_box.bottom + 16, band_box.right, band_box.top - 5}, band.head,
                head_font);
        sheet().boxes.push_back({band_box, 1});
        line(band_box.left, band_rule_y, band_box.right, band_rule_y);
        line(band_rule_x, band_box.top, band_rule_x, band_box.bottom);
        for (const double x : upper_rules_x) line(x, band_box.top, x, band_rule_y);
        for (const double x : lower_rules_x) line(x, band_rule_y, x, band_box.bottom);
        const double upper[] = {band_box.left, band_rule_x, upper_rules_x[0], upper_rules_x[1],
                                band_box.right};
        const double lower[] = {band_box.left, band_rule_x, lower_rules_x[0], lower_rules_x[1],
                                band_box.right};
        add_band_line(band_box.top, upper, band.project, band.date);
        add_band_line(band_rule_y, lower, band.operator_name, band.department);
    }

    void add_band_line(double top, const double (&rules)[5], const ReportRow& first,
                       const ReportRow& second) {
        const std::string* cells[] = {&first.label, &first.value, &second.label, &second.value};
        constexpr double height = band_rule_y - band_box.top;
        for (std::size_t i = 0; i < std::size(cells); ++i) {
            const bool is_value = i % 2 == 1;
            const double room = height - inset;
            const double width = rules[i + 1] - rules[i] - 2 * inset;
            const Font& font = is_value ? bold_font : text_font;
            const auto [lines, fitting] = fitted_lines(canvas_, *cells[i], font, width, room);
            const double line_height = canvas_.text_height(fitting);
            double y = top + (height - line_height * static_cast<double>(lines.size())) / 2;
            for (const std::string& part : lines) {
                text(rules[i] + inset, y, part, fitting);
                y += line_height;
            }
        }
    }

    void add_footer() {
        line(left, footer_y, right, footer_y);
        const double y = footer_y + inset;
        double x = left;
        for (const auto& [row, share] :
             {std::pair(&report_.print_date, 0.42), {&report_.operator_name, 0.36}}) {
            const std::string words = row->label + " " + row->value;
            const double width = (right - left) * share;
            text_in({x, y, x + width, y + 2 * pitch_}, words, text_font);
            x += width;
        }
        if (!report_.program.empty()) text_to(right, y + pitch_, report_.program, text_font);
    }

    /// Once their number is known.
    void number_sheets() {
        const std::string all = std::to_string(sheets_.size());
        for (std::size_t i = 0; i < sheets_.size(); ++i) {
            const auto numbered = [&](const std::string& pattern) {
                return fill(pattern, {std::to_string(i + 1), all});
            };
            const std::string label = numbered(labels_[i]);
            const double x =
                std::min(sheet_label_x, right - inset - canvas_.text_width(label, text_font));
            sheets_[i].texts.push_back({x, sheet_label_y, label, text_font});
            const std::string below = numbered(report_.footer_sheet);
            if (!below.empty())
                sheets_[i].texts.push_back({right - canvas_.text_width(below, text_font),
                                            footer_y + inset, below, text_font});
        }
    }

    [[nodiscard]] bool is_empty_sheet() const { return y_ == top_; }
    [[nodiscard]] bool fits(double height) const { return y_ + height <= bottom; }
    void make_room(double height) {
        if (!fits(height) && !is_empty_sheet()) begin_sheet();
    }

    // ---- blocks

    void add(const SheetBreak& next) {
        title_ = next.title;
        if (!next.sheet_label.empty()) label_ = next.sheet_label;
        begin_sheet();
    }

    [[nodiscard]] static const RowPlaces& places_of(const ReportSection& section) {
        return section.columns > 1 ? half_row : wide_row;
    }

    /// A row as lines.
    struct RowLines {
        std::vector<std::string> label;
        std::vector<std::string> value;  // of words, which begin where numbers do not end
        bool of_words = false;
        [[nodiscard]] std::size_t count() const {
            return std::max({label.size(), value.size(), std::size_t{1}});
        }
    };

    [[nodiscard]] RowLines lines_of_row(const ReportRow& row, const RowPlaces& places) const {
        RowLines lines;
        lines.label = broken_lines(canvas_, row.label, text_font, places.label_width);
        lines.of_words = row.is_text || canvas_.text_width(row.value, text_font) >
                                            places.number_end - places.label_width;
        if (lines.of_words) {
            const bool has_unit = !row.value.empty() && !row.unit.empty();
            lines.value = broken_lines(canvas_, has_unit ? row.value + " " + row.unit : row.value,
                                       text_font, places.width - places.text_start);
        }
        return lines;
    }

    [[nodiscard]] double height_of(const ReportRow& row, const RowPlaces& places) const {
        return static_cast<double>(lines_of_row(row, places).count()) * pitch_;
    }

    [[nodiscard]] double height_of(const ReportSection& section, std::size_t from,
                                   std::size_t to) const {
        double height = 0;
        for (std::size_t i = from; i < to; ++i)
            height += height_of(section.rows[i], places_of(section));
        return height;
    }

    /// How many rows stand in the first of two columns.
    [[nodiscard]] std::size_t split_of(const ReportSection& section) const {
        const std::size_t count = section.rows.size();
        if (section.columns < 2) return count;
        std::size_t split = (count + 1) / 2;
        while (split < count && height_of(section, 0, split) < height_of(section, split, count))
            ++split;
        return split;
    }

    void add(const ReportSection& section) {
        const double head = head_height(section.head);
        const std::size_t split = split_of(section);
        const std::size_t count = section.rows.size();
        const double height =
            std::max(height_of(section, 0, split), height_of(section, split, count));
        if (head + height <= bottom - top_of_next)
            make_room(head + height);
        else
            make_room(head + pitch_);
        add_head(section.head);
        const double top = y_;
        for (std::size_t i = 0; i < count; ++i) {
            if (i == split) y_ = top;
            const RowPlaces& places = places_of(section);
            make_room(height_of(section.rows[i], places));
            add_row(section.rows[i], i < split ? left : right - places.width, places);
        }
        y_ = (fits(0) && split < count ? std::max(y_, top + height) : y_) + gap;
    }

    void add_row(const ReportRow& row, double x, const RowPlaces& places) {
        const RowLines lines = lines_of_row(row, places);
        const auto put = [&](const std::vector<std::string>& parts, double at) {
            double y = y_;
            for (const std::string& part : parts) {
                text(at, y, part, text_font);
                y += pitch_;
            }
        };
        put(lines.label, x);
        put(lines.value, x + places.text_start);
        const double height = static_cast<double>(lines.count()) * pitch_;
        if (!lines.of_words) {
            // On the last line of the label.
            const double y = y_ + height - pitch_;
            text_to(x + places.number_end, y, row.value, text_font);
            text(x + places.number_end + inset, y, row.unit, text_font);
        }
        y_ += height;
    }

    [[nodiscard]] double head_height(const std::string& head) const {
        return head.empty() ? 0 : canvas_.text_height(head_font) * 1.5;
    }
    void add_head(const std::string& head) {
        text(left, y_, head, head_font);
        y_ += head_height(head);
    }

    void add(const ReportParagraph& paragraph) {
        const Font& font = paragraph.bold ? bold_font : text_font;
        if (!paragraph.head.empty()) {
            make_room(head_height(paragraph.head) + pitch_);
            add_head(paragraph.head);
        }
        for (const std::string& part : broken_lines(canvas_, paragraph.text, font, right - left)) {
            make_room(pitch_);
            text(left, y_, part, font);
            y_ += pitch_;
        }
        if (!paragraph.head.empty()) y_ += gap;
    }

    void add(const ReportTable& table) {
        make_room(8 * pitch_);  // no head alone
        add_table_head(table);
        for (const auto& row : table.rows) {
            if (!fits(pitch_)) {
                line(left, y_, right, y_);
                begin_sheet();
                add_table_head(table);
            }
            for (std::size_t i = 0; i < row.size(); ++i)
                text_to(cell_end(table, i), y_ + inset / 4, row[i], text_font);
            y_ += pitch_;
        }
        line(left, y_, right, y_);
        y_ += gap;
    }

    static constexpr double row_head_width = 2100;
    static constexpr double most_column = 1300;
    [[nodiscard]] static double column_width(const ReportTable& table) {
        return std::min(most_column,
                        (right - left - row_head_width) /
                            static_cast<double>(std::max<std::size_t>(table.columns.size(), 1)));
    }
    [[nodiscard]] static double cell_end(const ReportTable& table, std::size_t column) {
        return left + row_head_width - inset + static_cast<double>(column) * column_width(table);
    }

    void add_table_head(const ReportTable& table) {
        if (!table.caption.empty()) {
            text(left, y_, table.caption, bold_font);
            y_ += pitch_ * 1.3;
        }
        line(left, y_, right, y_);
        const double x = left + row_head_width + inset;
        text_in({left + inset, y_ + inset / 2, left + row_head_width - inset, y_ + 2 * pitch_},
                table.row_head, bold_font);
        text(x, y_ + inset / 2, table.column_head, bold_font);
        y_ += pitch_;
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            text_to(cell_end(table, i + 1), y_ + inset / 2, table.columns[i], bold_font);
        y_ += pitch_ * 1.3;
        line(left, y_, right, y_);
        y_ += inset / 2;
    }

    void add(const ReportPicture& picture) {
        const double height = std::min(picture.height, bottom - top_of_next);
        make_room(height);
        sheet().pictures.push_back({{left, y_, right, y_ + height}, picture.draw});
        y_ += height + gap;
    }

    const Report& report_;
    const Canvas& canvas_;
    double pitch_;
    std::string title_;
    std::string label_;  // of the sheets from here on
    std::vector<ReportSheet> sheets_;
    std::vector<std::string> labels_;
    double top_ = 0;  // where the present sheet begins
    double y_ = 0;    // how far it is filled
};

}  // namespace

std::vector<ReportSheet> set_in_sheets(const Report& report, const Canvas& canvas) {
    return Setter(report, canvas).set();
}

void draw(Canvas& canvas, const ReportSheet& sheet, const CanvasPoint& offset) {
    const auto moved = [&](const CanvasBox& box) {
        return CanvasBox{box.left + offset.x, box.top + offset.y, box.right + offset.x,
                         box.bottom + offset.y};
    };
    for (const auto& [box, draw_it] : sheet.pictures) draw_it(canvas, moved(box));
    for (const auto& [box, width] : sheet.boxes)
        canvas.box(moved(box), {black, LineStyle::Solid, width});
    for (const auto& [x1, y1, x2, y2, width] : sheet.lines)
        canvas.line(x1 + offset.x, y1 + offset.y, x2 + offset.x, y2 + offset.y,
                    {black, LineStyle::Solid, width});
    for (const auto& [x, y, words, font] : sheet.texts)
        canvas.text(x + offset.x, y + offset.y, words, font, black);
}

}  // namespace zel
