#include "desktop/case_document.h"

#include <algorithm>
#include <utility>

#include "desktop/case_forms.h"
#include "persistence/case_file.h"
#include "platform/input_error.h"
#include "platform/output_error.h"
#include "shell/case_settings.h"
#include "shell/program_texts.h"
#include "workflow/bundle.h"
#include "workflow/entry_rules.h"
#include "workflow/transient_cells.h"

namespace zel {
namespace {

constexpr BoxText lose_question = {Icon::Question,
                                   short_name,
                                   {"Die Eingaben wurden geändert und sind nicht gespeichert.\n"
                                    "Sollen die Änderungen verworfen werden ?",
                                    "The input data has been changed and is not saved.\n"
                                    "Do you want to discard the changes ?"},
                                   Buttons::YesNo,
                                   Answer::No};

constexpr BoxText replace_question = {
    Icon::Question,
    short_name,
    {"Die Datei gibt es schon :\n{0}\nSoll sie ersetzt werden ?",
     "The file exists already :\n{0}\nDo you want to replace it ?"},
    Buttons::YesNo,
    Answer::No};

constexpr BoxText not_read = {
    Icon::Stop,
    {"Datei öffnen", "Open file"},
    {"Die Datei kann nicht gelesen werden :\n{0}", "The file can not be read :\n{0}"}};

constexpr BoxText not_written = {
    Icon::Stop,
    {"Datei speichern", "Save file"},
    {"Die Datei kann nicht geschrieben werden :\n{0}", "The file can not be written :\n{0}"}};

/// The fields of a case that are settings, and their keys in a file.
constexpr std::pair<std::string_view, std::int16_t CalcCase::*> case_settings[] = {
    {"Gravi_merker1_db", &CalcCase::Gravi_merker1_db},
    {"Formel_merker1_db", &CalcCase::Formel_merker1_db},
    {"wzsz_merker_db", &CalcCase::wzsz_merker_db},
};

}  // namespace

CaseDocument::CaseDocument(DesktopState& state) : state_(state), stored_(entered()) {}

FlatObject CaseDocument::entered() const {
    CalcCase c = without_found_values(without_derived_current(state_.calc_case));
    // What a setting changes is no input of the user.
    for (const auto& [key, member] : case_settings) c.*member = CalcCase().*member;
    return values_of(c);
}

bool CaseDocument::modified() const { return entered() != stored_; }

std::string CaseDocument::name() const {
    const std::string& path = state_.case_path;
    return path.substr(path.find_last_of('/') + 1);
}

bool CaseDocument::may_be_left() const {
    return !modified() ||
           state_.session.dialogs.show(box_in(state_.session.lang, lose_question)) == Answer::Yes;
}

void CaseDocument::replace(CalcCase c, std::string path) {
    state_.calc_case = case_for_form(std::move(c));
    state_.case_path = std::move(path);
    stored_ = entered();
}

bool CaseDocument::start_anew() {
    if (!may_be_left()) return false;
    CalcCase fresh;
    take_settings(fresh, state_.settings.now());
    replace(std::move(fresh), {});
    return true;
}

bool CaseDocument::open() {
    if (!may_be_left()) return false;
    const auto path = state_.chooser.file_to_open(state_.case_path);
    return path && read(*path);
}

bool CaseDocument::read(const std::string& path) {
    const Session& session = state_.session;
    const auto fail = [&](const std::string& reason) {
        session.tell(box_in(session.lang, not_read, {reason}));
        return false;
    };
    FlatObject values;
    try {
        values = state_.store.load(path);
    } catch (const InputError& error) {
        return fail(error.what());
    }
    const EntryRule rule = [&](Entry& field, Entry CalcCase::*key, std::string_view text) {
        return enter(field, key, text, session.separator, session.lang);
    };
    const CellRule cell_rule = [&](CalcCase& c, StateCellPlace place, std::string_view text) {
        return read_cell(c, place, text, session.separator, session.lang);
    };
    try {
        CaseFile file = read_case(values, session.separator, rule, cell_rule);
        take_missing_settings(file.c, values);
        adopt_settings(file.c, state_.settings, session);
        state_.settings_changed();
        replace(std::move(file.c), path);
        for (RefusedText& refused : file.refused) {
            refused.box.lines.insert(refused.box.lines.begin(), refused.field + " :");
            session.tell(refused.box);
        }
        return true;
    } catch (const InputError& error) {
        return fail(path + ": " + error.what());
    }
}

/// A file that does not name a setting has none of its own.
void CaseDocument::take_missing_settings(CalcCase& c, const FlatObject& values) const {
    CalcCase present;
    take_settings(present, state_.settings.now());
    for (const auto& [key, member] : case_settings)
        if (std::none_of(values.begin(), values.end(),
                         [&](const FlatMember& value) { return value.key == key; }))
            c.*member = present.*member;
}

bool CaseDocument::save() { return state_.case_path.empty() ? save_as() : write(state_.case_path); }

bool CaseDocument::save_as() {
    const auto path = state_.chooser.file_to_save(state_.case_path);
    return path && may_be_replaced(*path) && write(*path);
}

bool CaseDocument::may_be_replaced(const std::string& path) const {
    if (path == state_.case_path || !state_.store.has(path)) return true;
    const Box question = box_in(state_.session.lang, replace_question, {path});
    return state_.session.dialogs.show(question) == Answer::Yes;
}

bool CaseDocument::write(const std::string& path) {
    try {
        state_.store.save(path, values_of(state_.calc_case));
    } catch (const OutputError& error) {
        state_.session.tell(box_in(state_.session.lang, not_written, {error.what()}));
        return false;
    }
    state_.case_path = path;
    stored_ = entered();
    return true;
}

}  // namespace zel
