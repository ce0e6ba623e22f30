#include "desktop/batch/wrong_cell_list.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <utility>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "excel_batch/batch_texts.h"

namespace zel {
namespace {

constexpr Text list_name = {"Fehlerhafte Zellen", "Wrong cells"};
constexpr Text heads[] = {
    {"Zelle", "Cell"}, {"Arbeitsblatt", "Worksheet"}, {"Eingabe", "Input"}, {"Grund", "Reason"}};
constexpr Text hint = {
    "Ein Klick oder die Eingabetaste öffnet die Arbeitsmappe und kopiert den Namen der Zelle",
    "A click or Return opens the workbook and copies the name of the cell"};
constexpr int lines_at_once = 4;
constexpr int widest_input = 160;  // pixels

}  // namespace

WrongCellList::WrongCellList(LangId lang, std::function<void(const Cell&)> go_to)
    : lang_(lang), go_to_(std::move(go_to)) {
    setObjectName("wrong_cells");
    setAccessibleName(qt(list_name, lang));
    setToolTip(qt(hint, lang));
    setColumnCount(static_cast<int>(std::size(heads)));
    for (int column = 0; const Text& head : heads)
        setHorizontalHeaderItem(column++, new QTableWidgetItem(qt(head, lang)));
    setEditTriggers(NoEditTriggers);
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setTabKeyNavigation(false);
    setWordWrap(false);
    verticalHeader()->hide();
    horizontalHeader()->setStretchLastSection(true);
    horizontalHeader()->setHighlightSections(false);
    setMinimumHeight(lines_at_once * verticalHeader()->defaultSectionSize());
    on(this, &QTableWidget::cellClicked, [this](int row, int /*column*/) { go_to_row(row); });
    hide();
}

void WrongCellList::show_cells(std::vector<Cell> cells) {
    if (cells.size() == cells_.size() && !cells.empty()) return;  // nothing has come
    cells_ = std::move(cells);
    setRowCount(static_cast<int>(cells_.size()));
    for (int row = 0; const Cell& cell : cells_) {
        int column = 0;
        for (const std::string& text :
             {cell.name(), cell.sheet, cell.text, excel_batch::reason_of(cell, lang_)}) {
            auto* item = new QTableWidgetItem(qt(text));
            item->setToolTip(qt(text));
            setItem(row, column++, item);
        }
        ++row;
    }
    fit_columns(*this, columnCount(), widest_input);
    setVisible(!cells_.empty());
}

void WrongCellList::keyPressEvent(QKeyEvent* event) {
    const bool enters = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enters && currentRow() >= 0) return guarded(*this, [this] { go_to_row(currentRow()); });
    if (event->matches(QKeySequence::Copy))
        return QGuiApplication::clipboard()->setText(qt(excel_batch::cells_text(cells_, lang_)));
    QTableWidget::keyPressEvent(event);
}

void WrongCellList::go_to_row(int row) const { go_to_(cells_[static_cast<std::size_t>(row)]); }

}  // namespace zel
