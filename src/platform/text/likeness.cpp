#include "platform/text/likeness.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace zel {

std::size_t letters_apart(std::string_view a, std::string_view b) {
    std::vector<std::size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (const char letter : a) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < b.size(); ++j) {
            const std::size_t above = row[j + 1];
            row[j + 1] = std::min({above + 1, row[j] + 1, diagonal + (letter == b[j] ? 0U : 1U)});
            diagonal = above;
        }
    }
    return row.back();
}

std::vector<std::string> names_near(std::string_view wanted, const std::vector<std::string>& names,
                                    std::size_t most) {
    std::vector<std::pair<std::size_t, std::string>> all;
    for (const std::string& name : names) {
        const bool holds = name.find(wanted) != std::string::npos;
        all.emplace_back(holds ? 0 : letters_apart(wanted, name), name);
    }
    std::stable_sort(all.begin(), all.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    const std::size_t limit = !all.empty() && all.front().first == 0 ? 0 : wanted.size() / 2;
    std::vector<std::string> near;
    for (const auto& [apart, name] : all)
        if (near.size() < most && apart <= limit) near.push_back(name);
    return near;
}

}  // namespace zel
