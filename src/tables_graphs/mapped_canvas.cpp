#include "tables_graphs/mapped_canvas.h"

namespace zel {

CanvasPoint MappedCanvas::mapped(const CanvasPoint& p) const {
    return {to_.left + (p.x - from_.left) * to_.width() / from_.width(),
            to_.top + (p.y - from_.top) * to_.height() / from_.height()};
}

CanvasBox MappedCanvas::mapped(const CanvasBox& box) const {
    const CanvasPoint first = mapped(CanvasPoint{box.left, box.top});
    const CanvasPoint last = mapped(CanvasPoint{box.right, box.bottom});
    return {first.x, first.y, last.x, last.y};
}

void MappedCanvas::end_path() {
    if (joined_.size() > 1) target_.path(joined_, pen_);
    joined_.clear();
}

double MappedCanvas::text_width(std::string_view text, const Font& font) const {
    return target_.text_width(text, font);
}

double MappedCanvas::text_height(const Font& font) const { return target_.text_height(font); }

void MappedCanvas::text(double x, double y, std::string_view text, const Font& font,
                        Colour colour) {
    end_path();
    const CanvasPoint at = mapped(CanvasPoint{x, y});
    target_.text(at.x, at.y, text, font, colour);
}

void MappedCanvas::line(double x1, double y1, double x2, double y2, const Pen& pen) {
    if (joined_.empty() || end_ != CanvasPoint{x1, y1} || pen_ != pen) {
        end_path();
        joined_.push_back(mapped(CanvasPoint{x1, y1}));
        pen_ = pen;
    }
    end_ = {x2, y2};
    joined_.push_back(mapped(end_));
}

void MappedCanvas::path(std::span<const CanvasPoint> points, const Pen& pen) {
    for (std::size_t i = 1; i < points.size(); ++i)
        line(points[i - 1].x, points[i - 1].y, points[i].x, points[i].y, pen);
}

void MappedCanvas::box(const CanvasBox& box, const Pen& pen) {
    end_path();
    target_.box(mapped(box), pen);
}

void MappedCanvas::fill(const CanvasBox& box, Colour colour) {
    end_path();
    target_.fill(mapped(box), colour);
}

void MappedCanvas::area(std::span<const CanvasPoint> outline, Colour colour) {
    end_path();
    std::vector<CanvasPoint> there;
    for (const CanvasPoint& corner : outline) there.push_back(mapped(corner));
    target_.area(there, colour);
}

void MappedCanvas::clip(const std::optional<CanvasBox>& inside) {
    end_path();
    target_.clip(inside ? std::optional(mapped(*inside)) : std::nullopt);
}

}  // namespace zel
