#pragma once

#include <deque>
#include <vector>

#include "platform/message_box.h"

namespace zel {

/// Answers boxes from a queue and records them. With an empty queue it answers as a run without a
/// user does.
class ScriptedDialogs : public Dialogs {
public:
    Answer show(const Box& box) override {
        shown.push_back(box);
        if (answers.empty()) return box.unattended;
        const Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::deque<Answer> answers;
    std::vector<Box> shown;
};

}  // namespace zel
