#pragma once

#include <QObject>

namespace zel {

/// Installed on an input, it lets tab and return lead to the next control of the fixed chain, and
/// return to the next input by tab order where the chain ends.
class FocusChain : public QObject {
public:
    using QObject::QObject;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace zel
