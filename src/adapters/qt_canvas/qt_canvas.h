#pragma once

#include <QColor>
#include <QFont>
#include <QFontMetricsF>
#include <QString>
#include <vector>

#include "platform/canvas.h"

class QPainter;

namespace zel {

/// What is painted by Qt: a window, an image, a page. Texts have the same widths and heights on all
/// of them, those of letters that are not fitted to pixels.
///
/// Horizontal and vertical lines, boxes and areas keep to whole pixels, all other lines are
/// smoothed. Control characters show as blanks.
class QtCanvas : public Canvas {
public:
    /// Draws by `painter`, which stands where twip (0, 0) is to be, and is given back as it was.
    /// `per_twip`: units of the painter, 1/15 for a window of 96 dots an inch. `of_window_text`:
    /// what `window_text` is here; black on paper.
    QtCanvas(QPainter& painter, double per_twip, const QColor& of_window_text = Qt::black);
    ~QtCanvas() override;
    QtCanvas(const QtCanvas&) = delete;
    QtCanvas& operator=(const QtCanvas&) = delete;

    [[nodiscard]] double text_width(std::string_view text, const Font& font) const override;
    [[nodiscard]] double text_height(const Font& font) const override;
    void text(double x, double y, std::string_view text, const Font& font, Colour colour) override;
    void line(double x1, double y1, double x2, double y2, const Pen& pen) override;
    void path(std::span<const CanvasPoint> points, const Pen& pen) override;
    void box(const CanvasBox& box, const Pen& pen) override;
    void fill(const CanvasBox& box, Colour colour) override;
    void area(std::span<const CanvasPoint> outline, Colour colour) override;
    /// A file in SVG cuts lines and areas; a text stays whole there where a part of it is inside.
    void clip(const std::optional<CanvasBox>& inside) override;

private:
    struct Face {
        Font font;
        QFont letters;
        QFontMetricsF metrics;
    };
    enum class Edges : std::uint8_t { Crisp, Smooth };

    [[nodiscard]] const Face& face(const Font& font) const;
    [[nodiscard]] QColor shown(Colour colour) const;
    void set_pen(const Pen& pen, Edges edges);
    void draw(std::span<const CanvasPoint> points, const Pen& pen, Edges edges);

    QPainter& painter_;
    QColor window_text_;
    double pixels_;  // per twip
    CanvasBox inside_;
    mutable std::vector<Face> faces_;  // those used so far, a handful
};

}  // namespace zel
