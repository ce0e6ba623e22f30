#pragma once

#include <QLabel>

#include "messages/area_messages.h"

namespace zel {

/// Says inside an input, by a sign and where there is room a word, that a run needs it or would
/// refuse it. It takes no room of its own and no click; what it says is in the accessible
/// description of the input too.
class FieldMark : public QLabel {
public:
    explicit FieldMark(QWidget& input);

    void show_mark(Mark mark, LangId lang);
    /// What the accessible description says of the input before the mark.
    void tell_before(const QString& facts);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    void describe();

    QWidget& input_;
    QString facts_;
    QString sign_;
    QString word_;
};

}  // namespace zel
