#pragma once

#include <string>
#include <vector>

#include "platform/canvas.h"

namespace zel {

/// Keeps what is drawn, in the order of drawing and unclipped. A letter is half as wide as its font
/// is high.
class MemoryCanvas : public Canvas {
public:
    struct Line {
        double x1, y1, x2, y2;
        Pen pen;

        friend bool operator==(const Line&, const Line&) = default;
    };
    struct Written {
        double x, y;
        std::string text;
        Font font;
        Colour colour;
    };
    struct Path {
        std::vector<CanvasPoint> points;
        Pen pen;
        std::optional<CanvasBox> inside;  // what was clipped to
    };

    [[nodiscard]] double text_width(std::string_view text, const Font& font) const override {
        return static_cast<double>(text.size()) * text_height(font) / 2;
    }
    [[nodiscard]] double text_height(const Font& font) const override { return font.size * 22.0; }

    void text(double x, double y, std::string_view text, const Font& font, Colour colour) override {
        texts.push_back({x, y, std::string(text), font, colour});
    }
    void line(double x1, double y1, double x2, double y2, const Pen& pen) override {
        lines.push_back({x1, y1, x2, y2, pen});
    }
    void path(std::span<const CanvasPoint> points, const Pen& pen) override {
        paths.push_back({{points.begin(), points.end()}, pen, inside_});
    }
    void box(const CanvasBox& box, const Pen& /*pen*/) override { boxes.push_back(box); }
    void fill(const CanvasBox& box, Colour colour) override { filled.emplace_back(box, colour); }
    void area(std::span<const CanvasPoint> outline, Colour colour) override {
        areas.push_back({{outline.begin(), outline.end()}, colour});
    }
    void clip(const std::optional<CanvasBox>& inside) override { inside_ = inside; }

    std::vector<Written> texts;
    std::vector<Line> lines;
    std::vector<Path> paths;
    std::vector<CanvasBox> boxes;
    std::vector<std::pair<CanvasBox, Colour>> filled;
    std::vector<std::pair<std::vector<CanvasPoint>, Colour>> areas;

private:
    std::optional<CanvasBox> inside_;
};

}  // namespace zel
