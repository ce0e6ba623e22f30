#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>
#include <optional>

#include "tables_graphs/diagram.h"

namespace zel {

/// A diagram that can be read and enlarged: the mouse over it tells the values under it, the wheel
/// enlarges what is there, dragging moves the part that is shown, a double click shows all again.
/// By keys: + and -, the arrows, and Home.
class DiagramPicture : public QWidget {
public:
    DiagramPicture();

    void show_diagram(Diagram diagram, DecimalSeparator separator);
    /// Also of what is drawn into a file.
    [[nodiscard]] const DiagramView& view() const { return view_; }
    void set_view(const DiagramView& view);
    [[nodiscard]] const Diagram& diagram() const { return diagram_; }

    /// Told the values under the mouse; an empty text where it stands elsewhere.
    std::function<void(const std::string&)> read = [](const std::string&) {};

    [[nodiscard]] QSize minimumSizeHint() const override { return {480, 320}; }
    [[nodiscard]] QSize sizeHint() const override { return {900, 600}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void draw_anew();
    void render();
    void paint_reading();
    void read_values();
    /// Enlarges by `factor` around a place of the plot, in shares of it.
    void enlarge(double factor, const CanvasPoint& around);
    void move_by(double x_share, double y_share);
    void show_all();
    [[nodiscard]] std::optional<CanvasPoint> share_at(const QPointF& place) const;

    Diagram diagram_;
    DiagramView view_;
    DecimalSeparator separator_ = DecimalSeparator::Point;
    QPixmap picture_;  // without the reading
    DiagramFrame frame_;
    std::optional<QPointF> mouse_;
    std::optional<QPointF> dragged_from_;
    std::optional<DiagramReading> reading_;
};

}  // namespace zel
