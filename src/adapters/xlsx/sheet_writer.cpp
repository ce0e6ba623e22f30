#include "adapters/xlsx/sheet_writer.h"

#include <algorithm>
#include <limits>

#include "adapters/xlsx/cell_name.h"
#include "adapters/xlsx/xml_tags.h"
#include "platform/text/number_text.h"

namespace zel::xlsx {
namespace {

constexpr int no_row = std::numeric_limits<int>::max();

std::string escaped(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '&')
            out += "&amp;";
        else if (c == '<')
            out += "&lt;";
        else if (c == '>')
            out += "&gt;";
        // XML has no other control characters.
        else if (static_cast<unsigned char>(c) >= 0x20 || c == '\n' || c == '\t')
            out += c;
    }
    return out;
}

/// `tag` without its attribute `name`.
std::string without_attribute(std::string_view tag, std::string_view name) {
    const auto attribute = attribute_of(tag, name);
    if (!attribute) return std::string(tag);
    return std::string(tag.substr(0, attribute->whole.begin)) +
           std::string(tag.substr(attribute->whole.end));
}

class SheetWriter {
public:
    SheetWriter(std::string_view xml, const SheetIndex& index, const CellEdits& edits)
        : xml_(xml), index_(index), edits_(edits) {}

    EditedSheet write() {
        constexpr std::size_t bytes_a_row = 250;
        out_.xml.reserve(xml_.size() + bytes_a_row * edits_.rows().size() + bytes_a_row);
        write_head();
        auto next_new = edits_.rows().begin();
        std::size_t copied = index_.rows_part.begin;
        for (const SheetIndex::Row& row : index_.rows) {
            for (; next_number(next_new) < row.number; ++next_new) {
                copy(copied, row.element.begin);
                copied = row.element.begin;
                write_new_row(next_new->first, next_new->second);
            }
            const CellEdits::Row* set = edits_.row(row.number);
            if (next_number(next_new) == row.number) ++next_new;
            if (set == nullptr && !edits_.clears(row.number)) continue;
            copy(copied, row.element.begin);
            copied = row.element.end;
            write_row(row, set);
        }
        copy(copied, index_.rows_part.end);
        for (; next_new != edits_.rows().end(); ++next_new)
            write_new_row(next_new->first, next_new->second);
        write_tail();
        return std::move(out_);
    }

private:
    [[nodiscard]] int next_number(std::map<int, CellEdits::Row>::const_iterator next) const {
        return next == edits_.rows().end() ? no_row : next->first;
    }

    void copy(std::size_t begin, std::size_t end) { out_.xml += xml_.substr(begin, end - begin); }

    [[nodiscard]] bool one_empty_tag() const { return index_.rows_part.begin == index_.data.end; }

    void write_head() {
        std::size_t copied = 0;
        if (!index_.dimension.empty()) {
            copy(0, index_.dimension.begin);
            copied = index_.dimension.end;
            out_.xml += widened_dimension();
        }
        if (!one_empty_tag()) return copy(copied, index_.rows_part.begin);
        copy(copied, index_.data.end);
        out_.xml.erase(out_.xml.rfind('/'), 1);
    }

    void write_tail() {
        if (one_empty_tag()) out_.xml += end_tag(*TagWalk(index_.data.of(xml_)).next());
        copy(index_.rows_part.end, xml_.size());
    }

    /// An element may have another prefix than the root.
    static std::string end_tag(const Tag& open) { return "</" + std::string(open.name) + ">"; }

    /// Some readers trust the area that a sheet names as the one in use.
    [[nodiscard]] std::string widened_dimension() const {
        const std::string_view element = index_.dimension.of(xml_);
        const std::size_t quote = element.find("ref=");
        if (quote == std::string_view::npos) return std::string(element);
        const std::size_t begin = quote + 5;
        const std::size_t end = element.find(element[quote + 4], begin);
        auto area = cell_area(element.substr(begin, end - begin));
        if (!area) return std::string(element);
        for (const auto& [row, cells] : edits_.rows()) {
            if (cells.empty()) continue;
            area->first_row = std::min(area->first_row, row);
            area->last_row = std::max(area->last_row, row);
            area->first_column = std::min(area->first_column, cells.begin()->first);
            area->last_column = std::max(area->last_column, cells.rbegin()->first);
        }
        return std::string(element.substr(0, begin)) + area_name(*area) +
               std::string(element.substr(end));
    }

    void write_new_row(int number, const CellEdits::Row& cells) {
        if (cells.empty()) return;
        out_.xml += "<" + index_.prefix + "row r=\"" + std::to_string(number) + "\">";
        for (const auto& [column, content] : cells) write_new_cell(number, column, content, {});
        out_.xml += "</" + index_.prefix + "row>";
    }

