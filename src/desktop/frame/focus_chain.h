#pragma once

#include <QObject>
#include <string_view>

namespace zel {

/// Installed on an input, it lets tab and return lead to the next control of the fixed chain, and
/// return to the next input by tab order where the chain ends.
class FocusChain : public QObject {
public:
    /// The control behind another; empty at the end of a chain, and everywhere without one.
    using Chain = std::string_view (*)(std::string_view control);

    explicit FocusChain(
        QObject* parent, Chain chain = [](std::string_view) { return std::string_view{}; })
        : QObject(parent), chain_(chain) {}

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    Chain chain_;
};

}  // namespace zel
