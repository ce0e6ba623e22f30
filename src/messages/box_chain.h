#pragma once

#include <functional>
#include <vector>

#include "platform/message_box.h"

namespace zel {

/// The boxes that one event tells one after the other, in their order. Each but the last can be
/// left with those behind it, as far as they merely inform; a question is always asked.
class BoxChain : public Dialogs {
public:
    explicit BoxChain(Dialogs& shown_by) : shown_by_(shown_by) {}

    /// Runs `body`, whose boxes come here. They wait until `show_waiting`, since nobody knows
    /// before whether another follows; what `body` throws comes after them.
    void collect(const std::function<void()>& body);
    /// Shows the boxes that wait. `more_follow` says that others come behind them.
    void show_waiting(bool more_follow);

    /// A question is asked at once, behind the boxes that wait.
    Answer show(const Box& box) override;

    /// All that was told, shown or not.
    [[nodiscard]] const std::vector<Box>& told() const { return told_; }

private:
    Dialogs& shown_by_;
    std::vector<Box> told_;
    std::size_t shown_ = 0;  // of these
    bool left_ = false;      // the user wants no more of them
};

/// Shows boxes as they come, and keeps those that merely inform.
class BoxLog : public Dialogs {
public:
    explicit BoxLog(Dialogs& shown_by) : shown_by_(shown_by) {}

    Answer show(const Box& box) override;
    bool show_before_others(const Box& box) override;
    [[nodiscard]] const std::vector<Box>& told() const { return told_; }

private:
    Dialogs& shown_by_;
    std::vector<Box> told_;
};

}  // namespace zel
