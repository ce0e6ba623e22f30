#pragma once

#include <QPointer>
#include <optional>

#include "desktop/frame/area_frame.h"
#include "pictures/picture.h"
#include "short_circuit/result_page.h"

class QBoxLayout;
class QGridLayout;
class QLabel;
class QPushButton;
class QVBoxLayout;

namespace zel {
class PictureView;
}

namespace zel::short_circuit {

/// Page 2 of the short-circuit form: the verdict in its colour, and the intermediate results by the
/// sections of the standard.
class ResultView : public AreaPage {
public:
    ResultView();

    /// "Befehl6"
    [[nodiscard]] QPushButton& print_button() { return *print_; }
    void show_page(const VerdictPage& page, LangId lang);
    /// Its picture, beside the results or below them where the page is narrow.
    void show_picture(std::optional<Picture> picture);
    /// Whether the picture stands in the page, and not elsewhere.
    void show_picture_here(bool here);
    /// Shows nothing, as before the first run and at every change of the page.
    void clear();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void place_picture();
    void add_group(const VerdictGroup& group, int number, LangId lang);
    static void add_row(QGridLayout& grid, const VerdictRow& row, int line, int column,
                        const QString& name, LangId lang);

    QLabel* verdict_;
    QVBoxLayout* groups_;
    QPushButton* print_;
    QBoxLayout* columns_;
    QWidget* results_;
    QWidget* last_ = nullptr;  // the last group
    QPointer<PictureView> picture_;
    bool picture_here_ = true;
};

}  // namespace zel::short_circuit
