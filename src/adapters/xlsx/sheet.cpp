#include "adapters/xlsx/sheet.h"

#include <algorithm>
#include <charconv>
#include <optional>

#include "adapters/xlsx/xml_tags.h"

namespace zel::xlsx {
namespace {

/// The number of a row without taking the row apart; 0 where the tag has none.
int row_number(std::string_view tag) {
    for (std::size_t at = tag.find("r="); at != std::string_view::npos;
         at = tag.find("r=", at + 1)) {
        const char before = tag[at - 1];
        if (before != ' ' && before != '\t' && before != '\n' && before != '\r') continue;
        int number = 0;
        std::from_chars(tag.data() + at + 3, tag.data() + tag.size(), number);
        return number;
    }
    return 0;
}

void read_column_styles(std::string_view element, SheetIndex& index) {
    pugi::xml_document cols;
    if (!cols.load_buffer(element.data(), element.size(),
                          pugi::parse_default | pugi::parse_fragment, pugi::encoding_utf8))
        refuse_damaged("has damaged columns");
    for (const pugi::xml_node col : cols.first_child().children())
        if (const std::string_view style = col.attribute("style").value(); !style.empty())
            index.column_styles.push_back(
                {col.attribute("min").as_int(), col.attribute("max").as_int(), std::string(style)});
}

/// The rows up to the end of the sheetData element, which was just opened.
void index_rows(std::string_view xml, TagWalk& walk, SheetIndex& index) {
    int former = 0;
    while (const auto tag = walk.next()) {
        if (tag->kind == TagKind::Close) {
            index.rows_part.end = tag->begin;
            index.data.end = tag->end;
            return;
        }
        const std::string_view element = element_of(xml, walk, *tag);
        if (local_name(tag->name) != "row") continue;
        const int given = row_number(xml.substr(tag->begin, tag->end - tag->begin));
        const int number = given == 0 ? former + 1 : given;
        if (number <= former)
            refuse_damaged("its row " + std::to_string(number) + " is out of order");
        former = number;
        index.rows.push_back({number, {tag->begin, tag->begin + element.size()}});
    }
    refuse_damaged("ends in the middle of its rows");
}

}  // namespace

const SheetIndex::Row* SheetIndex::find(int number) const {
    // Rows mostly stand one behind the other from the first on.
    const auto guess = static_cast<std::size_t>(number - 1);
    if (number > 0 && guess < rows.size() && rows[guess].number == number) return &rows[guess];
    const auto row = std::lower_bound(rows.begin(), rows.end(), number,
                                      [](const Row& r, int n) { return r.number < n; });
    return row == rows.end() || row->number != number ? nullptr : &*row;
}

std::string_view SheetIndex::style_of(int column) const {
    for (const auto& [first, last, style] : column_styles)
        if (column >= first && column <= last) return style;
    return {};
}

SheetIndex index_of_sheet(std::string_view xml) {
    // Row by row only UTF-8 can be cut.
    if (xml.starts_with("\xFE\xFF") || xml.starts_with("\xFF\xFE"))
        refuse_damaged("is written in UTF-16, which is not understood");
    SheetIndex index;
    TagWalk walk(xml);
    for (bool first = true; const auto tag = walk.next(); first = false) {
        const std::string_view name = local_name(tag->name);
        if (first) index.prefix = tag->name.substr(0, tag->name.size() - name.size());
        if (tag->kind == TagKind::Close) continue;
        if (name == "dimension")
            index.dimension = {tag->begin, tag->begin + element_of(xml, walk, *tag).size()};
        if (name == "cols") read_column_styles(element_of(xml, walk, *tag), index);
        if (name != "sheetData") continue;
        index.data = {tag->begin, tag->end};
        index.rows_part = {tag->end, tag->end};
        if (tag->kind == TagKind::Open) index_rows(xml, walk, index);
        return index;
    }
    refuse_damaged("has no cells");
}

Sheet::Sheet(std::string xml, const CellTexts& texts)
    : xml_(std::move(xml)), index_(index_of_sheet(xml_)), texts_(texts) {}

std::string Sheet::text(int row, int column) {
    if (row != former_row_) read_row(row);
    const auto cell = std::lower_bound(row_texts_.begin(), row_texts_.end(), column,
                                       [](const auto& c, int n) { return c.first < n; });
    return cell == row_texts_.end() || cell->first != column ? std::string() : cell->second;
}

void Sheet::read_row(int row) {
    former_row_ = 0;
    row_texts_.clear();
    if (const auto* place = index_.find(row)) {
        parsed_.parse(place->element.of(xml_));
        for (const SheetCell& cell : parsed_.cells())
            row_texts_.emplace_back(cell.column, texts_.of(cell.node));
    }
    former_row_ = row;
}

}  // namespace zel::xlsx
