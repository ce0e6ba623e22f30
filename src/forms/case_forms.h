#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "shell/session.h"
#include "steady/case/case_fields.h"
#include "workflow/run/steady_methods.h"

// The inputs of a case as a person sees them: sections of rows with caption and unit, in the order
// in which they are filled in. Windows and listings are made from these tables.

namespace zel {

/// An entry of a list and the number of the case that it stands for.
struct Choice {
    std::int16_t value;
    Text text;
};

struct FormRow {
    const char* control;  // object name: focus chain and tests find it
    FieldKey field;
    Text label;
    const char* unit = "";
    MethodSet read_by = every_method;  // the label is greyed where none of these is selected
    Text hint{};
    std::span<const Choice> (*choices)() = nullptr;  // a list instead of a box
    bool in_report_language = false;                 // the texts of the list
    /// Of a whole number that comes with a conductor: it is shown by this mask as soon as there is
    /// one, also where it is 0.
    std::string_view mask{};
};

struct FormSection {
    int page;  // of the main form
    Text caption;
    std::span<const FormRow> rows;
    int columns = 1;        // rows that stand side by side
    int first_stretch = 1;  // how many times as wide the boxes of the first of them are
};

/// The check box that selects a method.
struct MethodRow {
    Method method;
    const char* control;
    Text label;
};

/// All sections, page by page: those of the input page, then those of the conductor page.
[[nodiscard]] const std::vector<FormSection>& case_form_sections();
[[nodiscard]] std::span<const FormSection> input_sections();
[[nodiscard]] std::span<const FormSection> conductor_sections();

/// The section with the three values of which the mode of calculation takes one as given.
[[nodiscard]] const FormSection& given_value_section();

[[nodiscard]] std::span<const MethodRow> method_rows();

/// The texts of `conductor_type_db`; the first stands for every number that is not told.
[[nodiscard]] std::span<const Choice> conductor_types();
/// The texts of `conductor_shape_db`; the first stands for every number that is not told.
[[nodiscard]] std::span<const Choice> conductor_shapes();
/// The texts of `ACDC_R_Option_Merker_db`; the first stands for no choice.
[[nodiscard]] std::span<const Choice> resistance_options();
/// The texts of `GMR_Merker_db`.
[[nodiscard]] std::span<const Choice> radius_options();
/// The names of bundles of 1 to 8 sub-conductors.
[[nodiscard]] std::span<const Choice> bundle_sizes();

/// The text that the row's box shows. A whole number of 0 is no input and shows as empty.
[[nodiscard]] std::string shown_text(const CalcCase& c, const FormRow& row);

/// A text typed into the row's box goes to the case. A text that the entry rules refuse leaves the
/// field without input; the box that tells why is given back.
std::optional<Box> enter_text(CalcCase& c, const FormRow& row, std::string_view text,
                              const Session& session);

/// Whether a selected method reads the row; true for all rows as long as no method is selected.
[[nodiscard]] bool is_needed(const CalcCase& c, const FormRow& row);

/// The control to which tab and return lead from `control`; empty at the end of its chain.
[[nodiscard]] std::string_view next_control(std::string_view control);

/// `c` as a form can show it: a number of sub-conductors that no list entry stands for becomes 1.
[[nodiscard]] CalcCase case_for_form(CalcCase c);

}  // namespace zel
