#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

#include "platform/text/number_text.h"
#include "tables_graphs/diagram.h"
#include "tables_graphs/mapped_canvas.h"

namespace zel {
namespace {

// Lengths in twips.
constexpr double margin = 300;
constexpr double gap = 120;
constexpr double tick = 70;
constexpr double look_width = 800;  // in the legend
constexpr double sign_width = 250;  // in the legend
constexpr double sign_size = 65;    // from its middle
constexpr double least_plot = 600;
constexpr std::size_t header_columns = 3;
constexpr std::string_view widest_value = "00000.0";
constexpr Font title_font = {10, true};
constexpr Font font = {8};

constexpr Colour line_on_white = rgb(208, 208, 208);
constexpr Colour mark_ink = rgb(140, 140, 140);  // on both grounds
constexpr Colour line_on_black = rgb(80, 80, 80);

constexpr bool fits_on(double value, const ValueRange& range) {
    return value >= range.low && value <= range.high;
}

/// A sign around (0, 0), of size 1.
std::vector<CanvasPoint> outline(CurveSign sign) {
    switch (sign) {
        case CurveSign::None: return {};
        case CurveSign::Circle: {
            std::vector<CanvasPoint> circle;
            constexpr int corners = 16;
            for (int i = 0; i <= corners; ++i) {
                const double angle = 2 * std::numbers::pi * i / corners;
                circle.push_back({std::cos(angle), std::sin(angle)});
            }
            return circle;
        }
        case CurveSign::Square:
            return {{-0.9, -0.9}, {0.9, -0.9}, {0.9, 0.9}, {-0.9, 0.9}, {-0.9, -0.9}};
        case CurveSign::Triangle: return {{0, -1.1}, {1, 0.8}, {-1, 0.8}, {0, -1.1}};
        case CurveSign::Diamond: return {{0, -1.2}, {1.2, 0}, {0, 1.2}, {-1.2, 0}, {0, -1.2}};
        case CurveSign::Cross: return {{-1, -1}, {1, 1}, {0, 0}, {1, -1}, {-1, 1}};
        case CurveSign::Wedge: return {{0, 1.1}, {1, -0.8}, {-1, -0.8}, {0, 1.1}};
    }
    return {};
}

/// A text, cut where it is wider than the room that it has.
std::string fitted(const Canvas& canvas, std::string text, double room) {
    if (canvas.text_width(text, font) <= room) return text;
    const auto continues = [](char letter) { return (letter & 0xC0) == 0x80; };  // in UTF-8
    while (!text.empty() && canvas.text_width(text + "...", font) > room) {
        while (text.size() > 1 && continues(text.back())) text.pop_back();
        text.pop_back();
    }
    return text + "...";
}

double sample_width(const LegendEntry& entry) { return entry.look ? look_width : sign_width; }

class Drawing {
public:
    Drawing(const Canvas& canvas, const CanvasBox& area, const Diagram& diagram,
            const DiagramView& view)
        : area_(area), diagram_(diagram), view_(view), row_(canvas.text_height(font) * 1.15) {
        place_legend(canvas);
        place_plot(canvas);
    }

    [[nodiscard]] const DiagramFrame& frame() const { return frame_; }

    void draw(Canvas& canvas, DecimalSeparator separator) const {
        canvas.fill(area_, ground());
        draw_header(canvas);
        draw_axis_lines(canvas, separator);
        draw_marks(canvas);
        canvas.clip(frame_.plot);
        for (std::size_t i = 0; i < diagram_.curves.size(); ++i)
            if (view_.shows(i)) draw_curve(canvas, diagram_.curves[i]);
        canvas.clip(std::nullopt);
        canvas.box(frame_.plot, {ink()});
        draw_legend(canvas);
    }

private:
    struct Entry {
        double x, y;
        const LegendEntry* entry;
    };

    [[nodiscard]] Colour ground() const { return view_.black_ground ? black : white; }
    [[nodiscard]] Colour ink() const { return view_.black_ground ? white : black; }
    [[nodiscard]] Colour line_ink() const {
        return view_.black_ground ? line_on_black : line_on_white;
    }
    [[nodiscard]] std::size_t header_rows() const {
        return (diagram_.header.size() + header_columns - 1) / header_columns;
    }

