#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "platform/message_box.h"
#include "steady/calc_case.h"
#include "workflow/steady_methods.h"

// For each check of the steady input a fault that it refuses, and the box that it then shows.

namespace zel::steady_faults {

using Methods = std::vector<Method>;

inline const Methods every(all_methods.begin(), all_methods.end());
inline const Methods overhead = {Method::TB601, Method::TB207, Method::Webs, Method::Kirn};
inline const Methods webs_kirn = {Method::Webs, Method::Kirn};

inline bool has(const Methods& methods, Method method) {
    return std::find(methods.begin(), methods.end(), method) != methods.end();
}

/// A case that passes: the conductor temperature is given, and so is every number.
CalcCase complete(const Methods& methods);

/// The double keeps its former value, as in a field that the user has emptied.
template <auto field>
void blank(CalcCase& c) {
    (c.*field).text.clear();
}

inline void set(Entry& field, double value) { field = {std::to_string(value), value}; }
inline void set(std::int16_t& field, std::int16_t value) { field = value; }

template <auto field, int value>
void becomes(CalcCase& c) {
    set(c.*field, value);
}

/// Title, and the lines before and after those of the check.
struct Ending {
    Text title;
    Text before;
    Text after;
};

struct Fault {
    int number;       // of the check
    Methods methods;  // those whose case it spoils
    void (*spoil)(CalcCase&);
    const Ending* ending;
};

struct FaultRow {
    Fault fault;
    Text lines;
};

/// In the order of the checks. Number 39 is missing, since no case gets as far.
std::span<const FaultRow> rows();

Box expected_box(const FaultRow& row, LangId lang);

/// Of the check that no case reaches.
extern const FaultRow unreachable_row;

}  // namespace zel::steady_faults
