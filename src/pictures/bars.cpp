#include "pictures/bars.h"

#include <algorithm>
#include <cmath>

#include "pictures/picture.h"

namespace zel {
namespace {

constexpr double gap = 100;
constexpr double widest_name = 3300;
constexpr double tallest_bar = 360;

double widest(const Canvas& canvas, const std::vector<Bar>& bars, std::string Bar::*text,
              const Font& font) {
    double width = 0;
    for (const Bar& bar : bars) width = std::max(width, canvas.text_width(bar.*text, font));
    return width;
}

/// In the bar, where there is room for it, so that no mark crosses it; otherwise behind its end.
void write_value(Canvas& canvas, const Bar& bar, double begin, double end, double y) {
    const bool inside =
        std::abs(end - begin) > canvas.text_width(bar.text, bold_font) + 2 * gap && bar.value;
    const bool to_left = end < begin;
    const double x = end + (inside == to_left ? gap : -gap);
    write(canvas, {x, y}, inside == to_left ? Side::Left : Side::Right, bar.text, bold_font,
          inside ? white : ink);
}

/// A name, cut where it is wider than the room that names have.
std::string fitted(const Canvas& canvas, std::string name, double room) {
    if (canvas.text_width(name, picture_font) <= room) return name;
    while (!name.empty() && canvas.text_width(name + "...", picture_font) > room) {
        // A character goes with all its bytes.
        while (name.size() > 1 && (static_cast<unsigned char>(name.back()) & 0xC0U) == 0x80U)
            name.pop_back();
        name.pop_back();
    }
    return name + "...";
}

}  // namespace

BarScale scale_of(const std::vector<Bar>& bars, const std::vector<BarMark>& marks) {
    BarScale scale = {0, 0};
    const auto take = [&](double value) {
        scale.low = std::min(scale.low, value);
        scale.high = std::max(scale.high, value);
    };
    for (const Bar& bar : bars)
        if (bar.value) take(*bar.value);
    for (const BarMark& mark : marks) take(mark.value);
    if (scale.low == scale.high) scale.high = scale.low + 1;
    return scale;
}

double draw_bars(Canvas& canvas, const std::vector<Bar>& bars, const std::vector<BarMark>& marks,
                 double top, double bottom) {
    const BarScale scale = scale_of(bars, marks);
    const double name_room = std::min(widest_name, widest(canvas, bars, &Bar::name, picture_font));
    // Behind bars to both sides of 0 the values stand on both sides too.
    const double text_room = widest(canvas, bars, &Bar::text, bold_font) + gap;
    const double left = picture_margin + name_room + gap + (scale.low < 0 ? text_room : 0);
    const double right = picture_sheet.right - picture_margin - text_room;
    const auto x_of = [&](double value) {
        return left + (right - left) * (value - scale.low) / (scale.high - scale.low);
    };
    const double step =
        std::min(tallest_bar * 1.6,
                 (bottom - top) / static_cast<double>(std::max<std::size_t>(1, bars.size())));
    const double height = step / 1.6;
    double y = top;
    for (const Bar& bar : bars) {
        const double text_y = y + (height - canvas.text_height(picture_font)) / 2;
        write(canvas, {picture_margin, text_y}, Side::Left, fitted(canvas, bar.name, name_room));
        const double end = x_of(bar.value.value_or(0));
        canvas.fill({std::min(x_of(0), end), y, std::max(x_of(0), end), y + height}, bar.colour);
        write_value(canvas, bar, x_of(0), end, text_y);
        y += step;
    }
    const double below = y - step + height;
    canvas.line(x_of(0), top - 60, x_of(0), below + 60, {ink});
    double text_y = below + gap;
    for (const BarMark& mark : marks) {
        const double x = x_of(mark.value);
        canvas.line(x, top - 60, x, text_y, {warning_ink, LineStyle::Dashes, 2});
        const double width = canvas.text_width(mark.text, picture_font);
        const double most = picture_sheet.right - picture_margin - width / 2;
        write(canvas, {std::min(x, most), text_y}, Side::Middle, mark.text, picture_font,
              warning_ink);
        text_y += line_step;
    }
    return std::max(text_y, below + gap);
}

}  // namespace zel