    /// From left to right, in as many rows as are needed at the bottom.
    void place_legend(const Canvas& canvas) {
        double x = area_.left + margin;
        double rows = diagram_.legend.empty() ? 0 : 1;
        for (const LegendEntry& entry : diagram_.legend) {
            const double width = sample_width(entry) + gap + canvas.text_width(entry.text, font);
            if (x > area_.left + margin && x + width > area_.right - margin) {
                x = area_.left + margin;
                ++rows;
            }
            legend_.push_back({x, (rows - 1) * row_, &entry});
            x += width + 2 * gap;
        }
        const double top = area_.bottom - margin - rows * row_;
        for (Entry& placed : legend_) placed.y += top;
        below_plot_ = top - gap;
    }

    void place_plot(const Canvas& canvas) {
        const double label = canvas.text_width(widest_value, font) + tick + gap;
        CanvasBox plot;
        plot.left = area_.left + margin + label;
        plot.right = area_.right - margin - (diagram_.right ? label : 0);
        header_top_ = area_.top + margin;
        if (!diagram_.title.empty()) header_top_ += canvas.text_height(title_font) + gap;
        plot.top = header_top_ + static_cast<double>(header_rows()) * row_ + gap + row_;
        plot.bottom = below_plot_ - 3 * row_ - tick;  // values, caption, units of the lines
        plot.right = std::max(plot.right, plot.left + least_plot);
        plot.bottom = std::max(plot.bottom, plot.top + least_plot);
        frame_ = frame_in(plot, diagram_, view_);
        // The values beside a low plot would run into each other.
        most_high_ = std::clamp(static_cast<int>(plot.height() / (1.6 * row_)), 2, most_steps);
    }

    void draw_header(Canvas& canvas) const {
        canvas.text(area_.left + margin, area_.top + margin, diagram_.title, title_font, ink());
        const auto places = header_places(canvas);
        for (std::size_t i = 0; i < diagram_.header.size(); ++i) {
            const std::size_t column = i / header_rows();
            const double room = places[column + 1] - places[column] - 2 * gap;
            canvas.text(places[column], header_top_ + static_cast<double>(i % header_rows()) * row_,
                        fitted(canvas, diagram_.header[i], room), font, ink());
        }
    }

    /// Where the columns of the header begin, and the last ends: at equal distances, or further
    /// where a long name needs the room that the others leave.
    [[nodiscard]] std::array<double, header_columns + 1> header_places(const Canvas& canvas) const {
        std::array<double, header_columns> needed{};
        for (std::size_t i = 0; i < diagram_.header.size(); ++i) {
            double& width = needed[i / header_rows()];
            width = std::max(width, canvas.text_width(diagram_.header[i], font) + 2 * gap);
        }
        const double share = (area_.width() - 2 * margin) / header_columns;
        std::array<double, header_columns + 1> places{};
        places[0] = area_.left + margin;
        for (std::size_t i = 1; i < header_columns; ++i)
            places[i] =
                std::max(places[0] + static_cast<double>(i) * share, places[i - 1] + needed[i - 1]);
        places[header_columns] = area_.right - margin + 2 * gap;
        for (std::size_t i = header_columns - 1; i > 0; --i)
            places[i] = std::min(places[i], places[i + 1] - needed[i]);
        return places;
    }

    /// Calls `at` for each auxiliary line of a range, with the text of its value.
    template <typename At>
    void each_step(const DiagramAxis& axis, const ValueRange& range, int most,
                   DecimalSeparator separator, At at) const {
        const double step = round_step(range.width(), most);
        const double noise = step * 1e-6;
        for (double n = std::ceil((range.low - noise) / step); n * step <= range.high + noise; ++n)
            at(n * step, step_text(axis, n * step, step, separator));
    }

    static std::string step_text(const DiagramAxis& axis, double value, double step,
                                 DecimalSeparator separator) {
        if (!axis.mask.empty()) return masked(value, axis.mask, separator);
        const int decimals = std::max(0, static_cast<int>(-std::floor(std::log10(step) + 1e-9)));
        const std::string places(static_cast<std::size_t>(decimals), '0');
        return masked(value, decimals > 0 ? "0." + places : "0", separator);
    }

