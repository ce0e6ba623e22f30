#include "messages/box_chain.h"

namespace zel {

void BoxChain::collect(const std::function<void()>& body) {
    try {
        body();
    } catch (...) {
        show_waiting(false);
        throw;
    }
}

void BoxChain::show_waiting(bool more_follow) {
    while (shown_ < told_.size()) {
        const Box& box = told_[shown_++];
        if (left_) continue;
        if (more_follow || shown_ < told_.size())
            left_ = shown_by_.show_before_others(box);
        else
            (void)shown_by_.show(box);
    }
}

Answer BoxChain::show(const Box& box) {
    if (box.buttons == Buttons::Ok) {
        told_.push_back(box);
        return Answer::Ok;
    }
    show_waiting(true);
    told_.push_back(box);
    shown_ = told_.size();
    return shown_by_.show(box);
}

Answer BoxLog::show(const Box& box) {
    if (box.buttons == Buttons::Ok) told_.push_back(box);
    return shown_by_.show(box);
}

bool BoxLog::show_before_others(const Box& box) {
    told_.push_back(box);
    return shown_by_.show_before_others(box);
}

}  // namespace zel
