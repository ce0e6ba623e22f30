#include "forms/shown_record.h"

#include "forms/given_value.h"
#include "forms/line_form.h"
#include "forms/short_circuit_form.h"
#include "persistence/database/case_table.h"
#include "short_circuit/conductor_materials.h"
#include "short_circuit/short_circuit_table.h"

namespace zel::forms {
namespace {

/// What is not given is not listed. The current of a sub-conductor stands beside that of a bundle.
bool is_listed(GivenValue row, GivenValue given) {
    return given == GivenValue::Nothing || row == given ||
           (row == GivenValue::Current && given == GivenValue::BundleCurrent);
}

class ListedLine : public LineForm {
public:
    ListedLine(CalcCase& c, const Locale& locale, LangId list_language)
        : LineForm(c, locale, [list_language] { return list_language; }), c_(c) {}

    [[nodiscard]] std::string listed(const Row& row) const override {
        if (row.in_report_language) {
            const Choice& choice = row.choices[static_cast<std::size_t>(chosen(row))];
            return std::string(choice.text.in(language_of_choices(row)));
        }
        for (const GivenValueRow& given : given_value_rows())
            if (given.control == std::string_view(row.control) &&
                !is_listed(given.value, given_value(c_)))
                return {};
        return LineForm::listed(row);
    }

private:
    const CalcCase& c_;
};

class ShownLine : public ShownRecord {
public:
    ShownLine(CalcCase c, const Locale& locale, LangId list_language)
        : c_(std::move(c)), locale_(locale), form_(c_, locale_, list_language) {}

    [[nodiscard]] const Record& form() const override { return form_; }
    [[nodiscard]] std::vector<Mark> marks() const override {
        std::vector<Mark> made;
        for (const MethodRow& row : method_rows())
            made.push_back({row.control, name_of(row.method), is_selected(c_, row.method)});
        return made;
    }
    [[nodiscard]] Text mode() const override {
        const GivenValue given = given_value(c_);
        if (given == GivenValue::Nothing) return {};
        return given_value_rows()[static_cast<std::size_t>(given)].text;
    }

private:
    CalcCase c_;
    Locale locale_;
    ListedLine form_;
};

class ListedShortCircuit : public ShortCircuitRecord {
public:
    ListedShortCircuit(ShortCircuitForm& form, const Locale& locale)
        : ShortCircuitRecord(form, locale), lang_(locale.lang) {}

    [[nodiscard]] std::string listed(const Row& row) const override {
        if (row.field != &field_of(&ShortCircuitCase::Leitermaterial_ks))
            return ShortCircuitRecord::listed(row);
        return std::string(material_of_record(static_cast<std::int16_t>(chosen(row))).in(lang_));
    }

private:
    LangId lang_;
};

class ShownShortCircuit : public ShownRecord {
public:
    ShownShortCircuit(ShortCircuitForm form, const Locale& locale)
        : content_(std::move(form)), locale_(locale), form_(content_, locale_) {}

    [[nodiscard]] const Record& form() const override { return form_; }

private:
    ShortCircuitForm content_;
    Locale locale_;
    ListedShortCircuit form_;
};

}  // namespace

std::string chosen_of(const ShownRecord& record) {
    std::string chosen;
    for (const Mark& mark : record.marks())
        if (mark.chosen) chosen += (chosen.empty() ? "" : ", ") + std::string(mark.name);
    return chosen;
}

std::unique_ptr<ShownRecord> shown_line(CalcCase c, const Locale& locale, LangId list_language) {
    return std::make_unique<ShownLine>(std::move(c), locale, list_language);
}

std::unique_ptr<ShownRecord> shown_line(const StoredRow& row, Settings& settings,
                                        const Session& session, LangId list_language) {
    RecordingDialogs unseen;  // answers no
    CalcCase c;
    S30_Access_Daten_einlesen(row, c, settings, session.apart(unseen, nullptr));
    return shown_line(case_for_form(std::move(c)), session, list_language);
}

std::unique_ptr<ShownRecord> shown_short_circuit(ShortCircuitForm form, const Locale& locale) {
    return std::make_unique<ShownShortCircuit>(std::move(form), locale);
}

std::unique_ptr<ShownRecord> shown_short_circuit(const StoredRow& row, const Locale& locale) {
    return shown_short_circuit(KS72_Daten_einlesen(row, locale).form, locale);
}

}  // namespace zel::forms
