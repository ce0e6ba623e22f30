#include "desktop/line/line_case.h"

#include <algorithm>
#include <utility>

#include "forms/line_form.h"
#include "persistence/case_file.h"
#include "persistence/database/case_table.h"
#include "shell/case_settings.h"
#include "workflow/rules/derived.h"
#include "workflow/rules/steady_check.h"
#include "workflow/rules/transient_cells.h"

namespace zel {
namespace {

/// The fields of a case that are settings, and their keys in a file.
constexpr std::pair<std::string_view, std::int16_t CalcCase::*> case_settings[] = {
    {"Gravi_merker1_db", &CalcCase::Gravi_merker1_db},
    {"Formel_merker1_db", &CalcCase::Formel_merker1_db},
    {"wzsz_merker_db", &CalcCase::wzsz_merker_db},
};

}  // namespace

FlatObject LineRecord::values() const { return values_of(c_); }

FlatObject LineRecord::entered() const {
    CalcCase c = without_found_values(without_derived_current(c_));
    // What a setting changes is no input of the user.
    for (const auto& [key, member] : case_settings) c.*member = CalcCase().*member;
    return values_of(c);
}

void LineRecord::start_anew() {
    CalcCase fresh;
    take_settings(fresh, settings_.now());
    c_ = forms::case_for_form(std::move(fresh));
}

std::vector<RefusedText> LineRecord::take(const FlatObject& values) {
    CaseFile file = read_case(values, session_);
    take_missing_settings(file.c, values);
    adopt_settings(file.c, settings_.store, session_);
    settings_.changed();
    c_ = forms::case_for_form(std::move(file.c));
    return std::move(file.refused);
}

std::vector<NamedValue> LineRecord::row(std::vector<CutText>& cut) const {
    return S30_Access_Daten_speichern(c_, cut);
}

/// What the row does not hold stays as it is.
std::vector<RefusedText> LineRecord::take(const StoredRow& row) {
    CalcCase read = c_;
    S30_Access_Daten_einlesen(row, read, settings_.store, session_);
    settings_.changed();
    c_ = forms::case_for_form(std::move(read));
    return {};
}

std::unique_ptr<forms::ShownRecord> LineRecord::shown(const StoredRow& row) const {
    return forms::shown_line(row, settings_.store, session_, session_.lang);
}

std::unique_ptr<forms::ShownRecord> LineRecord::shown() const {
    return forms::shown_line(c_, session_, session_.lang);
}

std::optional<Box> LineRecord::refusal_to_keep() const {
    return S_Eingabepruefung_steady(c_, session_.lang);
}

/// A file that does not name a setting has none of its own.
void LineRecord::take_missing_settings(CalcCase& c, const FlatObject& values) const {
    CalcCase present;
    take_settings(present, settings_.now());
    for (const auto& [key, member] : case_settings)
        if (std::none_of(values.begin(), values.end(),
                         [&name = key](const FlatMember& value) { return value.key == name; }))
            c.*member = present.*member;
}

}  // namespace zel
