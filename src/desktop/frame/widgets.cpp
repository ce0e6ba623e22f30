#include "desktop/frame/widgets.h"

#include <QGroupBox>
#include <QLabel>
#include <QScrollArea>
#include <QVBoxLayout>

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

}  // namespace zel
