#include "desktop/short_circuit/result_view.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace zel::short_circuit {
namespace {

constexpr int columns_per_row = 4;       // label, value, unit, gap
constexpr std::size_t rows_of_flow = 3;  // m, n and I_th of a flow stand side by side
constexpr int value_width = 90;          // pixels at least

QLabel* make_label(const QString& text) {
    QLabel* label = plain_label(text);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

void set_colour(QWidget& widget, QPalette::ColorRole role, Colour colour) {
    QPalette palette = widget.palette();
    palette.setColor(role, QColor(red_of(colour), green_of(colour), blue_of(colour)));
    widget.setPalette(palette);
}

}  // namespace

ResultView::ResultView()
    : verdict_(make_label({})), groups_(new QVBoxLayout), print_(new QPushButton) {
    verdict_->setObjectName("verdict");
    QFont font = verdict_->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    verdict_->setFont(font);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(16, 16, 16, 16);
    layout->setSpacing(14);
    layout->addWidget(verdict_);
    layout->addLayout(groups_);
    print_->setObjectName("Befehl6");
    print_->setAutoDefault(true);
    layout->addWidget(print_, 0, Qt::AlignLeft);
    layout->addStretch(1);
    groups_->setSpacing(14);
    set_content(content);
    content->hide();
}

void ResultView::clear() {
    while (QLayoutItem* item = groups_->takeAt(0)) {
        delete item->widget();
        delete item;
    }
    widget()->hide();
}

void ResultView::show_page(const VerdictPage& page, LangId lang) {
    clear();
    verdict_->setText(qt(page.verdict, lang));
    set_colour(*verdict_, QPalette::WindowText,
               page.withstands ? colour_of_strong : colour_of_weak);
    int number = 0;
    for (const VerdictGroup& group : page.groups) add_group(group, number++, lang);
    widget()->show();
}

void ResultView::add_group(const VerdictGroup& group, int number, LangId lang) {
    auto* box = new QGroupBox(qt(group.caption, lang));
    box->setObjectName(QString("group_%1").arg(number));
    auto* grid = new QGridLayout(inside_of(*box));
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(8);
    int line = 0;
    for (std::size_t i = 0; i < group.rows.size(); ++i) {
        const std::size_t beside = i < group.flow_rows ? i % rows_of_flow : 0;
        add_row(*grid, group.rows[i], line, static_cast<int>(beside) * columns_per_row,
                QString("value_%1_%2").arg(number).arg(i), lang);
        if (i + 1 >= group.flow_rows || beside + 1 == rows_of_flow) ++line;
    }
    grid->setColumnStretch(rows_of_flow * columns_per_row, 1);
    for (std::size_t gap = 1; gap < rows_of_flow; ++gap)
        grid->setColumnMinimumWidth(static_cast<int>(gap) * columns_per_row - 1, 24);
    groups_->addWidget(box);
}

void ResultView::add_row(QGridLayout& grid, const VerdictRow& row, int line, int column,
                         const QString& name, LangId lang) {
    auto* value = make_label(qt(row.value));
    value->setObjectName(name);
    value->setMinimumWidth(value_width);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setAutoFillBackground(true);
    value->setMargin(3);
    set_colour(*value, QPalette::Window, row.value.empty() ? colour_of_empty : white);
    grid.addWidget(make_label(qt(row.label, lang)), line, column);
    grid.addWidget(value, line, column + 1);
    grid.addWidget(make_label(qt(row.unit, lang)), line, column + 2);
}

}  // namespace zel::short_circuit
