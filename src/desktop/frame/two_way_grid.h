#pragma once

#include <QWidget>
#include <vector>

class QGridLayout;

namespace zel {

/// Widgets in a grid that has two arrangements: one for a wide window, and one for a window that is
/// too narrow for it.
class TwoWayGrid : public QWidget {
public:
    struct Cell {
        int row;
        int column;
        int rows = 1;
        int columns = 1;
    };

    explicit TwoWayGrid(int gap);

    void place(QWidget* widget, const Cell& wide, const Cell& narrow);
    /// How the columns and rows of an arrangement share what is left of the room; to be called once
    /// all widgets are placed.
    void share(const std::vector<int>& wide_columns, const std::vector<int>& narrow_columns,
               int tall_row_wide, int tall_row_narrow);

    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    struct Placed {
        QWidget* widget;
        Cell wide;
        Cell narrow;
    };

    [[nodiscard]] int width_of(Cell Placed::*arrangement) const;
    void arrange(bool wide);

    QGridLayout* grid_;
    std::vector<Placed> placed_;
    std::vector<int> wide_columns_, narrow_columns_;
    int tall_row_wide_ = 0, tall_row_narrow_ = 0;
    bool is_wide_ = true;
};

}  // namespace zel
