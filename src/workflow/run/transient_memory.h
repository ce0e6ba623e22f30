#pragma once

#include "workflow/run/transient.h"

namespace zel {

/// `c` with what a steady run does not read taken away: where two of these are equal, so are the
/// results.
[[nodiscard]] CalcCase steady_inputs(const CalcCase& c);

/// What the program keeps of its runs, from one to the next: where a transient would start, and the
/// last transient with the inputs that led to it.
class TransientMemory {
public:
    /// After a steady run of `c`.
    void keep(const SteadyRunResult& steady, const CalcCase& c);
    /// After a transient of `c` that came to results.
    void keep(const TransientResult& transient, const CalcCase& c);
    /// For a new case.
    void forget() { *this = {}; }

    [[nodiscard]] const TransientBasis& basis() const { return basis_; }
    /// The last steady run gave no start: that of a former one still stands.
    [[nodiscard]] bool start_is_former() const { return start_is_former_; }
    /// The steady start is that of other inputs than those of `c`.
    [[nodiscard]] bool basis_is_stale(const CalcCase& c) const;

    /// The last transient; null where there is none.
    [[nodiscard]] const TransientResult* result() const { return result_ ? &*result_ : nullptr; }
    /// The remark on row `row` (from 0) of the last transient; nothing where there is none.
    [[nodiscard]] std::optional<Note> note_on_row(std::size_t row, const Locale& locale) const;
    /// An input or an option has changed, or the steady state has, since the last transient.
    [[nodiscard]] bool result_is_stale(const CalcCase& c, const Session& session) const;

private:
    TransientBasis basis_;
    CalcCase basis_inputs_;
    bool start_is_former_ = false;
    std::optional<TransientResult> result_;
    TransientBasis result_basis_;
    CalcCase result_inputs_;
};

/// Asked before results are used that are no longer those of the inputs: whether to calculate anew.
extern const BoxText stale_question;

}  // namespace zel
