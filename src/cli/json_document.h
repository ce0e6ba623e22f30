#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "cli/console.h"

// Parts that the JSON documents of all commands have in common.

namespace zel {

/// The number, or null for none.
[[nodiscard]] nlohmann::ordered_json json_of(const std::optional<double>& value);

[[nodiscard]] nlohmann::ordered_json json_of(const std::vector<Message>& messages);

/// The document as text, with a line end.
[[nodiscard]] std::string text_of(const nlohmann::ordered_json& document);

/// The JSON document of a refused input.
[[nodiscard]] std::string refusal_document(const std::vector<Message>& messages);

}  // namespace zel