    void draw_axis_lines(Canvas& canvas, DecimalSeparator separator) const {
        const CanvasBox& plot = frame_.plot;
        double free_from = area_.left;
        each_step(diagram_.x, frame_.x, most_steps, separator,
                  [&](double value, const std::string& text) {
                      const double x = frame_.place_of({value, frame_.y.low}, false).x;
                      if (view_.auxiliary_lines)
                          canvas.line(x, plot.top, x, plot.bottom, {line_ink()});
                      canvas.line(x, plot.bottom, x, plot.bottom + tick, {ink()});
                      const double width = canvas.text_width(text, font);
                      if (x - width / 2 < free_from) return;
                      canvas.text(x - width / 2, plot.bottom + tick, text, font, ink());
                      free_from = x + width / 2 + gap;
                  });
        each_step(diagram_.y, frame_.y, most_high_, separator,
                  [&](double value, const std::string& text) {
                      const double y = frame_.place_of({frame_.x.low, value}, false).y;
                      if (view_.auxiliary_lines)
                          canvas.line(plot.left, y, plot.right, y, {line_ink()});
                      canvas.line(plot.left - tick, y, plot.left, y, {ink()});
                      canvas.text(plot.left - tick - gap / 2 - canvas.text_width(text, font),
                                  y - row_ / 2, text, font, ink());
                  });
        draw_captions(canvas, separator);
        if (!diagram_.right) return;
        each_step(*diagram_.right, frame_.right, most_high_, separator,
                  [&](double value, const std::string& text) {
                      const double y = frame_.place_of({frame_.x.low, value}, true).y;
                      if (view_.auxiliary_lines)
                          canvas.line(plot.left, y, plot.right, y, {line_ink(), LineStyle::Dots});
                      canvas.line(plot.right, y, plot.right + tick, y, {ink()});
                      canvas.text(plot.right + tick + gap / 2, y - row_ / 2, text, font, ink());
                  });
    }

    void draw_captions(Canvas& canvas, DecimalSeparator separator) const {
        const CanvasBox& plot = frame_.plot;
        const double above = plot.top - row_ - gap / 2;
        const auto width = [&](const std::string& text) { return canvas.text_width(text, font); };
        canvas.text(area_.left + margin, above, diagram_.y.caption, font, ink());
        canvas.text(plot.right - width(diagram_.x.caption), plot.bottom + tick + row_,
                    diagram_.x.caption, font, ink());
        if (diagram_.right)
            canvas.text(area_.right - margin - width(diagram_.right->caption), above,
                        diagram_.right->caption, font, ink());
        if (!view_.auxiliary_lines) return;
        double x = area_.left + margin;
        const auto tell = [&](const DiagramAxis& axis, const ValueRange& range, int most) {
            const double step = round_step(range.width(), most);
            const std::string end =
                axis.line_unit_end.empty() ? " " + axis.unit : axis.line_unit_end;
            const std::string text = axis.line_unit + step_text(axis, step, step, separator) + end;
            canvas.text(x, plot.bottom + tick + 2 * row_, text, font, ink());
            x += width(text) + 4 * gap;
        };
        tell(diagram_.x, frame_.x, most_steps);
        tell(diagram_.y, frame_.y, most_high_);
        if (diagram_.right) tell(*diagram_.right, frame_.right, most_high_);
    }

    void draw_marks(Canvas& canvas) const {
        const CanvasBox& plot = frame_.plot;
        for (const DiagramMark& mark : diagram_.marks) {
            if (!fits_on(mark.x, frame_.x)) continue;
            const double x = frame_.place_of({mark.x, frame_.y.low}, false).x;
            canvas.line(x, plot.top, x, plot.bottom, {mark_ink, LineStyle::Dashes});
            const double width = canvas.text_width(mark.text, font);
            canvas.text(std::min(x + gap / 2, plot.right - width), plot.top, mark.text, font,
                        ink());
        }
    }

