#include "compare/text_table.h"

#include <algorithm>

#include "platform/text/utf8.h"

namespace zel {
namespace {

std::string padded(const std::string& text, std::size_t width, bool to_right) {
    const std::size_t own = width_of(text);
    const std::string blanks(own < width ? width - own : 0, ' ');
    return to_right ? blanks + text : text + blanks;
}

}  // namespace

std::string text_table(const std::vector<std::vector<std::string>>& lines) {
    std::vector<std::size_t> widths;
    for (const auto& cells : lines) {
        widths.resize(std::max(widths.size(), cells.size()));
        for (std::size_t i = 0; i < cells.size() && cells.size() > 1; ++i)
            widths[i] = std::max(widths[i], width_of(cells[i]));
    }
    std::string text;
    for (const auto& cells : lines) {
        std::string line;
        for (std::size_t i = 0; i < cells.size(); ++i)
            line += (i > 0 ? "  " : "") + padded(cells[i], widths[i], i > 0);
        while (!line.empty() && line.back() == ' ') line.pop_back();
        text += line + "\n";
    }
    return text;
}

}  // namespace zel
