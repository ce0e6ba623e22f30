#include "platform/cell_name.h"

namespace zel {

std::string column_letters(int column) {
    constexpr int letters = 26;
    std::string text;
    for (; column > 0; column = (column - 1) / letters)
        text.insert(text.begin(), static_cast<char>('A' + (column - 1) % letters));
    return text;
}

std::string cell_name(int row, int column) { return column_letters(column) + std::to_string(row); }

}  // namespace zel
