#include "desktop/frame/widgets.h"

#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "desktop/frame/window_memory.h"

namespace zel {

QLabel* plain_label(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

QLabel* plain_label(double scale, bool bold) {
    QLabel* label = plain_label();
    QFont font = label->font();
    font.setPointSizeF(font.pointSizeF() * scale);
    font.setBold(bold);
    label->setFont(font);
    return label;
}

QWidget* inside_of(QGroupBox& group) {
    QFont font = group.font();
    font.setBold(true);
    group.setFont(font);
    auto* inside = new QWidget;
    font.setBold(false);  // fonts are inherited: the content takes its own
    inside->setFont(font);
    auto* layout = new QVBoxLayout(&group);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(inside);
    return inside;
}

void make_scrolling(QScrollArea& area) {
    area.setWidgetResizable(true);
    area.setFrameShape(QFrame::NoFrame);
}

void size_window(QWidget& window, QSize wanted) {
    constexpr QSize frame(16, 48);  // pixels, of the window system around the window
    const QSize most = window.screen()->availableGeometry().size() - frame;
    wanted.setWidth(std::min(wanted.width(), most.width()));
    if (wanted.height() == 0) {
        const bool wraps = window.layout() != nullptr && window.layout()->hasHeightForWidth();
        wanted.setHeight(wraps ? window.layout()->totalHeightForWidth(wanted.width())
                               : window.sizeHint().height());
    }
    window.resize(wanted.width(), std::min(wanted.height(), most.height()));
}

namespace {

double luminance(const QColor& colour) {
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

}  // namespace

double contrast(const QColor& ink, const QColor& ground) {
    constexpr double stray_light = 0.05;
    const double first = luminance(ink) + stray_light;
    const double second = luminance(ground) + stray_light;
    return std::max(first, second) / std::min(first, second);
}

QPalette with_readable_grey(QPalette palette) {
    constexpr double least = 3;
    constexpr QColor grey(0x82, 0x82, 0x82);  // to be read on light and on dark
    constexpr std::pair<QPalette::ColorRole, QPalette::ColorRole> inks[] = {
        {QPalette::WindowText, QPalette::Window},
        {QPalette::ButtonText, QPalette::Button},
        {QPalette::Text, QPalette::Base}};
    for (const auto& [ink, ground] : inks) {
        const auto of = [&](QPalette::ColorRole role) {
            return palette.color(QPalette::Disabled, role);
        };
        if (contrast(of(ink), of(ground)) < least) palette.setColor(QPalette::Disabled, ink, grey);
    }
    return palette;
}

bool is_dark(const QPalette& palette) {
    constexpr int middle = 128;  // of 255
    return palette.color(QPalette::Window).lightness() < middle;
}

void set_text_colour(QWidget& window, Qt::GlobalColor colour) {
    const QPalette theme = QGuiApplication::palette();
    QPalette colours = window.palette();
    for (const auto group : {QPalette::Active, QPalette::Inactive})
        colours.setColor(group, QPalette::WindowText,
                         colour == Qt::black && is_dark(theme)
                             ? theme.color(group, QPalette::WindowText)
                             : QColor(colour));
    window.setPalette(colours);
}

void fit_columns(QTableView& table, int first, int widest) {
    const QHeaderView& header = *table.horizontalHeader();
    const int end = header.count() - (header.stretchLastSection() ? 1 : 0);
    if (!header.property(WindowMemory::widths_by_user).toBool()) first = 0;
    for (int column = first; column < end; ++column) {
        table.resizeColumnToContents(column);
        table.setColumnWidth(column, std::min(table.columnWidth(column), widest));
    }
}

WaitCursor::WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }

WaitCursor::~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }

NoteLine::NoteLine(Sign sign, const QString& name) : text_(plain_label()) {
    const auto icon =
        sign == Sign::Warning ? QStyle::SP_MessageBoxWarning : QStyle::SP_MessageBoxInformation;
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    auto* picture = new QLabel;
    picture->setPixmap(style()->standardIcon(icon).pixmap(size));
    text_->setObjectName(name);
    text_->setWordWrap(true);
    text_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    auto* layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(picture, 0, Qt::AlignTop);
    layout->addWidget(text_, 1);
    hide();
}

void NoteLine::tell(std::string_view text) {
    text_->setText(qt(text));
    setVisible(!text.empty());
}

}  // namespace zel
