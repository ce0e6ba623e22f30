#include "platform/text/listing.h"

#include <algorithm>

#include "platform/text/utf8.h"

namespace zel {
namespace {

std::string padded(std::string_view text, std::size_t width) {
    const std::size_t own = width_of(text);
    return std::string(text) + std::string(own < width ? width - own : 0, ' ');
}

}  // namespace

void Listing::add(std::string_view label, std::string value) {
    rows_.emplace_back(label, std::move(value));
}

void Listing::add_caption(std::string_view caption) { rows_.emplace_back(caption, std::string()); }

std::string Listing::text() const {
    std::size_t width = 0;
    for (const auto& [label, value] : rows_)
        if (!value.empty()) width = std::max(width, width_of(label));
    std::string out;
    for (const auto& [label, value] : rows_)
        out += value.empty() ? "\n" + label + "\n" : "  " + padded(label, width + 2) + value + "\n";
    return out;
}

}  // namespace zel
