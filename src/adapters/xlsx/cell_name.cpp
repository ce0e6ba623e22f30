#include "adapters/xlsx/cell_name.h"

#include <algorithm>

namespace zel::xlsx {
namespace {

constexpr int letters = 26;

void skip_dollar(std::string_view text, std::size_t& i) {
    if (i < text.size() && text[i] == '$') ++i;
}

}  // namespace

std::optional<CellPlace> cell_place(std::string_view name) {
    CellPlace place = {0, 0};
    std::size_t i = 0;
    skip_dollar(name, i);
    for (; i < name.size() && name[i] >= 'A' && name[i] <= 'Z'; ++i)
        if ((place.column = place.column * letters + (name[i] - 'A' + 1)) > largest_column)
            return std::nullopt;
    skip_dollar(name, i);
    for (; i < name.size() && name[i] >= '0' && name[i] <= '9'; ++i)
        if ((place.row = place.row * 10 + (name[i] - '0')) > largest_row) return std::nullopt;
    if (i != name.size() || place.row == 0 || place.column == 0) return std::nullopt;
    return place;
}

std::optional<CellArea> cell_area(std::string_view reference) {
    const std::size_t colon = reference.find(':');
    const auto first = cell_place(reference.substr(0, colon));
    const auto last =
        colon == std::string_view::npos ? first : cell_place(reference.substr(colon + 1));
    if (!first || !last) return std::nullopt;
    return CellArea{std::min(first->row, last->row), std::min(first->column, last->column),
                    std::max(first->row, last->row), std::max(first->column, last->column)};
}

std::string area_name(const CellArea& area) {
    std::string name = cell_name(area.first_row, area.first_column);
    if (area.first_row != area.last_row || area.first_column != area.last_column)
        name += ":" + cell_name(area.last_row, area.last_column);
    return name;
}

}  // namespace zel::xlsx
