#include "adapters/xlsx/stale_values.h"

#include <algorithm>
#include <cctype>

#include "adapters/xlsx/formula_reads.h"
#include "adapters/xlsx/sheet.h"
#include "adapters/xlsx/sheet_row.h"
#include "adapters/xlsx/xml_tags.h"

namespace zel::xlsx {
namespace {

constexpr std::size_t no_sheet = static_cast<std::size_t>(-1);

std::string lower(std::string_view text) {
    std::string out(text);
    for (char& c : out) c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    return out;
}

/// A stretch of columns of one sheet.
struct Reach {
    std::size_t sheet;
    int first;
    int last;
};

/// A formula by what it reads; `row` is the place of its row in the index of its sheet.
struct Formula {
    std::size_t row;
    int column;
    std::vector<Reach> reaches;
    bool anything = false;
    bool stale = false;
};

bool has_formulas(std::string_view text) {
    for (std::size_t at = text.find("f"); at != text.npos; at = text.find("f", at + 1)) {
        const char before = at == 0 ? ' ' : text[at - 1];
        const char behind = at + 1 < text.size() ? text[at + 1] : ' ';
        if ((before == '<' || before == ':') && (behind == '>' || behind == ' ' || behind == '/'))
            return true;
    }
    return false;
}

class StaleValues {
public:
    StaleValues(const std::vector<FormulaSheet>& sheets,
                const std::map<std::string, std::string>& names)
        : sheets_(sheets), formulas_(sheets.size()), changed_(sheets.size()) {
        for (std::size_t i = 0; i < sheets.size(); ++i) {
            by_name_[lower(sheets[i].name)] = i;
            changed_[i] = sheets[i].changed_columns;
        }
        for (const auto& [name, formula] : names) names_[lower(name)] = reads_of_formula(formula);
    }

    std::map<std::string, std::string> texts() {
        for (std::size_t i = 0; i < sheets_.size(); ++i) read_formulas(i);
        while (spread()) {
        }
        std::map<std::string, std::string> texts;
        for (std::size_t i = 0; i < sheets_.size(); ++i)
            if (has_stale(i)) texts[sheets_[i].part] = text_without(i);
        return texts;
    }

private:
    void read_formulas(std::size_t sheet) {
        const std::string text = sheets_[sheet].text();
        if (!has_formulas(text)) return;
        const SheetIndex index = index_of_sheet(text);
        SheetRow row;
        std::map<std::string, std::pair<int, FormulaReads>> shared;  // with the master's column
        for (std::size_t r = 0; r < index.rows.size(); ++r) {
            const std::string_view element = index.rows[r].element.of(text);
            if (!has_formulas(element)) continue;
            row.parse(index.rows[r].number, element);
            for (const SheetCell& cell : row.cells())
                if (const pugi::xml_node f = child(cell.node, "f"))
                    add(sheet, r, cell.column, f, shared);
        }
    }

    void add(std::size_t sheet, std::size_t row, int column, const pugi::xml_node& f,
             std::map<std::string, std::pair<int, FormulaReads>>& shared) {
        const std::string_view text = f.text().get();
        const bool is_shared = std::string_view(f.attribute("t").value()) == "shared";
        const std::string key = f.attribute("si").value();
        FormulaReads reads = reads_of_formula(text);
        int shift = 0;
        if (is_shared && !text.empty()) shared[key] = {column, reads};
        if (is_shared && text.empty()) {
            // A copy of another formula, moved.
            const auto master = shared.find(key);
            reads.anything = master == shared.end();
            if (master != shared.end()) {
                reads = master->second.second;
                shift = column - master->second.first;
            }
        }
        Formula formula = {row, column, {}, reads.anything};
        add_reaches(formula, sheet, reads, shift);
        for (const std::string& name : reads.names) add_name(formula, name);
        formulas_[sheet].push_back(std::move(formula));
    }

