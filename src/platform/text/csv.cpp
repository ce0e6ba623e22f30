#include "platform/text/csv.h"

#include <algorithm>

#include "platform/errors.h"

namespace zel {
namespace {

class CsvReader {
public:
    explicit CsvReader(std::string_view text) : text_(text) {
        constexpr std::string_view byte_order_mark = "\xEF\xBB\xBF";
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
    CsvRow row() {
        CsvRow row{line_, {cell()}};
        while (take(',')) row.cells.push_back(cell());
        if (!text_.empty() && !take_line_end()) refuse("a quote stands inside a cell");
        return row;
    }

    std::string cell() {
        if (take('"')) return quoted_cell();
        const std::size_t end = std::min(text_.find_first_of(",\"\r\n"), text_.size());
        std::string cell(text_.substr(0, end));
        text_.remove_prefix(end);
        return cell;
    }

    std::string quoted_cell() {
        const int begin = line_;
        std::string cell;
        while (!text_.empty()) {
            if (take('"')) {
                if (!take('"')) return cell;
                cell += '"';
                continue;
            }
            if (text_.front() == '\n') ++line_;
            cell += text_.front();
            text_.remove_prefix(1);
        }
        line_ = begin;
        refuse("a quote is not closed");
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

    [[noreturn]] void refuse(const std::string& reason) const {
        throw InputError("line " + std::to_string(line_) + ": " + reason);
    }

    std::string_view text_;
    int line_ = 1;
};

std::string quoted(const std::string& cell) {
    std::string out = "\"";
    for (const char c : cell) out += c == '"' ? std::string("\"\"") : std::string(1, c);
    return out + "\"";
}

}  // namespace

std::vector<CsvRow> parse_csv(std::string_view text) { return CsvReader(text).rows(); }

std::string csv_line(const std::vector<std::string>& cells) {
    std::string line;
    for (const std::string& cell : cells) {
        if (&cell != &cells.front()) line += ',';
        // A line that begins with "#" would be passed over.
        const bool plain = cell.find_first_of(",\"\r\n") == std::string::npos &&
                           !(line.empty() && cell.starts_with('#'));
        line += plain ? cell : quoted(cell);
    }
    return line + "\n";
}

}  // namespace zel
