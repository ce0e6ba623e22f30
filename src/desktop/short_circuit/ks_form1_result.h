#pragma once

#include <QScrollArea>

#include "short_circuit/result_page.h"

class QGridLayout;
class QLabel;
class QVBoxLayout;

namespace zel {

/// Page 2 of the short-circuit form: the verdict in its colour, and the intermediate results by the
/// sections of the standard.
class KsResultView : public QScrollArea {
public:
    KsResultView();

    void show_page(const KsResultPage& page);
    /// Shows nothing, as before the first run and at every change of the page.
    void clear();

private:
    void add_group(const KsResultGroup& group, int number);
    static void add_row(QGridLayout& grid, const KsResultRow& row, int line, int column,
                        const QString& name);

    QLabel* verdict_;
    QVBoxLayout* groups_;
};

}  // namespace zel
