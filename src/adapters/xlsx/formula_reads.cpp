#include "adapters/xlsx/formula_reads.h"

#include <algorithm>
#include <cctype>
#include <optional>

#include "adapters/xlsx/cell_name.h"

namespace zel::xlsx {
namespace {

bool is_word(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return std::isalnum(byte) != 0 || byte >= 0x80 || c == '_' || c == '.' || c == '$' || c == '\\';
}

bool is_number(std::string_view word) {
    return !word.empty() && word.find_first_not_of("$0123456789.") == std::string::npos;
}

struct Column {
    int number;
    bool moves;
};

/// The column of "AH", "$AH" or "$AH$5"; nothing for another word.
std::optional<Column> column_of(std::string_view word) {
    const bool moves = !word.starts_with('$');
    const std::size_t letters = word.find_first_not_of('$');
    if (letters == std::string::npos) return std::nullopt;
    const std::size_t digits = word.find_first_of("$0123456789", letters);
    const std::string_view name = word.substr(letters, digits - letters);
    const auto place = cell_place(std::string(name) + "1");
    if (!place) return std::nullopt;
    if (digits != std::string::npos && !cell_place(word)) return std::nullopt;
    return Column{place->column, moves};
}

bool has_row(std::string_view word) {
    return word.find_first_of("0123456789") != std::string::npos;
}

/// Walks the words of a formula.
class Reader {
public:
    explicit Reader(std::string_view formula) : text_(formula) {}

    FormulaReads read() {
        while (at_ < text_.size()) {
            const char c = text_[at_];
            if (c == '"')
                skip_quoted('"');
            else if (c == '\'')
                sheet_ = skip_quoted('\''), take_sheet();
            else if (c == '[')
                take_bracket();
            else if (is_word(c))
                take_word();
            else
                ++at_;
        }
        return std::move(out_);
    }

private:
    [[nodiscard]] char next() const { return at_ < text_.size() ? text_[at_] : '\0'; }

    /// The text between quotes; two of them stand for one.
    std::string skip_quoted(char quote) {
        std::string inside;
        for (++at_; at_ < text_.size(); ++at_) {
            if (text_[at_] == quote) {
                if (at_ + 1 >= text_.size() || text_[at_ + 1] != quote) break;
                ++at_;
            }
            inside += text_[at_];
        }
        ++at_;
        return inside;
    }

    /// "[1]Sheet!A1" is of another workbook; other brackets are parts of a table.
    void take_bracket() {
        const std::size_t end = text_.find(']', at_);
        const std::string_view inside = text_.substr(at_ + 1, end - at_ - 1);
        const bool other_workbook = is_number(inside);
        if (!other_workbook) out_.anything = true;
        other_workbook_ = other_workbook;
        at_ = end == std::string::npos ? text_.size() : end + 1;
    }

    /// Behind the name of a sheet. One of several sheets, or of another workbook, is not told
    /// apart.
    void take_sheet() {
        if (next() != '!') return;
        ++at_;
        if (sheet_.find('[') != std::string::npos) other_workbook_ = true;
        if (sheet_.find(':') != std::string::npos) out_.anything = true;
    }

    std::string_view word() {
        const std::size_t begin = at_;
        while (at_ < text_.size() && is_word(text_[at_])) ++at_;
        return text_.substr(begin, at_ - begin);
    }

    void take_word() {
        const std::string_view first = word();
        if (next() == '!') {
            sheet_ = first;
            return take_sheet();
        }
        if (next() == '(') {
            if (first.ends_with("INDIRECT")) out_.anything = true;
            return end_of_reference();
        }
        const std::size_t behind = at_;
        std::string_view second;
        if (next() == ':') {
            ++at_;
            if (is_word(next())) second = word();
        }
        if (!take_reference(first, second)) {
            at_ = behind;
            // A name does not begin with a digit.
            const bool constant = std::isdigit(static_cast<unsigned char>(first.front())) != 0 ||
                                  first.front() == '.' || first == "TRUE" || first == "FALSE";
            if (!constant && !other_workbook_) out_.names.emplace_back(first);
            // "Sheet1:Sheet3!A1" names sheets one behind the other.
            if (next() == ':') out_.anything = out_.anything || !constant;
        }
        end_of_reference();
    }

    bool take_reference(std::string_view first, std::string_view second) {
        const auto from = column_of(first);
        const auto to = column_of(second);
        ColumnsRead columns = {sheet_, 1, largest_column, false, false};
        if (is_number(first) && is_number(second)) {
            // Whole rows.
        } else if (from && to && has_row(first) == has_row(second)) {
            columns = {sheet_, from->number, to->number, from->moves, to->moves};
        } else if (from && second.empty() && has_row(first)) {
            columns = {sheet_, from->number, from->number, from->moves, from->moves};
        } else {
            return false;
        }
        if (columns.first > columns.last) {
            std::swap(columns.first, columns.last);
            std::swap(columns.first_moves, columns.last_moves);
        }
        if (!other_workbook_) out_.columns.push_back(std::move(columns));
        return true;
    }

    void end_of_reference() {
        sheet_.clear();
        other_workbook_ = false;
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::string sheet_;
    bool other_workbook_ = false;
    FormulaReads out_;
};

}  // namespace

FormulaReads reads_of_formula(std::string_view formula) { return Reader(formula).read(); }

}  // namespace zel::xlsx
