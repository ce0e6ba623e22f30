#pragma once

#include <QWidget>
#include <array>
#include <cstdint>
#include <vector>

class QGridLayout;

namespace zel {

/// Tells all that `part` stands in that it needs another room: pages that are still hidden would
/// not ask again.
void need_anew(QWidget& part);

/// Widgets in a grid that has an arrangement for a wide window, and one for a window that is too
/// narrow for it. Where even that has no room they stand below each other, as they were placed.
class ColumnGrid : public QWidget {
public:
    struct Cell {
        int row;
        int column;
        int rows = 1;
        int columns = 1;
    };

    explicit ColumnGrid(int gap);

    void place(QWidget* widget, const Cell& wide, const Cell& narrow);
    /// Buttons in one row, or in rows of `narrow_columns`; `spring` is the one after which a row
    /// takes the room that is left. To be called instead of `place` and `share`.
    void place_row(const std::vector<QWidget*>& widgets, int narrow_columns, int spring);
    /// How the columns and rows of an arrangement share what is left of the room; to be called once
    /// all widgets are placed.
    void share(const std::vector<int>& wide_columns, const std::vector<int>& narrow_columns,
               int tall_row_wide, int tall_row_narrow);

    /// As wide as the arrangement for a wide window.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    bool event(QEvent* event) override;

private:
    enum Arrangement : std::uint8_t { Wide, Narrow, Single };
    struct Placed {
        QWidget* widget;
        std::array<Cell, 3> cells;  // by arrangement
    };

    [[nodiscard]] static int need_of(const QWidget& widget, Arrangement arrangement);
    [[nodiscard]] int width_of(Arrangement arrangement) const;
    [[nodiscard]] Arrangement fitting() const;
    void arrange(Arrangement arrangement);

    QGridLayout* grid_;
    std::vector<Placed> placed_;
    std::array<std::vector<int>, 3> columns_;  // shares of the columns
    std::array<int, 3> tall_rows_{};
    Arrangement arrangement_ = Wide;
};

}  // namespace zel
