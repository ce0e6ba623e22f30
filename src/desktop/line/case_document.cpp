#include "desktop/line/case_document.h"

#include <algorithm>
#include <utility>

#include "forms/line_form.h"
#include "persistence/case_file.h"
#include "shell/case_settings.h"
#include "shell/program_texts.h"
#include "workflow/rules/bundle.h"

namespace zel {
namespace {

/// The fields of a case that are settings, and their keys in a file.
constexpr std::pair<std::string_view, std::int16_t CalcCase::*> case_settings[] = {
    {"Gravi_merker1_db", &CalcCase::Gravi_merker1_db},
    {"Formel_merker1_db", &CalcCase::Formel_merker1_db},
    {"wzsz_merker_db", &CalcCase::wzsz_merker_db},
};

}  // namespace

CaseDocument::CaseDocument(DesktopState& state)
    : FileDocument(state.session, state.store, state.chooser, short_name), state_(state) {
    mark_stored(state.case_path);
}

FlatObject CaseDocument::values() const { return values_of(state_.calc_case); }

FlatObject CaseDocument::entered() const {
    CalcCase c = without_found_values(without_derived_current(state_.calc_case));
    // What a setting changes is no input of the user.
    for (const auto& [key, member] : case_settings) c.*member = CalcCase().*member;
    return values_of(c);
}

bool CaseDocument::start_anew() {
    if (!may_be_left()) return false;
    CalcCase fresh;
    take_settings(fresh, state_.settings.now());
    state_.calc_case = forms::case_for_form(std::move(fresh));
    mark_stored({});
    return true;
}

std::vector<RefusedText> CaseDocument::take(const FlatObject& values) {
    const Session& session = state_.session;
    CaseFile file = read_case(values, session);
    take_missing_settings(file.c, values);
    adopt_settings(file.c, state_.settings, session);
    state_.settings_changed();
    state_.calc_case = forms::case_for_form(std::move(file.c));
    return std::move(file.refused);
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

}  // namespace zel
