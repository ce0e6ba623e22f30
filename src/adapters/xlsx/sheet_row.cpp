#include "adapters/xlsx/sheet_row.h"

#include <string>

#include "adapters/xlsx/cell_name.h"
#include "adapters/xlsx/xml_tags.h"

namespace zel::xlsx {
namespace {

int column_of(const pugi::xml_node& cell, int row, int former) {
    const pugi::xml_attribute reference = cell.attribute("r");
    if (!reference && former == largest_column)
        refuse_damaged(
            {"hat mehr als 16384 Zellen in Zeile {0}", "has more than 16384 cells in row {0}"},
            {std::to_string(row)});
    if (!reference) return former + 1;
    const std::string name = shortened(reference.value());
    const auto place = cell_place(name);
    if (!place || name.find('$') != std::string::npos)
        refuse_damaged({"hat eine Zelle mit dem Namen {0}", "has a cell named {0}"}, {name});
    if (place->row != row)
        refuse_damaged({"Zelle {0} steht in Zeile {1}", "cell {0} stands in row {1}"},
                       {name, std::to_string(row)});
    if (place->column <= former)
        refuse_damaged({"Zelle {0} steht nicht an ihrem Platz", "cell {0} is out of order"},
                       {name});
    return place->column;
}

}  // namespace

void SheetRow::parse(int number, std::string_view element) {
    text_ = element;
    cells_.clear();
    // A blank text is a text.
    parse_tree(document_, element, "has a damaged row",
               pugi::parse_default | pugi::parse_ws_pcdata);
    int column = 0;
    std::size_t* open_end = nullptr;  // of the cell before, which ends where the next node begins
    for (const pugi::xml_node node : this->node().children()) {
        const bool is_element = node.type() == pugi::node_element;
        const std::size_t begin =
            static_cast<std::size_t>(node.offset_debug()) - (is_element ? 1 : 0);
        if (open_end != nullptr) *open_end = begin;
        open_end = nullptr;
        if (!is_element || local_name(node.name()) != "c") continue;
        column = column_of(node, number, column);
        open_end = &cells_.emplace_back(SheetCell{column, node, begin, 0}).end;
    }
    if (open_end != nullptr) *open_end = element.rfind("</");
}

}  // namespace zel::xlsx
