#include "cli/messages_json.h"

namespace zel {

using nlohmann::ordered_json;

ordered_json json_of(const std::vector<Message>& messages) {
    ordered_json list = ordered_json::array();
    for (const Message& message : messages) {
        ordered_json entry = {{"icon", name_of(message.box.icon)},
                              {"title", message.box.title},
                              {"lines", message.box.lines}};
        if (!message.field.empty()) entry["field"] = message.field;
        list.push_back(std::move(entry));
    }
    return list;
}

std::string text_of(const ordered_json& document) { return document.dump(2) + "\n"; }

std::string refusal_document(const std::vector<Message>& messages) {
    return text_of({{"input_valid", false}, {"messages", json_of(messages)}});
}

}  // namespace zel
