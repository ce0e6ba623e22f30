#include "desktop/short_circuit/result_view.h"

#include <QApplication>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/reading_width.h"
#include "desktop/pictures/picture_view.h"

namespace zel::short_circuit {
namespace {

constexpr int columns_per_row = 4;       // label, value, unit, gap
constexpr std::size_t rows_of_flow = 3;  // m, n and I_th of a flow stand side by side
constexpr int least_picture = 300;       // pixels of width
constexpr int widest_picture = 560;
constexpr int value_width = 86;  // pixels at least

QLabel* make_label(const QString& text) {
    QLabel* label = plain_label(text);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    return label;
}

constexpr double least_contrast = 3;  // of large letters

QColor shown(Colour colour) { return {red_of(colour), green_of(colour), blue_of(colour)}; }

/// The ground is given and the same in every theme: so is the ink.
void set_ground(QWidget& widget, Colour ground) {
    QPalette palette = widget.palette();
    palette.setColor(QPalette::Window, shown(ground));
    palette.setColor(QPalette::WindowText, Qt::black);
    widget.setPalette(palette);
    widget.setAutoFillBackground(true);
}

/// The ink is given: where it is faint on the ground of the theme, it gets a dark one.
void set_ink(QWidget& widget, Colour ink) {
    constexpr QColor dark(28, 32, 36);
    QPalette palette = QApplication::palette();
    const bool faint = contrast(shown(ink), palette.color(QPalette::Window)) < least_contrast;
    if (faint) palette.setColor(QPalette::Window, dark);
    palette.setColor(QPalette::WindowText, shown(ink));
    widget.setPalette(palette);
    widget.setAutoFillBackground(faint);
}

}  // namespace

ResultView::ResultView()
    : verdict_(make_label({})),
      groups_(new QVBoxLayout),
      print_(new QPushButton),
      columns_(new QBoxLayout(QBoxLayout::LeftToRight)),
      results_(new QWidget) {
    verdict_->setObjectName("verdict");
    verdict_->setMargin(4);
    QFont font = verdict_->font();
    font.setPointSizeF(font.pointSizeF() * 1.6);
    font.setBold(true);
    verdict_->setFont(font);
    auto* content = new QWidget;
    columns_->setContentsMargins(16, 16, 16, 16);
    columns_->setSpacing(18);
    content->setLayout(columns_);
    columns_->addWidget(results_, 1);
    auto* layout = new QVBoxLayout(results_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(14);
    layout->addWidget(verdict_, 0, Qt::AlignLeft);
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
    set_ink(*verdict_, page.withstands ? colour_of_strong : colour_of_weak);
    int number = 0;
    for (const VerdictGroup& group : page.groups) add_group(group, number++, lang);
    // The picture may stand beside the last one.
    QWidget* last = groups_->itemAt(groups_->count() - 1)->widget();
    last_ = new QWidget;
    auto* row = new QHBoxLayout(last_);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(last, 1, Qt::AlignTop);
    groups_->addWidget(last_);
    widget()->show();
}

void ResultView::show_picture(std::optional<Picture> picture) {
    delete picture_;
    if (!picture) return;
    picture_ = new PictureView(*std::move(picture));
    picture_->setObjectName("utilisation");
    place_picture();
}

void ResultView::show_picture_here(bool here) {
    picture_here_ = here;
    place_picture();
}

/// Beside the results, beside their last group, or below them all.
void ResultView::place_picture() {
    if (picture_.isNull()) return;
    columns_->addWidget(picture_, 0, Qt::AlignTop | Qt::AlignLeft);
    picture_->setVisible(picture_here_);
    results_->layout()->activate();  // it may have got other rows just now
    const int spacing = columns_->spacing();
    const int room = std::min(viewport()->width(), widget()->maximumWidth()) -
                     2 * columns_->contentsMargins().left() - spacing;
    const int beside = room - results_->minimumSizeHint().width();
    const int beside_last = room - last_->layout()->minimumSize().width();
    const bool is_beside = beside >= least_picture;
    const bool is_beside_last = !is_beside && beside_last >= least_picture;
    if (is_beside_last) last_->layout()->addWidget(picture_);
    const int width = is_beside ? beside : is_beside_last ? least_picture : room;
    picture_->setFixedWidth(std::min(width, widest_picture));
    picture_->setFixedHeight(picture_->heightForWidth(picture_->width()));
    columns_->setDirection(is_beside ? QBoxLayout::LeftToRight : QBoxLayout::TopToBottom);
}

void ResultView::resizeEvent(QResizeEvent* event) {
    AreaPage::resizeEvent(event);
    place_picture();
}

void ResultView::add_group(const VerdictGroup& group, int number, LangId lang) {
    auto* box = new QGroupBox(qt(group.caption, lang));
    box->setObjectName(QString("group_%1").arg(number));
    auto* grid = new QGridLayout(inside_of(*box));
    const bool large = letter_scale(*this) > 1;  // letters: three flows leave no room to spare
    grid->setHorizontalSpacing(large ? 6 : 10);
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
        grid->setColumnMinimumWidth(static_cast<int>(gap) * columns_per_row - 1, large ? 10 : 24);
    groups_->addWidget(box);
}

void ResultView::add_row(QGridLayout& grid, const VerdictRow& row, int line, int column,
                         const QString& name, LangId lang) {
    auto* value = make_label(qt(row.value));
    value->setObjectName(name);
    value->setMinimumWidth(value_width);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    value->setMargin(3);
    set_ground(*value, row.value.empty() ? colour_of_empty : white);
    grid.addWidget(make_label(qt(row.label, lang)), line, column);
    grid.addWidget(value, line, column + 1);
    grid.addWidget(make_label(qt(row.unit, lang)), line, column + 2);
}

}  // namespace zel::short_circuit
