#include "short_circuit/state_table.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>

namespace zel {
namespace {

using C = ShortCircuitCase;

constexpr NumberKey computed_boxes[] = {&C::IK2, &C::IK, &C::Kappa, &C::Tk1, &C::Tk2, &C::Tk3};
constexpr NumberKey given_boxes[] = {&C::Ith, &C::T_k};
constexpr NumberKey both_groups[] = {&C::IK2, &C::IK,  &C::Kappa, &C::Tk1,
                                     &C::Tk2, &C::Tk3, &C::Ith,   &C::T_k};
constexpr ListKey computed_lists[] = {&C::generatornah, &C::Anzahl_KS_fluesse};
constexpr NumberKey steady_current[] = {&C::IK};
constexpr NumberKey flow_1[] = {&C::Tk1};
constexpr NumberKey flows_1_2[] = {&C::Tk1, &C::Tk2};
constexpr NumberKey flows_1_2_3[] = {&C::Tk1, &C::Tk2, &C::Tk3};
constexpr NumberKey flows_2_3[] = {&C::Tk2, &C::Tk3};
constexpr NumberKey flow_3[] = {&C::Tk3};
constexpr NumberKey rated_current[] = {&C::Ithr};
constexpr NumberKey temperatures[] = {&C::theta_b, &C::theta_e};

constexpr ListKey limiter = &C::Strombegrenzschalter_ks;
constexpr ListKey vicinity = &C::generatornah;
constexpr ListKey flows = &C::Anzahl_KS_fluesse;
constexpr ListKey object = &C::Leiter_Bmittel;

enum class ConductorPage : std::uint8_t { AsItIs, Opens, Closes };
enum class Numbers : std::uint8_t { Cleared, Kept };  // behind closed boxes

struct StateRow {
    ListKey list;
    std::int16_t index;
    std::span<const NumberKey> opens;
    std::span<const NumberKey> closes;
    std::span<const ListKey> opens_lists;
    std::span<const ListKey> closes_lists;
    ConductorPage conductor_page = ConductorPage::AsItIs;
    Numbers numbers = Numbers::Cleared;
};

constexpr StateRow rows[] = {
    {limiter, without_limiter, computed_boxes, given_boxes, computed_lists, {}},
    {limiter, with_limiter, given_boxes, computed_boxes, {}, computed_lists},
    {limiter, 0, both_groups, {}, computed_lists, {}},
    {vicinity, generator_near, steady_current, {}},
    {vicinity, generator_far, {}, steady_current, {}, {}, ConductorPage::AsItIs, Numbers::Kept},
    {vicinity, 0, steady_current, {}},
    {flows, 1, flow_1, flows_2_3},
    {flows, 2, flows_1_2, flow_3},
    {flows, 3, flows_1_2_3, {}},
    {flows, 0, flows_1_2_3, {}},
    {object, bare_conductor, temperatures, rated_current, {}, {}, ConductorPage::Opens},
    {object, equipment, rated_current, temperatures, {}, {}, ConductorPage::Closes},
    // The temperatures that equipment has closed stay closed.
    {object, 0, rated_current, {}, {}, {}, ConductorPage::Opens},
};

template <class Member>
void open(std::vector<Member>& closed, Member member) {
    closed.erase(std::remove(closed.begin(), closed.end(), member), closed.end());
}

template <class Member>
void close(std::vector<Member>& closed, Member member) {
    open(closed, member);  // it stands there once
    closed.push_back(member);
}

void apply(const StateRow& row, ShortCircuitCase& c, ChoiceState& state) {
    for (const NumberKey box : row.opens) open(state.closed_boxes, box);
    for (const ListKey list : row.opens_lists) open(state.closed_lists, list);
    for (const NumberKey box : row.closes) {
        close(state.closed_boxes, box);
        (c.*box).text.clear();
        if (row.numbers == Numbers::Cleared) (c.*box).value = 0;
    }
    for (const ListKey list : row.closes_lists) {
        close(state.closed_lists, list);
        c.*list = 0;
    }
    if (row.conductor_page != ConductorPage::AsItIs)
        state.conductor_page_open = row.conductor_page == ConductorPage::Opens;
}

}  // namespace

void apply_choice(ShortCircuitCase& c, ChoiceState& state, ListKey list, std::int16_t index) {
    const auto* const row = std::find_if(std::begin(rows), std::end(rows), [&](const StateRow& r) {
        return r.list == list && r.index == index;
    });
    if (row != std::end(rows)) apply(*row, c, state);
}

}  // namespace zel
