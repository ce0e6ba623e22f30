#include "adapters/xlsx/sheet.h"

#include <algorithm>
#include <cctype>
#include <charconv>

#include "adapters/xlsx/cell_name.h"
#include "adapters/xlsx/xml_tree.h"

namespace zel::xlsx {
namespace {

/// The number of a row without taking the row apart; one without a number stands behind `former`.
int row_number(std::string_view tag, int former) {
    int number = former + 1;
    if (const auto attribute = attribute_of(tag, "r")) {
        const std::string_view digits = attribute->value.of(tag);
        const char* const end = digits.data() + digits.size();
        const auto read = std::from_chars(digits.data(), end, number);
        if (read.ec != std::errc{} || read.ptr != end || number < 1 || number > largest_row)
            refuse_damaged({"hat eine Zeile mit der Nummer {0}", "has a row numbered {0}"},
                           {shortened(digits)});
    }
    if (number > largest_row)
        refuse_damaged({"hat mehr als 1048576 Zeilen", "has more than 1048576 rows"});
    if (number <= former)
        refuse_damaged({"ihre Zeile {0} steht nicht an ihrem Platz", "its row {0} is out of order"},
                       {std::to_string(number)});
    return number;
}

/// Elements of columns each stand for some of their own, if not quite so in every program.
constexpr int most_styled_columns = 4 * largest_column;

/// Where the styles of several elements meet in a column, the first one holds.
void read_column_styles(std::string_view element, SheetIndex& index) {
    pugi::xml_document cols;
    parse_tree(cols, element, "has damaged columns");
    int styled = 0;
    for (const pugi::xml_node col : cols.first_child().children()) {
        const std::string_view style = col.attribute("style").value();
        if (style.empty()) continue;
        const int first = std::clamp(col.attribute("min").as_int(), 1, largest_column + 1);
        const int last = std::clamp(col.attribute("max").as_int(), 0, largest_column);
        styled += std::max(last - first + 1, 0);
        if (styled > most_styled_columns)
            refuse_damaged({"ihre Spaltenformate überdecken sich zu oft",
                            "the formats of its columns overlap too often"});
        for (int column = first; column <= last; ++column)
            index.column_styles.try_emplace(column, style);
    }
}

void read_merged_cells(std::string_view element, SheetIndex& index) {
    ChildWalk cells(element);
    while (const auto cell = cells.next()) {
        const std::string_view tag =
            element.substr(cell->tag.begin, cell->tag.end - cell->tag.begin);
        const auto attribute = attribute_of(tag, "ref");
        const std::string_view reference = attribute ? attribute->value.of(tag) : "";
        const auto area = cell_area(reference);
        if (!area)
            refuse_damaged({"hat verbundene Zellen {0}", "has merged cells {0}"},
                           {shortened(reference)});
        if (area->first_row != area->last_row || area->first_column != area->last_column)
            index.merged.push_back(*area);
    }
}

/// The prefix of a name, with its colon; it is given to new elements.
std::string prefix_of(std::string_view name) {
    const std::string_view prefix = name.substr(0, name.size() - local_name(name).size());
    const auto fits = [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || (c & 0x80) != 0 ||
               std::string_view("_-.:").find(c) != std::string_view::npos;
    };
    const bool begins = prefix.find_first_of("0123456789-.:") != 0;
    if (!begins || !std::all_of(prefix.begin(), prefix.end(), fits))
        refuse_damaged({"hat Elemente mit dem Präfix {0}", "has elements of the prefix {0}"},
                       {shortened(prefix)});
    return std::string(prefix);
}

/// The rows up to the end of the sheetData element, which was just opened.
void index_rows(std::string_view xml, TagWalk& walk, SheetIndex& index) {
    int former = 0;
    while (const auto tag = walk.next()) {
        if (tag->kind == TagKind::Close) {
            if (local_name(tag->name) != "sheetData")
                refuse_damaged({"ihre Zeilen enden mit {0}", "its rows end with {0}"},
                               {shortened(tag->name)});
            index.rows_part.end = tag->begin;
            index.data.end = tag->end;
            return;
        }
        const std::string_view element = element_of(xml, walk, *tag);
        if (local_name(tag->name) != "row") continue;
        former = row_number(xml.substr(tag->begin, tag->end - tag->begin), former);
        index.rows.push_back({former, {tag->begin, tag->begin + element.size()}});
    }
    refuse_damaged({"endet mitten in ihren Zeilen", "ends in the middle of its rows"});
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
    const auto style = column_styles.find(column);
    return style == column_styles.end() ? std::string_view() : style->second;
}

SheetIndex index_of_sheet(std::string_view xml) {
    require_utf8(xml);
    SheetIndex index;
    TagWalk walk(xml);
    for (bool first = true; const auto tag = walk.next(); first = false) {
        const std::string_view name = local_name(tag->name);
        if (first) index.prefix = prefix_of(tag->name);
        if (first || tag->kind == TagKind::Close) continue;
        if (name == "sheetData" && index.data.empty()) {
            index.data = {tag->begin, tag->end};
            index.rows_part = {tag->end, tag->end};
            if (tag->kind == TagKind::Open) index_rows(xml, walk, index);
            continue;
        }
        const std::string_view element = element_of(xml, walk, *tag);
        if (name == "dimension" && index.data.empty())
            index.dimension = {tag->begin, tag->begin + element.size()};
        if (name == "cols") read_column_styles(element, index);
        if (name == "mergeCells") read_merged_cells(element, index);
    }
    if (index.data.empty()) refuse_damaged({"hat keine Zellen", "has no cells"});
    return index;
}

Sheet::Sheet(std::string xml, const CellTexts& texts)
    : xml_(std::move(xml)), index_(index_of_sheet(xml_)), texts_(texts) {}

std::string Sheet::text(int row, int column) {
    const SheetIndex::Row* place = index_.find(row);
    if (place == nullptr) return {};
    if (row != parsed_row_) {
        parsed_row_ = 0;
        parsed_.parse(row, place->element.of(xml_));
        parsed_row_ = row;
    }
    const auto& cells = parsed_.cells();
    const auto cell = std::lower_bound(cells.begin(), cells.end(), column,
                                       [](const SheetCell& c, int n) { return c.column < n; });
    if (cell == cells.end() || cell->column != column) return {};
    return shortened(texts_.of(cell->node), longest_text);
}

}  // namespace zel::xlsx
