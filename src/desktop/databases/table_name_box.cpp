#include "desktop/databases/table_name_box.h"

#include <QApplication>
#include <QValidator>

#include "desktop/frame/widgets.h"
#include "persistence/database/table_names.h"

namespace zel {
namespace {

QString without_refused(QString text) {
    while (const auto character = refused_character(text.toStdString()))
        text.remove(qt(*character));
    return text;
}

class NameRule : public QValidator {
public:
    using QValidator::QValidator;

    State validate(QString& text, int& cursor) const override {
        const QString kept = without_refused(text);
        if (kept == text) return Acceptable;
        QApplication::beep();
        cursor = static_cast<int>(without_refused(text.left(cursor)).size());
        text = kept;
        return Acceptable;
    }
};

}  // namespace

TableNameBox::TableNameBox() {
    setObjectName("Text1");
    setValidator(new NameRule(this));
}

}  // namespace zel
