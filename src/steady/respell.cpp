#include "steady/respell.h"

#include <algorithm>

#include "steady/case_fields.h"

namespace zel {

void respell(CalcCase& c, DecimalSeparator from, DecimalSeparator to) {
    for (const std::string& name : all_field_names()) {
        const auto field = find_field(c, name);
        Entry* const* entry = field ? std::get_if<Entry*>(&*field) : nullptr;
        if (entry == nullptr || !parse_number((*entry)->text, from)) continue;
        std::string& text = (*entry)->text;
        std::replace(text.begin(), text.end(), character(from), character(to));
    }
}

}  // namespace zel
