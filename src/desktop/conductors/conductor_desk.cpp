#include "desktop/conductors/conductor_desk.h"

#include <utility>

#include "desktop/conductors/conductor_editor.h"
#include "persistence/conductor_link.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr std::string_view program_name = "zel";

constexpr BoxText record_refused = {
    Icon::Stop,
    {"Leiter nicht übernommen", "Conductor not taken over"},
    {"Die Austauschdatei der Seildatenbank kann nicht gelesen werden:\n{0}",
     "The exchange file of the conductor database cannot be read:\n{0}"}};
constexpr BoxText no_library = {Icon::Stop,
                                {"Leiterdatenbank", "Conductor database"},
                                {"Die Leiterbibliothek kann nicht gelesen werden:\n{0}",
                                 "The library of conductors cannot be read:\n{0}"}};

/// Whether the path names this program, here or where it is installed.
bool is_this_program(const std::string& path) {
    return path.substr(path.find_last_of('/') + 1) == program_name;
}

}  // namespace

ConductorDesk::ConductorDesk(QWidget& form, std::string form_name, DesktopState& state,
                             std::function<void()> take_over)
    : form_(form),
      form_name_(std::move(form_name)),
      state_(state),
      take_over_(std::move(take_over)) {}

ConductorDesk::~ConductorDesk() = default;

void ConductorDesk::open_database() {
    (void)trap(state_.errors, form_name_, "Command3_click", [this] {
        if (!start_database())
            throw PlatformError(PlatformFault::ProgramMissing,
                                state_.settings.now().Seildatenbanknamepluspfad);
    });
}

bool ConductorDesk::start_database() {
    const std::string& program = state_.settings.now().Seildatenbanknamepluspfad;
    if (!is_this_program(program))
        return !program.empty() && state_.launcher.start_program(program);
    show_editor();
    return true;
}

std::optional<ConductorData> ConductorDesk::chosen_conductor() {
    const Session& session = state_.session;
    try {
        auto found = exchanged_conductor(*state_.conductors.files,
                                         state_.settings.now().Einseil1_dat, session);
        if (auto* conductor = std::get_if<ConductorData>(&found)) return std::move(*conductor);
        session.tell(std::get<Box>(found));
    } catch (const InputError& error) {
        session.tell(box_in(session.lang, record_refused, {error.what()}));
    }
    return std::nullopt;
}

void ConductorDesk::show_editor() {
    if (!editor_) try {
            editor_ = std::make_unique<ConductorEditor>(&form_, state_, take_over_);
        } catch (const InputError& error) {
            state_.session.tell(box_in(state_.session.lang, no_library, {error.what()}));
            return;
        }
    editor_->open_anew();
}

void ConductorDesk::take_over(const std::function<void()>& show) {
    const LangId lang = state_.session.lang;
    const std::string& path = state_.settings.now().Einseil1_dat;
    try {
        const auto refusal =
            take_over_conductor(state_.calc_case, *state_.conductors.files, path, state_.session);
        if (refusal) return (void)state_.session.tell(*refusal);
        const auto filled = take_offers_of_library(state_.conductors.files->content(path));
        show();
        if (filled) state_.session.tell(*filled);
    } catch (const InputError& error) {
        state_.session.tell(box_in(lang, record_refused, {error.what()}));
    }
}

std::optional<Box> ConductorDesk::take_offers_of_library(const std::string& record) {
    try {
        const ConductorLibrary library(*state_.conductors.files, state_.conductors.library,
                                       state_.session.separator);
        const auto* known = find_record(library.conductors(), record);
        if (known == nullptr) return std::nullopt;
        return take_offers(state_.calc_case, known->c, state_.session);
    } catch (const InputError&) {
        return std::nullopt;  // without a library the record may come from another conductor
                              // database
    }
}

void ConductorDesk::recaption() {
    if (editor_) editor_->recaption();
}

bool ConductorDesk::may_be_left() { return !editor_ || editor_->may_be_left(); }

void ConductorDesk::close() {
    if (editor_) editor_->hide();
}

}  // namespace zel
