#pragma once

#include <functional>

#include "forms/form.h"
#include "platform/text/locale.h"
#include "steady/case/case_fields.h"

// The form of a case of the thermal rating.

namespace zel::forms {

/// A case behind its form.
class LineForm : public Record {
public:
    /// `list_language` gives the language of the lists that have that of the reports; without it
    /// they have that of `locale`.
    LineForm(CalcCase& c, const Locale& locale, std::function<LangId()> list_language = {})
        : c_(c), locale_(locale), list_language_(std::move(list_language)) {}

    [[nodiscard]] std::span<const Section> sections() const override;
    /// The wire of a tube is its wall.
    [[nodiscard]] Text label(const Row& row) const override;
    /// A whole number of 0 is no input and shows as empty; one with a mask, which comes with a
    /// conductor, is shown as soon as there is a conductor.
    [[nodiscard]] std::string shown(const Row& row) const override;
    /// A number that no entry stands for shows as the first, which says so.
    [[nodiscard]] int chosen(const Row& row) const override;
    /// Open but for the given values that are not the given one; needed where a selected method
    /// reads the row, and everywhere as long as no method is selected.
    [[nodiscard]] InputState state(const Row& row) const override;
    /// The mark of an assumed number; of a direction the opposite one, 180° further.
    [[nodiscard]] std::string beside(const Row& row) const override;
    [[nodiscard]] std::string listed(const Row& row) const override;
    [[nodiscard]] LangId language_of_choices(const Row& row) const override;
    /// A refused text leaves the field without input.
    std::optional<Refusal> enter(const Row& row, std::string_view text) override;
    void choose(const Row& row, int index) override;
    /// What is typed is no longer assumed, even where it stays the same.
    void typed_into(const Row& row) override;
    [[nodiscard]] const Limits* limits(const Row& row) const override;
    [[nodiscard]] std::vector<NumberSpan> allowed(const Row& row) const override;
    /// The choice of methods and that of the mode, which no row holds, stand on the first page.
    [[nodiscard]] std::vector<Complaint> complaints() const override;
    [[nodiscard]] bool filters_keys() const override { return true; }
    [[nodiscard]] std::string_view next_control(std::string_view control) const override;

private:
    [[nodiscard]] std::string text_in_listing(const Row& row) const;

    CalcCase& c_;
    const Locale& locale_;
    std::function<LangId()> list_language_;
};

/// The input of `cell` in the change of state `row` (0 to 5), or of its kind for a null `cell`, as
/// a field of its own: "1st change-of-state: new temperature".
[[nodiscard]] const FieldInfo& transient_input(std::size_t row, StateCell cell);

/// All sections, page by page; those of the input page, of the conductor page, and of the parameter
/// table on the result page: its wind speeds, its temperatures, its currents.
[[nodiscard]] std::span<const Section> line_sections();
[[nodiscard]] const std::vector<Section>& input_sections();
[[nodiscard]] const std::vector<Section>& conductor_sections();
[[nodiscard]] const std::vector<Section>& table_sections();

/// The check box that selects a method.
struct MethodRow {
    Method method;
    const char* control;
    Text label;
};
[[nodiscard]] std::span<const MethodRow> method_rows();

/// `c` as a form can show it: a number of sub-conductors that no list entry stands for becomes 1.
[[nodiscard]] CalcCase case_for_form(CalcCase c);

}  // namespace zel::forms
