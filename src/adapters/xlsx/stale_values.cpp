#include "adapters/xlsx/stale_values.h"

#include <algorithm>
#include <cctype>
#include <compare>
#include <utility>

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

// What reads more, or has more kinds, counts as reading anything: its value is dropped, and a
// spreadsheet program calculates it. Millions of formulas must not take hours.
constexpr std::size_t longest_formula = 32768;  // four bytes for each of 8192 characters
constexpr std::size_t most_references = 1024;   // as they stand in a formula
constexpr std::size_t most_reaches = 64;
constexpr std::size_t most_kinds = 65536;
constexpr int most_rounds = 100;  // from a changed column to one that reads it, against their order

/// A stretch of columns of one sheet.
struct Reach {
    std::size_t sheet;
    int first;
    int last;

    // NOLINTNEXTLINE(modernize-use-nullptr): a false finding at defaulted comparisons.
    friend auto operator<=>(const Reach&, const Reach&) = default;
};

/// Formulas of one column of a sheet that read the same: whole columns of them are of one kind.
struct FormulaKind {
    std::size_t sheet;
    int column;
    bool anything = false;
    std::vector<Reach> reaches{};

    // NOLINTNEXTLINE(modernize-use-nullptr)
    friend auto operator<=>(const FormulaKind&, const FormulaKind&) = default;
};

/// The kinds, with whether the values of their formulas are stale.
using FormulaKinds = std::map<FormulaKind, bool>;

/// `row` is the place of its row in the index of its sheet.
struct Formula {
    std::size_t row;
    const FormulaKinds::value_type* kind;

    [[nodiscard]] int column() const { return kind->first.column; }
    [[nodiscard]] bool stale() const { return kind->second; }
};

/// Reaches that touch become one.
void join(std::vector<Reach>& reaches) {
    std::sort(reaches.begin(), reaches.end());
    std::vector<Reach> joined;
    for (const Reach& reach : reaches) {
        if (!joined.empty() && joined.back().sheet == reach.sheet &&
            reach.first <= joined.back().last + 1)
            joined.back().last = std::max(joined.back().last, reach.last);
        else
            joined.push_back(reach);
    }
    reaches = std::move(joined);
}

