#include "platform/text/csv.h"

#include <algorithm>

#include "platform/errors.h"

namespace zel {
namespace {

constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";

constexpr Text quote_inside = {"ein Anführungszeichen steht in einer Zelle",
                               "a quote stands inside a cell"};
constexpr Text quote_open = {"ein Anführungszeichen ist nicht geschlossen",
                             "a quote is not closed"};

constexpr Text too_many_cells = {"mehr als {0} Zellen", "more than {0} cells"};

/// A cell takes up to a hundred times the memory of its one comma.
constexpr std::size_t most_cells = 1'000'000;

class CsvReader {
public:
    CsvReader(std::string_view text, char comma)
        : text_(text), cell_end_{comma, '"', '\r', '\n', '\0'} {
        if (text_.starts_with(byte_order_mark)) text_.remove_prefix(byte_order_mark.size());
    }

    std::vector<CsvRow> rows() {
        std::vector<CsvRow> rows;
        while (!text_.empty()) {
            if (text_.front() == '#')
                skip_line();
            else if (!take_line_end())
                rows.push_back(row());
        }
        return rows;
    }

private:
    /// A damaged row is its first line: the next one may be sound.
    CsvRow row() {
        const std::string_view begin = text_;
        CsvRow row{line_, {}, {}, nullptr};
        do {
            if (++cells_ > most_cells)
                throw InputError(Reason(too_many_cells, {std::to_string(most_cells)}));
            row.damage = take_cell(row.cells.emplace_back());
        } while (row.damage == nullptr && take(cell_end_[0]));
        if (row.damage == nullptr && !text_.empty() && text_.front() != '\n' &&
            text_.front() != '\r')
            row.damage = &quote_inside;
        if (row.damage != nullptr) {
            text_ = begin;
            line_ = row.line;
            text_.remove_prefix(std::min(text_.find_first_of("\r\n"), text_.size()));
        }
        row.text = begin.substr(0, begin.size() - text_.size());
        take_line_end();
        return row;
    }

    /// Gives what is wrong with the cell, null where it is sound.
    const Text* take_cell(std::string& cell) {
        if (take('"')) return take_quoted(cell);
        const std::size_t end = std::min(text_.find_first_of(cell_end_), text_.size());
        cell = text_.substr(0, end);
        text_.remove_prefix(end);
        return nullptr;
    }

    const Text* take_quoted(std::string& cell) {
        while (true) {
            const std::size_t end = text_.find('"');
            if (end == std::string_view::npos) return &quote_open;
            cell += text_.substr(0, end);
            text_.remove_prefix(end + 1);
            if (!take('"')) break;
            cell += '"';
        }
        line_ += static_cast<int>(std::count(cell.begin(), cell.end(), '\n'));
        return nullptr;
    }

    bool take(char c) {
        if (text_.empty() || text_.front() != c) return false;
        text_.remove_prefix(1);
        return true;
    }

    bool take_line_end() {
        if (text_.starts_with("\r\n")) text_.remove_prefix(1);
        if (!take('\n') && !take('\r')) return false;
        ++line_;
        return true;
    }

    void skip_line() {
        text_.remove_prefix(std::min(text_.find('\n'), text_.size()));
        take_line_end();
    }

    std::string_view text_;
    char cell_end_[5];
    std::size_t cells_ = 0;
    int line_ = 1;
};

std::string quoted(const std::string& cell) {
    std::string out = "\"";
    for (const char c : cell) out += c == '"' ? std::string("\"\"") : std::string(1, c);
    return out + "\"";
}

}  // namespace

std::vector<CsvRow> parse_csv(std::string_view text, char comma) {
    return CsvReader(text, comma).rows();
}

std::string csv_line(const std::vector<std::string>& cells, char comma) {
    const char special[] = {comma, '"', '\r', '\n', '\0'};
    std::string line;
    for (const std::string& cell : cells) {
        if (&cell != &cells.front()) line += comma;
        // A line that begins with "#" would be passed over, and so would the mark of a file.
        const bool plain =
            cell.find_first_of(special) == std::string::npos &&
            !(line.empty() && (cell.starts_with('#') || cell.starts_with(byte_order_mark)));
        line += plain ? cell : quoted(cell);
    }
    return line + "\n";
}

}  // namespace zel
