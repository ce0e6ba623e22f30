#include "forms/form.h"

#include <algorithm>
#include <utility>

namespace zel::forms {

const Row* row_of(std::span<const Section> sections, const FieldInfo& field) {
    for (const Section& section : sections)
        for (const Row& row : section.rows)
            if (row.field == &field) return &row;
    return nullptr;
}

void add_once(std::vector<Complaint>& complaints, Complaint complaint) {
    const bool there =
        std::any_of(complaints.begin(), complaints.end(),
                    [&](const Complaint& other) { return other.field == complaint.field; });
    if (!there) complaints.push_back(std::move(complaint));
}

bool is_empty(const FieldRef& field) {
    struct Look {
        bool operator()(const std::string* text) const { return text->empty(); }
        bool operator()(const Entry* number) const { return !number->given(); }
        bool operator()(const std::int16_t* choice) const {
            return *choice == 0 || *choice == empty_mark;
        }
        bool operator()(const bool* flag) const { return !*flag; }
        bool operator()(const double* number) const { return *number == 0; }
    };
    return std::visit(Look(), field);
}

}  // namespace zel::forms
