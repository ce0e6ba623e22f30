#pragma once

#include <vector>

#include "short_circuit/short_circuit_case.h"

namespace zel {

/// Which inputs of the form take nothing at present.
struct ChoiceState {
    std::vector<NumberKey> closed_boxes;
    std::vector<ListKey> closed_lists;
    bool conductor_page_open = true;
};

/// What the choice of the entry `index` of a selection does to the other inputs: it opens some and
/// closes others. A closed box loses its text and its number, a closed list goes to index 0 without
/// what that choice would do. Each choice acts alone: "nein" opens Ik far from the generator too.
/// Does nothing for the list of materials and for an index without entry.
void apply_choice(ShortCircuitCase& c, ChoiceState& state, ListKey list, std::int16_t index);

}  // namespace zel