    void write_row(const SheetIndex::Row& row, const CellEdits::Row* set) {
        parsed_.parse(row.number, row.element.of(xml_));
        const std::string_view text = parsed_.text();
        const auto& cells = parsed_.cells();
        const Tag tag = *TagWalk(text).next();
        const std::size_t tag_end = tag.end;
        write_row_tag(text.substr(0, tag_end), set);
        const pugi::xml_node node = parsed_.node();
        const bool own_format = node.attribute("customFormat").as_bool();
        const std::string_view style = own_format ? node.attribute("s").value() : "";

        static const CellEdits::Row nothing;
        const CellEdits::Row& edits = set == nullptr ? nothing : *set;
        auto next = edits.begin();
        std::size_t copied = tag_end;
        for (const SheetCell& cell : cells) {
            if (next != edits.end() && next->first < cell.column) {
                out_.xml += text.substr(copied, cell.begin - copied);
                copied = cell.begin;
            }
            for (; next != edits.end() && next->first < cell.column; ++next)
                write_new_cell(row.number, next->first, next->second, style);
            const CellContent* content = edits_.find(row.number, cell.column);
            if (next != edits.end() && next->first == cell.column) ++next;
            if (content == nullptr || is_empty_already(cell, *content)) continue;
            out_.xml += text.substr(copied, cell.begin - copied);
            copied = cell.end;
            write_over(row.number, cell, *content);
        }
        const std::size_t close = cells.empty() && text.ends_with("/>")
                                      ? text.size()
                                      : std::max(copied, text.rfind("</"));
        out_.xml += text.substr(copied, close - copied);
        for (; next != edits.end(); ++next)
            write_new_cell(row.number, next->first, next->second, style);
        out_.xml +=
            close == text.size() && set != nullptr ? end_tag(tag) : std::string(text.substr(close));
    }

    /// The columns that a row spans may be left out, but not be too few.
    void write_row_tag(std::string_view tag, const CellEdits::Row* set) {
        if (set == nullptr) {
            out_.xml += tag;
            return;
        }
        std::string open = without_attribute(tag, "spans");
        if (open.ends_with("/>")) open.erase(open.size() - 2, 1);
        out_.xml += open;
    }

    static bool is_empty_already(const SheetCell& cell, const CellContent& content) {
        return std::holds_alternative<std::monostate>(content) && !cell.node.first_child();
    }

    void write_over(int row, const SheetCell& cell, const CellContent& content) {
        for (const pugi::xml_node part : cell.node.children())
            if (local_name(part.name()) == "f") lose_formula(row, cell.column, part);
        std::string attributes = " r=\"" + cell_name(row, cell.column) + "\"";
        for (const pugi::xml_attribute attribute : cell.node.attributes()) {
            const std::string_view name = attribute.name();
            if (name == "s" || name == "ph")
                attributes += " " + std::string(name) + "=\"" + escaped(attribute.value()) + "\"";
        }
        write_cell(attributes, content);
    }

    void write_new_cell(int row, int column, const CellContent& content,
                        std::string_view row_style) {
        std::string attributes = " r=\"" + cell_name(row, column) + "\"";
        const std::string_view style = row_style.empty() ? index_.style_of(column) : row_style;
        if (!style.empty()) attributes += " s=\"" + std::string(style) + "\"";
        write_cell(attributes, content);
    }

    void write_cell(const std::string& attributes, const CellContent& content) {
        const std::string& x = index_.prefix;
        if (const auto* number = std::get_if<double>(&content)) {
            out_.xml += "<" + x + "c" + attributes + "><" + x + "v>" + exact_number(*number) +
                        "</" + x + "v></" + x + "c>";
        } else if (const auto* text = std::get_if<std::string>(&content)) {
            out_.xml += "<" + x + "c" + attributes + " t=\"inlineStr\"><" + x + "is><" + x +
                        "t xml:space=\"preserve\">" + escaped(*text) + "</" + x + "t></" + x +
                        "is></" + x + "c>";
        } else {
            out_.xml += "<" + x + "c" + attributes + "/>";
        }
    }

    /// A formula that fills an area may only go together with all cells of it.
    void lose_formula(int row, int column, const pugi::xml_node& formula) {
        out_.lost_formula = true;
        const std::string_view reference = formula.attribute("ref").value();
        if (reference.empty()) return;
        const auto area = cell_area(reference);
        if (!area)
            refuse_damaged({"die Formel in {0} füllt {1}", "the formula in {0} fills {1}"},
                           {cell_name(row, column), shortened(reference)});
        if (edits_.clears(*area)) return;
        for (int r = area->first_row; r <= area->last_row; ++r)
            for (int c = area->first_column; c <= area->last_column; ++c)
                if (edits_.find(r, c) == nullptr)
                    throw WorkbookError(WorkbookFault::Entwined,
                                        "the formula in " + cell_name(row, column) + " fills " +
                                            std::string(reference) + ", but " + cell_name(r, c) +
                                            " is not a cell for results");
    }

    std::string_view xml_;
    const SheetIndex& index_;
    const CellEdits& edits_;
    EditedSheet out_;
    SheetRow parsed_;
};

}  // namespace

EditedSheet edited_sheet(std::string_view xml, const SheetIndex& index, const CellEdits& edits) {
    return SheetWriter(xml, index, edits).write();
}

}  // namespace zel::xlsx
