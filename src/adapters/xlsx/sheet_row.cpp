#include "adapters/xlsx/sheet_row.h"

#include <string>

#include "adapters/xlsx/cell_name.h"
#include "adapters/xlsx/xml_tags.h"

namespace zel::xlsx {
namespace {

int column_of(const pugi::xml_node& cell, int former) {
    const std::string_view name = cell.attribute("r").value();
    if (name.empty()) return former + 1;
    const auto place = cell_place(name);
    if (!place) refuse_damaged("has a cell named " + std::string(name));
    if (place->column <= former) refuse_damaged("cell " + std::string(name) + " is out of order");
    return place->column;
}

}  // namespace

pugi::xml_node child(const pugi::xml_node& parent, std::string_view name) {
    for (const pugi::xml_node node : parent.children())
        if (local_name(node.name()) == name) return node;
    return {};
}

void SheetRow::parse(std::string_view element) {
    text_ = element;
    cells_.clear();
    // A blank text is a text.
    const auto parsed = document_.load_buffer(
        element.data(), element.size(),
        pugi::parse_default | pugi::parse_ws_pcdata | pugi::parse_fragment, pugi::encoding_utf8);
    if (!parsed) refuse_damaged(std::string("has a damaged row: ") + parsed.description());
    int column = 0;
    std::size_t* open_end = nullptr;  // of the cell before, which ends where the next node begins
    for (const pugi::xml_node node : this->node().children()) {
        const bool is_element = node.type() == pugi::node_element;
        const std::size_t begin =
            static_cast<std::size_t>(node.offset_debug()) - (is_element ? 1 : 0);
        if (open_end != nullptr) *open_end = begin;
        open_end = nullptr;
        if (!is_element || local_name(node.name()) != "c") continue;
        column = column_of(node, column);
        open_end = &cells_.emplace_back(SheetCell{column, node, begin, 0}).end;
    }
    if (open_end != nullptr) *open_end = element.rfind("</");
}

}  // namespace zel::xlsx
