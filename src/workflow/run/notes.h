#pragma once

#include <span>
#include <vector>

#include "workflow/run/transient.h"

// The program's own remarks beside results that are told to the letter of their method, where that
// would surprise the user or is on the unsafe side. docs/notes.md lists their codes.

namespace zel {

namespace note_code {
inline constexpr std::string_view wind_fold = "wind_fold";
inline constexpr std::string_view balance = "balance";
inline constexpr std::string_view short_table = "ac_table";
inline constexpr std::string_view assumed = "assumed";
inline constexpr std::string_view endless_age = "kirn_emissivity";
inline constexpr std::string_view transient_check = "transient_check";
inline constexpr std::string_view too_hot = "transient_too_hot";
}  // namespace note_code

/// The acute angle between wind and line, degrees: 175° and 5° are one.
[[nodiscard]] double acute_angle(const CalcCase& c);

/// What is remarkable about the run of `c` that led to `result`, whose case has been prepared. Runs
/// the methods once more, silently, where the folded angle is not the acute one.
[[nodiscard]] SteadyRemarks remarks_on(const CalcCase& c, const SteadyRunResult& result,
                                       const Session& session);

/// Whether the fold turns the wind to another angle than the acute one. In still air Kirn alone
/// reads the angle.
[[nodiscard]] bool is_turned(const CalcCase& c);

/// The codes of what is remarkable about the results `methods` of `c`, without a run or a word
/// more.
[[nodiscard]] std::vector<std::string_view> remarkable(const CalcCase& c,
                                                       std::span<const SteadyResult> results);

/// The remarks on a result in words.
[[nodiscard]] std::vector<Note> notes_on(const SteadyRunResult& result, const Locale& locale);

/// The remarks as lines below a page: "Note: ..."; empty where there are none.
[[nodiscard]] std::string notes_text(const std::vector<Note>& notes, LangId lang);

/// A remark on row `row` (from 0) of a transient run of `c`; nothing where its numbers are sound.
[[nodiscard]] std::optional<Note> note_on_row(const TransientResult& result, const CalcCase& c,
                                              std::size_t row, const Locale& locale);

/// The remarks on all rows of a transient run of `c`.
[[nodiscard]] std::vector<Note> notes_on(const TransientResult& result, const CalcCase& c,
                                         const Locale& locale);

}  // namespace zel
