#include "desktop/conductors/conductor_desk.h"

#include <utility>

#include "desktop/conductors/conductor_editor.h"
#include "persistence/conductor_link.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr BoxText record_refused = {
    Icon::Stop,
    {"Leiter nicht übernommen", "Conductor not taken over"},
    {"Die Austauschdatei der Seildatenbank kann nicht gelesen werden:\n{0}",
     "The exchange file of the conductor database cannot be read:\n{0}"}};
constexpr BoxText no_library = {Icon::Stop,
                                {"Leiterdatenbank", "Conductor database"},
                                {"Die Leiterbibliothek kann nicht gelesen werden:\n{0}",
                                 "The library of conductors cannot be read:\n{0}"}};

}  // namespace

ConductorDesk::ConductorDesk(QWidget& form, const ConductorParts& parts, Captions& captions,
                             std::function<void()> take_over)
    : form_(form), parts_(parts), take_over_(std::move(take_over)) {
    captions.computed([this](LangId lang) {
        if (editor_) editor_->recaption(lang);
    });
}

ConductorDesk::~ConductorDesk() = default;

bool ConductorDesk::start_database() {
    const std::string& program = parts_.settings.now().Seildatenbanknamepluspfad;
    if (!is_this_program(program))
        return !program.empty() && parts_.launcher.start_program(program);
    show_editor();
    return true;
}

std::optional<ConductorData> ConductorDesk::chosen_conductor() {
    const Session& session = parts_.session;
    try {
        auto found = exchanged_conductor(parts_.files, parts_.settings.now().Einseil1_dat, session);
        if (auto* conductor = std::get_if<ConductorData>(&found)) return std::move(*conductor);
        session.tell(std::get<Box>(found));
    } catch (const InputError& error) {
        session.tell(box_in(session.lang, record_refused, {error.told(session.lang)}));
    }
    return std::nullopt;
}

void ConductorDesk::show_editor() {
    if (!editor_) try {
            editor_ = std::make_unique<ConductorEditor>(&form_, parts_, take_over_);
        } catch (const InputError& error) {
            const Session& session = parts_.session;
            session.tell(box_in(session.lang, no_library, {error.told(session.lang)}));
            return;
        }
    editor_->open_anew();
}

void ConductorDesk::take_over(CalcCase& c, const std::function<void()>& show) {
    const Session& session = parts_.session;
    const std::string& path = parts_.settings.now().Einseil1_dat;
    try {
        if (const auto refusal = take_over_conductor(c, parts_.files, path, session))
            return session.tell(*refusal);
        const auto filled = take_offers_of_library(c, parts_.files.content(path));
        show();
        if (filled) session.tell(*filled);
    } catch (const InputError& error) {
        session.tell(box_in(session.lang, record_refused, {error.told(session.lang)}));
    }
}

std::optional<Box> ConductorDesk::take_offers_of_library(CalcCase& c, const std::string& record) {
    try {
        const ConductorLibrary library(parts_.files, parts_.library, parts_.session.separator);
        const auto* known = find_record(library.conductors(), record);
        if (known == nullptr) return std::nullopt;
        return take_offers(c, known->c, parts_.session);
    } catch (const InputError&) {
        return std::nullopt;  // without a library the record may come from another conductor
                              // database
    }
}

bool ConductorDesk::may_be_left() { return !editor_ || editor_->may_be_left(); }

}  // namespace zel
