#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "platform/errors.h"
#include "platform/message_box.h"

namespace zel {

/// Answers boxes from a queue and records them. With an empty queue it answers as a run without a
/// user does.
class ScriptedDialogs : public Dialogs {
public:
    Answer show(const Box& box) override {
        shown.push_back(box);
        if (while_shown) while_shown();
        if (answers.empty()) return box.unattended;
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    bool show_before_others(const Box& box) override {
        (void)show(box);
        return leaves_chains;
    }

    std::deque<Answer> answers;
    bool leaves_chains = false;  // the user wants no box that can be left with those before it
    std::vector<Box> shown;
    std::function<void()> while_shown;  // looks at what the user sees behind a box
};

/// Why `action` is refused; empty where it is not.
template <class Action>
[[nodiscard]] std::string refusal_of(Action action) {
    try {
        (void)action();
    } catch (const InputError& error) {
        return error.what();
    } catch (const OutputError& error) {
        return error.what();
    }
    return {};
}

}  // namespace zel
