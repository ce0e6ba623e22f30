#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/message_box.h"
#include "steady/case/field.h"
#include "steady/case/method.h"
#include "workflow/rules/rule_tables.h"

// The inputs of a record as a person sees them: sections of rows, in the order in which they are
// filled in. Windows and listings are made from these tables and ask the record behind them through
// `forms::Record`; they know neither the record's type nor its rules.

namespace zel::forms {

/// An entry of a list and the number of the record that it stands for.
struct Choice {
    std::int16_t value;
    Text text;
};

/// One input. Label, unit and mask are those of the field.
struct Row {
    const char* control;  // object name: focus chain and tests find it
    const FieldInfo* field;
    MethodSet read_by = every_method;  // see `InputState::needed`
    Text hint{};
    std::span<const Choice> choices{};  // a list instead of a box
    bool in_report_language = false;    // the texts of the list, in the listing of a stored case
    Text note{};                        // below the input
    bool caption_above = false;         // not beside the input, which is wide

    [[nodiscard]] bool is_list() const { return !choices.empty(); }
    [[nodiscard]] bool is_free_text() const { return field->kind == FieldKind::Text; }
};

struct Section {
    int page;  // of the form
    Text caption;
    std::vector<Row> rows;
    int columns = 1;        // rows that stand side by side
    int first_stretch = 1;  // how many times as wide the boxes of the first of them are
    bool typed = true;      // not only shown, as what a conductor's record brought
    Text note{};            // above the rows
};

/// A text that stands in the box of a row and is not entered yet.
struct PendingText {
    const Row* row;
    std::string text;
};

struct InputState {
    bool open = true;      // takes an input
    bool needed = true;    // label and unit are not greyed
    bool assumed = false;  // nobody gave what stands there
};

/// Why a typed text was refused.
struct Refusal {
    Box box;
    bool text_stays = false;  // in the box, to be corrected; otherwise what is `shown` stands there
};

/// What a check refuses in a record as it is.
struct Complaint {
    const FieldInfo* field;  // by which it is met
    int page;                // of the form, where that is
    bool missing;            // nothing stands there; otherwise what does is wrong
    Box box;                 // by which a run is refused
};

/// A record behind its form. It is read and changed through the rows of its own sections.
class Record {
public:
    Record() = default;
    virtual ~Record() = default;
    Record(const Record&) = delete;
    Record& operator=(const Record&) = delete;

    /// All sections, page by page.
    [[nodiscard]] virtual std::span<const Section> sections() const = 0;

    /// What the row is called in the record as it is now.
    [[nodiscard]] virtual Text label(const Row& row) const { return row.field->label; }
    /// The text of the row's box, and of what is only shown, there with its unit.
    [[nodiscard]] virtual std::string shown(const Row& row) const = 0;
    /// The index of the chosen entry of the row's list.
    [[nodiscard]] virtual int chosen(const Row& row) const = 0;
    [[nodiscard]] virtual InputState state(const Row& row) const = 0;
    /// What stands behind the unit, such as the other angle of a direction.
    [[nodiscard]] virtual std::string beside(const Row& /*row*/) const { return {}; }
    /// What a listing says of the row, with its unit; empty where there is no input.
    [[nodiscard]] virtual std::string listed(const Row& row) const = 0;
    /// In which the entries of the row's list are shown.
    [[nodiscard]] virtual LangId language_of_choices(const Row& row) const = 0;

    /// A text typed into the row's box goes to the record through its entry rules, which may open,
    /// close and empty other rows.
    virtual std::optional<Refusal> enter(const Row& row, std::string_view text) = 0;
    /// The entry `index` of the row's list is chosen.
    virtual void choose(const Row& row, int index) = 0;
    /// A key changed the text of the row's box, which is not yet entered.
    virtual void typed_into(const Row& /*row*/) {}

    /// The limits of the numbers that the row takes; null where there are none.
    [[nodiscard]] virtual const Limits* limits(const Row& /*row*/) const { return nullptr; }
    /// All numbers that the row may hold when a run comes: its limits, and what checks let pass.
    [[nodiscard]] virtual std::vector<NumberSpan> allowed(const Row& row) const {
        const Limits* bounds = limits(row);
        if (bounds == nullptr) return {NumberSpan{}};
        return {NumberSpan{bounds->low, bounds->high}};
    }
    /// What the checks before a run refuse, in their order, each field once: the first is what a
    /// run is refused by.
    [[nodiscard]] virtual std::vector<Complaint> complaints() const { return {}; }

    /// Whether number boxes take only keys that a number is made of.
    [[nodiscard]] virtual bool filters_keys() const { return false; }
    /// The control to which tab and return lead from `control` by a chain of the form; empty where
    /// the next one is that of the window.
    [[nodiscard]] virtual std::string_view next_control(std::string_view /*control*/) const {
        return {};
    }
};

/// The row of `field`, or null where no section has one.
[[nodiscard]] const Row* row_of(std::span<const Section> sections, const FieldInfo& field);

/// Adds a complaint, unless there is one about its field.
void add_once(std::vector<Complaint>& complaints, Complaint complaint);

/// Whether there is no input: no text, no choice, nothing ticked.
[[nodiscard]] bool is_empty(const FieldRef& field);

}  // namespace zel::forms
