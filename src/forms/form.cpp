#include "forms/form.h"

namespace zel::forms {

const Row* row_of(std::span<const Section> sections, const FieldInfo& field) {
    for (const Section& section : sections)
        for (const Row& row : section.rows)
            if (row.field == &field) return &row;
    return nullptr;
}

}  // namespace zel::forms
