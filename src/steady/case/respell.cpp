#include "steady/case/respell.h"

#include <algorithm>

#include "steady/case/case_fields.h"

namespace zel {

void respell(Entry& field, DecimalSeparator from, DecimalSeparator to) {
    if (parse_number(field.text, from))
        std::replace(field.text.begin(), field.text.end(), character(from), character(to));
}

void respell(CalcCase& c, DecimalSeparator from, DecimalSeparator to) {
    for (const std::string& name : all_field_names()) {
        const auto field = find_field(c, name);
        Entry* const* entry = field ? std::get_if<Entry*>(&*field) : nullptr;
        if (entry != nullptr) respell(**entry, from, to);
    }
}

}  // namespace zel
