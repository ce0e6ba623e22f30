#pragma once

#include <optional>
#include <vector>

#include "compare/sensitivity.h"
#include "platform/settings_store.h"

namespace zel {

/// The steps by which the user wants inputs to be moved, as they stand in his settings: one for
/// each input that he has chosen another step for than the usual one.
class ChosenSteps {
public:
    explicit ChosenSteps(SettingsStore& store) : store_(store) {}

    /// Those of the inputs of `c`.
    [[nodiscard]] std::vector<ChosenStep> of(const CalcCase& c) const;
    /// Without a step the usual one counts again. Throws `OutputError`.
    void choose(const CaseField& field, std::optional<double> step);

private:
    SettingsStore& store_;
};

}  // namespace zel
