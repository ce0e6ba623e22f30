#pragma once

#include <QTableWidget>
#include <functional>
#include <vector>

#include "excel_batch/batch_run.h"

namespace zel {

/// The cells that a run has refused, each by its name, its text and the reason. A click, or Return,
/// on one leads there. Ctrl+C copies the list. Hidden as long as there are none.
class WrongCellList : public QTableWidget {
public:
    using Cell = excel_batch::WrongCell;

    WrongCellList(LangId lang, std::function<void(const Cell&)> go_to);
    void show_cells(std::vector<Cell> cells);
    [[nodiscard]] const std::vector<Cell>& cells() const { return cells_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void go_to_row(int row) const;

    LangId lang_;
    std::function<void(const Cell&)> go_to_;
    std::vector<Cell> cells_;
};

}  // namespace zel
