#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "desktop/frame/desktop_state.h"

class QWidget;

namespace zel {

class ConductorEditor;

/// What a form does to choose a conductor: `Command3` opens the conductor database, `Command4`
/// takes over what was chosen there.
class ConductorDesk {
public:
    /// `take_over` is what `Command4` of `form` does; the database calls it where the user wants
    /// the chosen conductor at once. `form_name` is told in messages of errors.
    ConductorDesk(QWidget& form, std::string form_name, DesktopState& state,
                  std::function<void()> take_over);
    ~ConductorDesk();
    ConductorDesk(const ConductorDesk&) = delete;
    ConductorDesk& operator=(const ConductorDesk&) = delete;

    /// `Command3`: the conductor editor where the settings name this program itself as the
    /// conductor database, otherwise the program that they name; where it cannot be started,
    /// error 53.
    void open_database();
    /// The same, false where it cannot be started, which is not told.
    [[nodiscard]] bool start_database();

    /// The exchange file's conductor, of any kind. A refusal is told.
    [[nodiscard]] std::optional<ConductorData> chosen_conductor();

    /// The exchange file's conductor for the case of the program, with the checks of its kind, and
    /// what a record does not hold where it is one of the library and the case has no input. All
    /// refusals are told. `show` shows the conductor once it is taken over, before it is told what
    /// the library filled in.
    void take_over(const std::function<void()>& show);

    void recaption();
    /// False where the editor has changes that shall not be lost.
    [[nodiscard]] bool may_be_left();
    void close();

private:
    void show_editor();
    /// Tells what was filled in, if anything.
    [[nodiscard]] std::optional<Box> take_offers_of_library(const std::string& record);

    QWidget& form_;
    std::string form_name_;
    DesktopState& state_;
    std::function<void()> take_over_;
    std::unique_ptr<ConductorEditor> editor_;
};

}  // namespace zel
