#include "platform/message_box.h"

namespace zel {

std::string_view name_of(Icon icon) {
    switch (icon) {
        case Icon::None: return "none";
        case Icon::Stop: return "stop";
        case Icon::Warning: return "warning";
        case Icon::Question: return "question";
    }
    return "none";
}

Box box_in(LangId lang, const BoxText& text, std::initializer_list<std::string_view> values) {
    return {text.icon, fill(text.title.in(lang), values),
            lines_of(fill(text.lines.in(lang), values)), text.buttons, text.unattended};
}

Answer RecordingDialogs::show(const Box& box) {
    shown_.push_back(box);
    return box.unattended;
}

}  // namespace zel
