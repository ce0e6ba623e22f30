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

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void place();

    QWidget& input_;
    QString sign_;
    QString word_;
};

}  // namespace zel