bool has_formulas(std::string_view text) {
    for (std::size_t at = text.find('f'); at != std::string::npos; at = text.find('f', at + 1)) {
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
        for (const auto& [name, formula] : names) {
            FormulaReads& reads = names_[lower(name)];
            reads.anything = formula.size() > longest_formula;
            if (!reads.anything) reads = reads_of_formula(formula);
            // Formulas may name it a million times.
            if (reads.columns.size() > most_reaches) reads = {{}, {}, true};
        }
    }

    std::map<std::string, std::string> texts() {
        for (std::size_t i = 0; i < sheets_.size(); ++i) read_formulas(i);
        for (int round = 0; spread(round == most_rounds); ++round) {
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
        std::map<std::string, SharedFormula> shared;
        for (std::size_t r = 0; r < index.rows.size(); ++r) {
            const std::string_view element = index.rows[r].element.of(text);
            if (!has_formulas(element)) continue;
            row.parse(index.rows[r].number, element);
            for (const SheetCell& cell : row.cells())
                if (const pugi::xml_node f = child(cell.node, "f"))
                    add(sheet, r, cell.column, f, shared);
        }
    }

    /// A formula that others copy, moved.
    struct SharedFormula {
        int column = 0;
        FormulaReads reads;
        std::map<int, const FormulaKinds::value_type*> copies;  // by column
    };

    void add(std::size_t sheet, std::size_t row, int column, const pugi::xml_node& f,
             std::map<std::string, SharedFormula>& shared) {
        const std::string_view text = f.text().get();
        FormulaReads reads;
        reads.anything = text.size() > longest_formula;
        if (!reads.anything) reads = reads_of_formula(text);
        if (reads.columns.size() > most_references) reads = {{}, {}, true};
        if (std::string_view(f.attribute("t").value()) != "shared")
            return formulas_[sheet].push_back({row, kind_of(sheet, column, reads, 0)});
        const char* const key = f.attribute("si").value();
        if (!text.empty()) shared[key] = {column, reads, {}};
        const auto master = shared.find(key);
        if (master == shared.end()) {
            reads.anything = true;
            return formulas_[sheet].push_back({row, kind_of(sheet, column, reads, 0)});
        }
        auto& [first, its_reads, copies] = master->second;
        const FormulaKinds::value_type*& kind = copies[column];
        if (kind == nullptr) kind = kind_of(sheet, column, its_reads, column - first);
        formulas_[sheet].push_back({row, kind});
    }

    const FormulaKinds::value_type* kind_of(std::size_t sheet, int column,
                                            const FormulaReads& reads, int shift) {
        FormulaKind kind = {sheet, column, reads.anything};
        add_reaches(kind, sheet, reads, shift);
        for (const std::string& name : reads.names)
            if (!kind.anything) add_name(kind, name);
        join(kind.reaches);
        if (kind.reaches.size() > most_reaches ||
            (kinds_.size() >= most_kinds && !kinds_.contains(kind)))
            kind.anything = true;
        if (kind.anything) kind.reaches.clear();
        return &*kinds_.try_emplace(std::move(kind), false).first;
    }

    void add_reaches(FormulaKind& kind, std::size_t own, const FormulaReads& reads, int shift) {
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
            kind.reaches.push_back({sheet, std::min(first, last), std::max(first, last)});
        }
    }

    void add_name(FormulaKind& kind, const std::string& name) {
        const auto found = names_.find(lower(name));
        // An unknown word is a function without arguments, or a table.
        if (found == names_.end() || found->second.anything || !found->second.names.empty()) {
            kind.anything = true;
            return;
        }
        add_reaches(kind, no_sheet, found->second, 0);
        // Of many names that read the same few columns are left.
        if (kind.reaches.size() > most_reaches) join(kind.reaches);
        if (kind.reaches.size() > most_reaches) kind.anything = true;
    }

    [[nodiscard]] bool is_reached(const FormulaKind& kind) const {
        return kind.anything ||
               std::any_of(kind.reaches.begin(), kind.reaches.end(), [&](const Reach& reach) {
                   const auto& changed = changed_[reach.sheet];
                   const auto column = changed.lower_bound(reach.first);
                   return column != changed.end() && *column <= reach.last;
               });
    }

    /// Marks the kinds that changed columns reach, or all of them; true where more columns changed
    /// by it.
    bool spread(bool all) {
        bool found = false;
        for (auto& [kind, stale] : kinds_) {
            if (stale || sheets_[kind.sheet].kept_columns.contains(kind.column) ||
                !(all || is_reached(kind)))
                continue;
            stale = true;
            if (changed_[kind.sheet].insert(kind.column).second) found = true;
        }
        return found;
    }

    [[nodiscard]] bool has_stale(std::size_t sheet) const {
        const auto& formulas = formulas_[sheet];
        return std::any_of(formulas.begin(), formulas.end(),
                           [](const Formula& formula) { return formula.stale(); });
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
            if (!formula.stale()) continue;
            const Stretch& element = index.rows[formula.row].element;
            if (parsed != formula.row) row.parse(index.rows[formula.row].number, element.of(text));
            parsed = formula.row;
            const auto cell =
                std::lower_bound(row.cells().begin(), row.cells().end(), formula.column(),
                                 [](const SheetCell& c, int n) { return c.column < n; });
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
    FormulaKinds kinds_;
    std::vector<std::vector<Formula>> formulas_;  // by sheet
    std::vector<std::set<int>> changed_;          // columns by sheet
};

}  // namespace

std::map<std::string, std::string> without_stale_values(
    const std::vector<FormulaSheet>& sheets, const std::map<std::string, std::string>& names) {
    return StaleValues(sheets, names).texts();
}

}  // namespace zel::xlsx
