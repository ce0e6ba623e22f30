#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text/text.h"

namespace zel {

enum class Icon { None, Stop, Warning, Question };
enum class Buttons { Ok, YesNo, SaveDiscardCancel };
enum class Answer { Ok, Yes, No, Save, Discard, Cancel };

/// "none", "stop", "warning" or "question".
[[nodiscard]] std::string_view name_of(Icon icon);

/// The wording of a message box in both languages, with places `{0}` in title and lines.
struct BoxText {
    Icon icon = Icon::None;
    Text title;
    Text lines;
    Buttons buttons = Buttons::Ok;
    /// The answer of a run without a user: the one that keeps the program running and the
    /// calculation going without changing stored data. A question's default button is `Answer::No`.
    Answer unattended = Answer::Ok;
};

/// A message box as a value, in one language.
struct Box {
    Icon icon = Icon::None;
    std::string title;
    std::vector<std::string> lines;
    Buttons buttons = Buttons::Ok;
    Answer unattended = Answer::Ok;

    friend bool operator==(const Box&, const Box&) = default;
};

/// The box of `text` in `lang`, its places filled by `values`.
[[nodiscard]] Box box_in(LangId lang, const BoxText& text,
                         std::initializer_list<std::string_view> values = {});

/// Who shows a box and brings the answer: a window, a recorder, or the script of a test.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    virtual Answer show(const Box& box) = 0;
    /// Shows a box that merely informs and that others follow; true where the user wants to see no
    /// more of them.
    virtual bool show_before_others(const Box& box) {
        (void)show(box);
        return false;
    }
};

/// Records every box and answers as a run without a user does.
class RecordingDialogs : public Dialogs {
public:
    Answer show(const Box& box) override;
    [[nodiscard]] const std::vector<Box>& shown() const { return shown_; }

private:
    std::vector<Box> shown_;
};

}  // namespace zel
