#pragma once

#include <functional>
#include <optional>
#include <span>
#include <string>

#include "compare/kept_run.h"
#include "compare/sensitivity.h"
#include "forms/form.h"
#include "workflow/run/transient.h"

// What a form's inputs would give, while they are typed: no box, no stored state, no start of a
// transient is touched by it.

namespace zel {

/// The results of a case as it stands in its form, or those of the last inputs that could be rated,
/// with the reason why the present ones cannot.
class LiveRating {
public:
    /// Rates `given` with the texts of `pending` as if they were entered. A number that is only
    /// begun ("-", "1,") is no number yet, so that the former results stay.
    void update(const CalcCase& given, std::span<const forms::PendingText> pending,
                const Session& session);
    void forget() { *this = {}; }

    /// The last inputs that could be rated, with their results; null where there were none.
    [[nodiscard]] const KeptRun* run() const { return run_ ? &*run_ : nullptr; }
    /// Why the results are not those of the inputs as they stand; empty where they are.
    [[nodiscard]] const std::string& reason() const { return reason_; }
    /// Whether these inputs rate otherwise than those before the last update.
    [[nodiscard]] bool has_moved() const { return moved_; }

private:
    std::optional<std::string> rate(CalcCase c, const Session& session);

    std::optional<KeptRun> run_;
    std::string reason_;
    bool moved_ = false;
};

/// `c` with those texts of `pending` entered that its fields take.
[[nodiscard]] CalcCase with_texts(CalcCase c, std::span<const forms::PendingText> pending,
                                  const Session& session);

/// What takes longer than a rating: which inputs move the result most, and where the changes of
/// state would lead.
struct Outlook {
    std::optional<Sensitivity> sensitivity;
    std::optional<TransientResult> transient;  // nothing where there are no changes of state
    CalcCase c;                                // with what the transient found
};

/// Asked again and again whether to go on.
using GoOn = std::function<bool()>;

/// Of a run that goes on from what `watched.memory` holds, which must not be null and changes;
/// `steps` are those of the inputs. Nothing where `go_on` stopped it.
[[nodiscard]] std::optional<Outlook> outlook(const KeptRun& run, const Session& watched,
                                             const GoOn& go_on,
                                             const std::vector<ChosenStep>& steps = {});

/// "Cigre TB 601: wind speed + 0.1 m/s: +38 A, ...", of the first method with a result and its
/// `most` inputs that move it most. Empty where none does.
[[nodiscard]] std::string sensitivity_line(const Sensitivity& found, std::size_t most,
                                           const Locale& locale);

/// "Changes of state: 1: 74.3 °C, 2: 12 min 3 sec": what was sought in each row.
[[nodiscard]] std::string transient_line(const Outlook& outlook, const Locale& locale);

}  // namespace zel
