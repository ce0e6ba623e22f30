#pragma once

#include "desktop/frame/area_frame.h"
#include "short_circuit/result_page.h"

class QGridLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace zel::short_circuit {

/// Page 2 of the short-circuit form: the verdict in its colour, and the intermediate results by the
/// sections of the standard.
class ResultView : public AreaPage {
public:
    ResultView();

    /// "Befehl6"
    [[nodiscard]] QPushButton& print_button() { return *print_; }
    void show_page(const VerdictPage& page, LangId lang);
    /// Shows nothing, as before the first run and at every change of the page.
    void clear();

private:
    void add_group(const VerdictGroup& group, int number, LangId lang);
    static void add_row(QGridLayout& grid, const VerdictRow& row, int line, int column,
                        const QString& name, LangId lang);

    QLabel* verdict_;
    QVBoxLayout* groups_;
    QPushButton* print_;
};

}  // namespace zel::short_circuit
