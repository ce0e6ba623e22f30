#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "steady/case/case_fields.h"
#include "steady/case/method.h"
#include "workflow/rules/rule_tables.h"

// The steady input check: its gate, what it says of a conductor alone, and its rows.

namespace zel {

/// `S_Eingabepruefung_steady`, the gate before any steady calculation: walks a fixed list of checks
/// and gives the box of the first that refuses, or nothing where the case may run. The case stays
/// as it is. A check that belongs to a method applies only where that method is selected.
[[nodiscard]] std::optional<Box> S_Eingabepruefung_steady(const CalcCase& c, LangId lang);

/// Whether `method` is one for conductors of this kind: the busbar method for tubes, the others for
/// the rest. A kind that is not told goes with every method.
[[nodiscard]] bool is_for_kind(const CalcCase& c, Method method);

/// Why `method` cannot run with the conductor of `c`, by those checks of the steady input check
/// that are about the conductor: the item of each in one line, such as "Core data: core diameter".
/// Empty where the method can run. The other fields of `c` and its selection of methods play no
/// part.
[[nodiscard]] std::vector<std::string> missing_for(const CalcCase& c, Method method, LangId lang);

}  // namespace zel

/// The rows. Their order is behaviour: only the first refusal is shown.
namespace zel::steady_check {

/// The place of a check is the input by which it is met.
using Rule = zel::Rule<CalcCase, FieldKey>;
using Check = zel::Check<CalcCase, FieldKey>;

/// The methods and what is typed into the forms.
[[nodiscard]] std::span<const Check> input_checks();

/// Those of them that the kind of the conductor goes with the methods.
[[nodiscard]] std::span<const Check> kind_checks();

/// The data of the conductor, and whether they go with the methods.
[[nodiscard]] std::span<const Check> conductor_checks();

/// The first check that refuses the case, or null where it may run.
[[nodiscard]] const Check* first_refusal(const CalcCase& c);

/// All checks that refuse the case, in their order.
[[nodiscard]] std::vector<const Check*> all_refusals(const CalcCase& c);

constexpr unsigned bit(Method method) { return 1U << static_cast<unsigned>(method); }

inline constexpr unsigned TB601 = bit(Method::TB601);
inline constexpr unsigned TB207 = bit(Method::TB207);
inline constexpr unsigned TBB = bit(Method::TBB);
inline constexpr unsigned Webs = bit(Method::Webs);
inline constexpr unsigned Kirn = bit(Method::Kirn);
inline constexpr unsigned always = 1U << all_methods.size();

/// The selected methods, with `always`.
[[nodiscard]] unsigned selected(const CalcCase& c);

template <unsigned methods>
bool read_by(const CalcCase& c) {
    return (methods & selected(c)) != 0;
}

inline constexpr Text incomplete_title = {"Unvollständige Eingabe", "Input incomplete !"};

inline constexpr BoxText incomplete = {
    Icon::Stop,
    incomplete_title,
    {"{0}\nBitte vervollständigen Sie ihre Eingabe !", "{0}\nPlease complete your input !"}};

inline constexpr BoxText incorrect = {
    Icon::Stop,
    {" Fehlerhafte Eingabe", "Input incorrect !"},
    {"{0}\nBitte korrigieren Sie Ihre Eingabe !", "{0}\nPlease correct your input !"}};

inline double number(const Entry& field) { return field.value; }
inline double number(std::int16_t field) { return field; }

template <auto field, int low, int high>
bool outside(const CalcCase& c) {
    return number(c.*field) < low || number(c.*field) > high;
}

/// An emptied field is no input, whatever its double still holds.
inline bool positive(const Entry& field) { return field.given() && field.value > 0; }
inline bool positive(std::int16_t field) { return field > 0; }

template <auto field>
bool not_positive(const CalcCase& c) {
    return !positive(c.*field);
}

// The two sorts of rules that most checks of inputs are.

template <unsigned methods, auto field>
inline constexpr Rule lacks = {read_by<methods>, missing<field>, &incomplete, field};

template <unsigned methods, auto field, int low, int high>
inline constexpr Rule beyond = {read_by<methods>,
                                outside<field, low, high>,
                                &incorrect,
                                field,
                                {NumberSpan{low, high}, no_span}};

/// What the checks of the selected methods let pass of the number of `field`, in rising order; a
/// single span of all numbers where none bounds it.
[[nodiscard]] std::vector<NumberSpan> allowed_by_checks(const CalcCase& c, const FieldKey& field);

}  // namespace zel::steady_check
