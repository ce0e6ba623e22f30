#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "steady/case/calc_case.h"

class QWidget;

namespace zel {

/// Where a form gets a conductor from: `Command3` opens the conductor database, `Command4` takes
/// over what was chosen there.
class ConductorSource {
public:
    virtual ~ConductorSource() = default;

    /// The conductor editor where the settings name this program itself as the conductor database,
    /// otherwise the program that they name; false where it cannot be started, which is not told.
    [[nodiscard]] virtual bool start_database() = 0;

    /// The exchange file's conductor, of any kind. A refusal is told.
    [[nodiscard]] virtual std::optional<ConductorData> chosen_conductor() = 0;

    /// The exchange file's conductor for the case `c`, with the checks of its kind, and what a
    /// record does not hold where it is one of the library and the case has no input. All refusals
    /// are told. `show` shows the conductor once it is taken over, before it is told what the
    /// library filled in.
    virtual void take_over(CalcCase& c, const std::function<void()>& show) = 0;

    /// False where the editor has changes that shall not be lost.
    [[nodiscard]] virtual bool may_be_left() = 0;
};

/// Makes the source of a form. `take_over` is what `Command4` of `form` does; the database calls it
/// where the user wants the chosen conductor at once.
using MakeConductorSource =
    std::function<std::unique_ptr<ConductorSource>(QWidget& form, std::function<void()> take_over)>;

}  // namespace zel
