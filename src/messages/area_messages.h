#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "forms/form.h"
#include "platform/text/locale.h"
#include "workflow/run/steady_run.h"

// What an area has told and what its inputs still lack, to be looked at beside the pages. No box.

namespace zel {

/// One line of the strip.
struct AreaMessage {
    enum class Sort : std::uint8_t {
        RefusedText,  // typed into a box that did not take it
        Refusal,      // of the last run
        OutOfDate,    // the result is that of former inputs
        Told,         // a box of the last run that merely informed
        Note,         // the program's own
    };
    Sort sort = Sort::Told;
    Icon icon = Icon::None;  // of the box; none of a note
    std::string caption;
    std::string text;                  // may have several lines
    const FieldInfo* field = nullptr;  // where the user goes to mend it
    std::string put_back{};            // what was typed there

    friend bool operator==(const AreaMessage&, const AreaMessage&) = default;
};

/// How an input stands.
enum class Mark : std::uint8_t {
    None,
    Needed,   // a run needs it, and nobody has been there yet
    Missing,  // the same, but it was emptied, or a run was refused
    Wrong,    // a run would refuse what stands there, or its box could not take it
};

struct MarkCount {
    int needed = 0;
    int wrong = 0;  // or missing

    friend bool operator==(const MarkCount&, const MarkCount&) = default;
};

/// Where the messages of an area are read.
enum class MessagePage : std::uint8_t {
    Inputs,
    Results,
    Further,  // of a calculation that goes on from the results
};

/// The messages of an area and the marks of its inputs, which follow from what the checks of its
/// record refuse. Texts have the language of the moment, boxes that in which they were told.
class AreaMessages {
public:
    explicit AreaMessages(const Locale& locale) : locale_(locale) {}

    /// The inputs are those of `record`.
    void watch(const forms::Record& record);
    /// Called after lines or marks may have changed.
    std::function<void()> changed = [] {};
    /// The names of the inputs that have changed since the shown result; empty without a result.
    std::function<std::vector<std::string>()> changed_inputs = [] {
        return std::vector<std::string>();
    };

    // ---- what happens to inputs

    /// What stands in the box of `field` while it is not yet taken in: nothing, or something.
    void typing(const FieldInfo& field, bool anything);
    /// The text of a box was taken in, or an entry was chosen.
    void entered(const FieldInfo& field);
    /// A text was refused; `stays` says that it still stands in its box.
    void refused(const forms::Row& row, std::string_view typed, bool stays);
    /// The same of an input that no row of the record stands for. `settled` says whether it has a
    /// right text by now, or has closed.
    void refused(const FieldInfo& field, const Limits& limits, std::string_view typed,
                 std::function<bool()> settled);
    /// The record has changed, or the language. A line goes as soon as its field is right.
    void inputs_changed();

    // ---- what a run tells

    /// The checks have refused the record, which was told by `box`.
    void run_refused(const Box& box);
    /// A calculation that goes on from the result was refused by `check`, which tells what it
    /// refuses at any time: the line goes as soon as that is another input, or nothing.
    void run_refused(std::function<std::optional<FieldBox>()> check);
    /// A run has come to results, of which `told` was said in boxes.
    void run_done(std::vector<FieldBox> told, std::vector<Note> notes);
    /// A calculation that goes on from the result has ended, of which `told` was said in boxes.
    void further_done(std::vector<Box> told);
    /// Notes in another language.
    void renew_notes(std::vector<Note> notes);
    /// The record is another one.
    void forget();

    /// The lines, those to be mended first. What is about a result stands on its page alone.
    [[nodiscard]] std::vector<AreaMessage> lines(MessagePage page) const;
    [[nodiscard]] Mark mark(const FieldInfo& field) const;
    [[nodiscard]] MarkCount count(int page) const;

private:
    struct RefusedText {
        const FieldInfo* field;
        std::string typed;
        bool stays;
        std::function<const Limits*()> limits;
        std::function<bool()> settled;
    };
    struct Refusal {
        const FieldInfo* field;  // null where no check has refused
        Box box;
        std::function<std::optional<FieldBox>()> check{};  // where it is none of the record's
    };

    [[nodiscard]] const forms::Complaint* complaint(const FieldInfo& field) const;
    [[nodiscard]] Mark mark(const forms::Complaint& complaint) const;
    [[nodiscard]] AreaMessage line_of(const RefusedText& text) const;
    [[nodiscard]] AreaMessage line_of(const Refusal& refusal) const;
    /// A refused text stands in the box of `field`.
    [[nodiscard]] bool holds_refused(const FieldInfo& field) const;
    [[nodiscard]] int page_of(const FieldInfo& field) const;
    [[nodiscard]] bool is_visited(const FieldInfo& field) const;
    void forget_met_refusal();
    void forget_told();
    void look();

    const Locale& locale_;
    const forms::Record* record_ = nullptr;
    std::vector<forms::Complaint> complaints_;
    std::vector<const FieldInfo*> visited_;
    const FieldInfo* typing_ = nullptr;
    bool anything_typed_ = false;
    std::vector<RefusedText> refused_texts_;  // the newest last
    std::optional<Refusal> refusal_;
    std::vector<FieldBox> told_;
    std::vector<Box> further_told_;
    std::vector<Note> notes_;
};

}  // namespace zel
