#include "pictures/shapes.h"

#include <array>
#include <cmath>
#include <numbers>

#include "pictures/picture.h"

namespace zel {
namespace {

constexpr Font title_font = {11, true};
constexpr Colour good = rgb(0, 122, 51);
constexpr Colour doubtful = rgb(255, 196, 0);

CanvasPoint scaled(const CanvasPoint& centre, double radius, double x, double y) {
    return {centre.x + radius * x, centre.y + radius * y};
}

}  // namespace

void draw(Canvas& canvas, const Picture& picture) {
    canvas.fill(picture_sheet, white);
    write(canvas, {picture_margin, 200}, Side::Left, picture.title, title_font);
    picture.draw(canvas);
}

void write(Canvas& canvas, const CanvasPoint& at, Side side, std::string_view text,
           const Font& font, Colour colour) {
    const double width = side == Side::Left ? 0 : canvas.text_width(text, font);
    canvas.text(at.x - (side == Side::Middle ? width / 2 : width), at.y, text, font, colour);
}

double write_lines(Canvas& canvas, const CanvasPoint& at, Side side, double room,
                   std::string_view text, const Font& font, Colour colour) {
    double y = at.y;
    std::string line;
    const auto finish = [&] {
        write(canvas, {at.x, y}, side, line, font, colour);
        y += canvas.text_height(font) * 1.1;
        line.clear();
    };
    while (!text.empty()) {
        const std::size_t end = text.find(' ');
        const std::string word(text.substr(0, end));
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        std::string longer = line;
        longer += line.empty() ? "" : " ";
        longer += word;
        if (!line.empty() && canvas.text_width(longer, font) > room) {
            finish();
            line = word;
        } else {
            line = longer;
        }
    }
    if (!line.empty()) finish();
    return y;
}

CanvasPoint away(const CanvasPoint& from, double direction, double distance) {
    const double angle = direction * std::numbers::pi / 180;
    return {from.x + distance * std::sin(angle), from.y - distance * std::cos(angle)};
}

std::vector<CanvasPoint> arc(const CanvasPoint& centre, double radius, double from, double to) {
    const double degrees_a_step = radius > 600 ? 3 : 8;  // no corner is seen
    const int steps = std::max(1, static_cast<int>(std::ceil((to - from) / degrees_a_step)));
    std::vector<CanvasPoint> points;
    for (int i = 0; i <= steps; ++i)
        points.push_back(away(centre, from + (to - from) * i / steps, radius));
    return points;
}

void disc(Canvas& canvas, const CanvasPoint& centre, double radius, Colour colour) {
    canvas.area(arc(centre, radius, 0, 360), colour);
}

void circle(Canvas& canvas, const CanvasPoint& centre, double radius, const Pen& pen) {
    canvas.path(arc(centre, radius, 0, 360), pen);
}

void arrow(Canvas& canvas, const CanvasPoint& from, const CanvasPoint& to, double width,
           Colour colour) {
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length > 0)) return;
    const CanvasPoint along = {(to.x - from.x) / length, (to.y - from.y) / length};
    const double head = std::min(length, 3 * width + 60);
    const auto at = [&](double distance, double beside) {
        return CanvasPoint{from.x + along.x * distance - along.y * beside,
                           from.y + along.y * distance + along.x * beside};
    };
    const double neck = length - head;
    const double half = width / 2;
    canvas.area(std::array{at(0, half), at(neck, half), at(neck, head / 2), at(length, 0),
                           at(neck, -head / 2), at(neck, -half), at(0, -half)},
                colour);
}

void sign(Canvas& canvas, Sign kind, const CanvasPoint& centre, double radius) {
    const auto at = [&](double x, double y) { return scaled(centre, radius, x, y); };
    const int width = std::max(2, static_cast<int>(radius / 75));
    switch (kind) {
        case Sign::Check:
            disc(canvas, centre, radius, good);
            canvas.path(std::array{at(-0.5, 0.02), at(-0.12, 0.42), at(0.52, -0.4)},
                        {white, LineStyle::Solid, width});
            return;
        case Sign::Cross:
            disc(canvas, centre, radius, warning_ink);
            canvas.path(std::array{at(-0.4, -0.4), at(0.4, 0.4)}, {white, LineStyle::Solid, width});
            canvas.path(std::array{at(0.4, -0.4), at(-0.4, 0.4)}, {white, LineStyle::Solid, width});
            return;
        case Sign::Warning:
            canvas.area(std::array{at(0, -1), at(1.05, 0.85), at(-1.05, 0.85)}, doubtful);
            canvas.path(std::array{at(0, -0.4), at(0, 0.25)}, {ink, LineStyle::Solid, width});
            disc(canvas, at(0, 0.58), radius * 0.11, ink);
    }
}

}  // namespace zel
