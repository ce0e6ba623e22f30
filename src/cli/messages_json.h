#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "cli/console.h"

namespace zel {

/// The boxes of a run as the `messages` of a document.
[[nodiscard]] nlohmann::ordered_json json_of(const std::vector<Message>& messages);

/// The document as it is printed, with a line end.
[[nodiscard]] std::string text_of(const nlohmann::ordered_json& document);

/// The JSON document of a refused input.
[[nodiscard]] std::string refusal_document(const std::vector<Message>& messages);

}  // namespace zel
