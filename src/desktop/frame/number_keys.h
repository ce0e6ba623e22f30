#pragma once

#include <QObject>

#include "shell/session.h"

namespace zel {

/// Installed on a box, it lets only those keys type that the key filter of numeric fields passes.
/// Keys that edit (cursor, delete, copy, paste, undo) are not touched; a pasted text is judged when
/// the editing of the box is finished.
class NumberKeys : public QObject {
public:
    NumberKeys(QObject* parent, const Session& session) : QObject(parent), session_(session) {}

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const Session& session_;
};

}  // namespace zel
