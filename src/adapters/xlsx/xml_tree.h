#pragma once

#include <cstddef>
#include <pugixml.hpp>
#include <string>
#include <string_view>

// Trees of small pieces of an XML text. A tree takes up to thirty times the memory of its text.

namespace zel::xlsx {

/// A row of 16384 cells that each hold a formula has half of it.
inline constexpr std::size_t largest_tree = 4U << 20U;

/// Makes `document` the tree of `xml`, a whole part or one element of it. Throws `WorkbookError`
/// (`Damaged`) where it is larger than that or broken; `what` is told in front: "has a damaged
/// row".
void parse_tree(pugi::xml_document& document, std::string_view xml, const std::string& what,
                unsigned flags = pugi::parse_default);

/// The first child of the local name `name`; null where there is none.
[[nodiscard]] pugi::xml_node child(const pugi::xml_node& parent, std::string_view name);

}  // namespace zel::xlsx