    void add_reaches(Formula& formula, std::size_t own, const FormulaReads& reads, int shift) {
        for (const ColumnsRead& columns : reads.columns) {
            std::size_t sheet = own;
            if (!columns.sheet.empty()) {
                const auto found = by_name_.find(lower(columns.sheet));
                if (found == by_name_.end()) continue;
                sheet = found->second;
            }
            if (sheet == no_sheet) continue;
            const int first = columns.first + (columns.first_moves ? shift : 0);
            const int last = columns.last + (columns.last_moves ? shift : 0);
            formula.reaches.push_back({sheet, std::min(first, last), std::max(first, last)});
        }
    }

    void add_name(Formula& formula, const std::string& name) {
        const auto found = names_.find(lower(name));
        // An unknown word is a function without arguments, or a table.
        if (found == names_.end() || found->second.anything || !found->second.names.empty()) {
            formula.anything = true;
            return;
        }
        add_reaches(formula, no_sheet, found->second, 0);
    }

    [[nodiscard]] bool is_reached(const Formula& formula) const {
        return formula.anything ||
               std::any_of(formula.reaches.begin(), formula.reaches.end(), [&](const Reach& reach) {
                   const auto& changed = changed_[reach.sheet];
                   const auto column = changed.lower_bound(reach.first);
                   return column != changed.end() && *column <= reach.last;
               });
    }

    /// Marks the formulas that changed columns reach; true where there were new ones.
    bool spread() {
        bool found = false;
        for (std::size_t i = 0; i < sheets_.size(); ++i)
            for (Formula& formula : formulas_[i]) {
                const bool kept = sheets_[i].kept_columns.contains(formula.column);
                if (formula.stale || kept || !is_reached(formula)) continue;
                formula.stale = found = true;
                changed_[i].insert(formula.column);
            }
        return found;
    }

    [[nodiscard]] bool has_stale(std::size_t sheet) const {
        const auto& formulas = formulas_[sheet];
        return std::any_of(formulas.begin(), formulas.end(),
                           [](const Formula& formula) { return formula.stale; });
    }

    [[nodiscard]] std::string text_without(std::size_t sheet) const {
        const std::string text = sheets_[sheet].text();
        const SheetIndex index = index_of_sheet(text);
        std::string out;
        out.reserve(text.size());
        std::size_t copied = 0;
        SheetRow row;
        std::size_t parsed = no_sheet;
        for (const Formula& formula : formulas_[sheet]) {
            if (!formula.stale) continue;
            const Stretch& element = index.rows[formula.row].element;
            if (parsed != formula.row) row.parse(index.rows[formula.row].number, element.of(text));
            parsed = formula.row;
            const auto cell =
                std::find_if(row.cells().begin(), row.cells().end(),
                             [&](const SheetCell& c) { return c.column == formula.column; });
            const Stretch value = value_of(row.text(), *cell);
            out.append(text, copied, element.begin + value.begin - copied);
            copied = element.begin + value.end;
        }
        return out.append(text, copied);
    }

    /// Where the value of a cell stands in the text of its row.
    static Stretch value_of(std::string_view row, const SheetCell& cell) {
        const pugi::xml_node v = child(cell.node, "v");
        if (!v) return {cell.begin, cell.begin};
        const std::size_t begin = static_cast<std::size_t>(v.offset_debug()) - 1;
        TagWalk walk(row, begin);
        const auto open = walk.next();
        return {begin, begin + element_of(row, walk, *open).size()};
    }

    const std::vector<FormulaSheet>& sheets_;
    std::map<std::string, std::size_t> by_name_;
    std::map<std::string, FormulaReads> names_;
    std::vector<std::vector<Formula>> formulas_;  // by sheet
    std::vector<std::set<int>> changed_;          // columns by sheet
};

}  // namespace

std::map<std::string, std::string> without_stale_values(
    const std::vector<FormulaSheet>& sheets, const std::map<std::string, std::string>& names) {
    return StaleValues(sheets, names).texts();
}

}  // namespace zel::xlsx
