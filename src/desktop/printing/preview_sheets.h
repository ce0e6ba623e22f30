#pragma once

#include <QWidget>
#include <functional>
#include <vector>

#include "reports/report.h"

class QScrollBar;

namespace zel {

inline constexpr double twips_per_pixel = 15;

/// How far the scroll bars of the preview move its sheets: fixed steps, times these factors.
struct PreviewScale {
    double Skala_x = 1;
    double Skala_y = 1;
};

/// Where a sheet of the preview stands at a value of a scroll bar, in twips, a 16-bit number: to
/// the left of its place, and above it. The second sheet moves faster.
[[nodiscard]] int sheet_left(int value, const PreviewScale& scale);
[[nodiscard]] int sheet_top(int value, std::size_t sheet, const PreviewScale& scale);

/// A sheet of paper as it comes out of the printer.
class SheetPicture : public QWidget {
public:
    explicit SheetPicture(ReportSheet sheet);

    /// 1: as large as the paper.
    void set_zoom(double zoom);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ReportSheet sheet_;
    double zoom_ = 1;
};

/// The sheets of a report, one of which is shown, with their scroll bars. The wheel scrolls, and
/// with the control key it enlarges what is under the mouse.
class PreviewSheets : public QWidget {
public:
    explicit PreviewSheets(std::vector<ReportSheet> sheets);

    /// Chooses the factors of the scroll bars by the present size.
    void set_scale();
    [[nodiscard]] std::size_t shown() const { return shown_; }
    void show_sheet(std::size_t sheet);

    [[nodiscard]] double zoom() const { return zoom_; }
    /// Keeps what stands at `around`, in pixels of this widget, in its place.
    void set_zoom(double zoom, const QPointF& around);
    void set_zoom(double zoom);
    void fit_width();
    void fit_sheet();

    /// Puts `panel` into the strip below the sheets.
    void set_panel(QWidget& panel);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] SheetPicture& sheet() const { return *sheets_[shown_]; }
    void set_ranges();
    void place_panel();
    void place_sheet();
    void scroll_to(double left, double top);

    QWidget* view_;
    std::vector<SheetPicture*> sheets_;
    QScrollBar* vertical_;
    QScrollBar* horizontal_;
    QWidget* panel_ = nullptr;
    std::size_t shown_ = 0;
    PreviewScale scale_;
    double zoom_ = 1;
    bool follows_width_ = true;  // until the user has chosen another size
};

}  // namespace zel
