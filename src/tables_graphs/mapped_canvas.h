#pragma once

#include <vector>

#include "platform/canvas.h"

namespace zel {

/// Takes lines in the lengths of one box and draws them in another, joined to paths where one ends
/// as the next begins.
class MappedCanvas : public Canvas {
public:
    MappedCanvas(Canvas& target, const CanvasBox& from, const CanvasBox& to)
        : target_(target), from_(from), to_(to) {}
    ~MappedCanvas() override { end_path(); }
    MappedCanvas(const MappedCanvas&) = delete;
    MappedCanvas& operator=(const MappedCanvas&) = delete;

    [[nodiscard]] double text_width(std::string_view text, const Font& font) const override;
    [[nodiscard]] double text_height(const Font& font) const override;
    void text(double x, double y, std::string_view text, const Font& font, Colour colour) override;
    void line(double x1, double y1, double x2, double y2, const Pen& pen) override;
    void path(std::span<const CanvasPoint> points, const Pen& pen) override;
    void box(const CanvasBox& box, const Pen& pen) override;
    void fill(const CanvasBox& box, Colour colour) override;
    void area(std::span<const CanvasPoint> outline, Colour colour) override;
    void clip(const std::optional<CanvasBox>& inside) override;

private:
    [[nodiscard]] CanvasPoint mapped(const CanvasPoint& p) const;
    [[nodiscard]] CanvasBox mapped(const CanvasBox& box) const;
    void end_path();

    Canvas& target_;
    CanvasBox from_;
    CanvasBox to_;
    std::vector<CanvasPoint> joined_;  // as mapped
    CanvasPoint end_;                  // as given
    Pen pen_;
};

}  // namespace zel
