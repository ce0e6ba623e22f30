#include "desktop/frame/group.h"

#include <QVBoxLayout>

namespace zel {

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

}  // namespace zel