    void draw_curve(Canvas& canvas, const DiagramCurve& curve) const {
        const Colour colour = curve.look.on(view_.black_ground);
        if (curve.plot) {
            MappedCanvas mapped(canvas, diagram_.plot_frame, whole_plot());
            curve.plot(mapped, colour);
            return draw_tag(canvas, curve);
        }
        const Pen pen = {colour, curve.look.style, curve.look.width};
        std::vector<CanvasPoint> seen;
        for (const auto& stretch : curve.stretches) {
            std::vector<CanvasPoint> points;
            for (const CanvasPoint& value : stretch) {
                points.push_back(frame_.place_of(value, curve.on_right_axis));
                if (frame_.plot.holds(points.back())) seen.push_back(points.back());
            }
            if (points.size() == 1)
                draw_sign(canvas, CurveSign::Cross, points.front(), colour);
            else
                canvas.path(points, pen);
        }
        draw_signs(canvas, curve.sign, seen, colour);
        draw_tag(canvas, curve);
    }

    /// Beside the curve, where it is in the plot.
    void draw_tag(Canvas& canvas, const DiagramCurve& curve) const {
        if (curve.tag.empty() || curve.stretches.empty() || curve.stretches.front().empty()) return;
        const auto& points = curve.stretches.front();
        const auto before =
            static_cast<std::size_t>(static_cast<double>(points.size()) * curve.tag_at);
        const CanvasPoint at =
            frame_.place_of(points[std::min(before, points.size() - 1)], curve.on_right_axis);
        const double width = canvas.text_width(curve.tag, font);
        const double x = std::min(at.x + gap, frame_.plot.right - width - gap);
        canvas.text(x, std::min(at.y + gap / 2, frame_.plot.bottom - row_), curve.tag, font, ink());
    }

    /// Where the plot would stand if no part of it were enlarged.
    [[nodiscard]] CanvasBox whole_plot() const {
        const double width = frame_.plot.width() / view_.zoom.x.width();
        const double height = frame_.plot.height() / view_.zoom.y.width();
        const double left = frame_.plot.left - view_.zoom.x.low * width;
        const double bottom = frame_.plot.bottom + view_.zoom.y.low * height;
        return {left, bottom - height, left + width, bottom};
    }

    static void draw_sign(Canvas& canvas, CurveSign sign, const CanvasPoint& at, Colour colour) {
        std::vector<CanvasPoint> points = outline(sign);
        if (points.empty()) return;
        for (CanvasPoint& p : points) p = {at.x + p.x * sign_size, at.y + p.y * sign_size};
        canvas.path(points, {colour});
    }

    /// A few along what is seen of a curve.
    static void draw_signs(Canvas& canvas, CurveSign sign, const std::vector<CanvasPoint>& seen,
                           Colour colour) {
        constexpr std::size_t count = 4;
        if (sign == CurveSign::None || seen.empty()) return;
        for (std::size_t i = 0; i < count; ++i)
            draw_sign(canvas, sign, seen[(2 * i + 1) * (seen.size() - 1) / (2 * count)], colour);
    }

    void draw_legend(Canvas& canvas) const {
        for (const auto& [x, y, entry] : legend_) {
            const double middle = y + row_ / 2;
            const double width = sample_width(*entry);
            if (entry->look)
                canvas.line(
                    x, middle, x + width, middle,
                    {entry->look->on(view_.black_ground), entry->look->style, entry->look->width});
            draw_sign(canvas, entry->sign, {x + width / 2, middle}, ink());
            canvas.text(x + width + gap, y, entry->text, font, ink());
        }
    }

    CanvasBox area_;
    const Diagram& diagram_;
    const DiagramView& view_;
    double row_;  // height of a line of text
    double header_top_ = 0;
    double below_plot_ = 0;
    int most_high_ = most_steps;  // auxiliary lines across
    std::vector<Entry> legend_;
    DiagramFrame frame_;
};

}  // namespace

DiagramFrame frame_of(const Canvas& canvas, const CanvasBox& area, const Diagram& diagram,
                      const DiagramView& view) {
    return Drawing(canvas, area, diagram, view).frame();
}

void draw(Canvas& canvas, const CanvasBox& area, const Diagram& diagram, const DiagramView& view,
          DecimalSeparator separator) {
    Drawing(canvas, area, diagram, view).draw(canvas, separator);
}

}  // namespace zel
