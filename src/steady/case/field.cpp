#include "steady/case/field.h"

#include <algorithm>

namespace zel {
namespace {

std::string_view bare(std::string_view label) {
    const std::size_t last = label.find_last_not_of(" :");
    return last == std::string_view::npos ? std::string_view{} : label.substr(0, last + 1);
}

}  // namespace

Text bare_label_of(const FieldInfo& field) { return {bare(field.label.de), bare(field.label.en)}; }

Text long_label_of(const FieldInfo& field) {
    return field.long_label.de.empty() ? bare_label_of(field) : field.long_label;
}

std::string_view long_unit_of(const FieldInfo& field) {
    return field.long_unit.empty() ? field.unit : field.long_unit;
}

void respell(Entry& field, DecimalSeparator from, DecimalSeparator to) {
    if (parse_number(field.text, from))
        std::replace(field.text.begin(), field.text.end(), character(from), character(to));
}

void respell(const std::vector<FieldOf>& fields, DecimalSeparator from, DecimalSeparator to) {
    for (const FieldOf& field : fields)
        if (Entry* const* entry = std::get_if<Entry*>(&field.value)) respell(**entry, from, to);
}

}  // namespace zel
