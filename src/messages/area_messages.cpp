#include "messages/area_messages.h"

#include <algorithm>
#include <utility>

#include "messages/message_texts.h"

namespace zel {
namespace {

std::string name_of(const FieldInfo& field, LangId lang) {
    return std::string(long_label_of(field).in(lang));
}

AreaMessage message_of(AreaMessage::Sort sort, const Box& box) {
    return {sort, box.icon, without_outer_blanks(box.title), joined(box.lines, "\n")};
}

}  // namespace

void AreaMessages::watch(const forms::Record& record) {
    record_ = &record;
    look();
}

void AreaMessages::look() {
    complaints_ = record_ != nullptr ? record_->complaints() : std::vector<forms::Complaint>();
}

const forms::Complaint* AreaMessages::complaint(const FieldInfo& field) const {
    const auto found =
        std::find_if(complaints_.begin(), complaints_.end(),
                     [&](const forms::Complaint& other) { return other.field == &field; });
    return found == complaints_.end() ? nullptr : &*found;
}

bool AreaMessages::is_visited(const FieldInfo& field) const {
    return std::find(visited_.begin(), visited_.end(), &field) != visited_.end();
}

void AreaMessages::typing(const FieldInfo& field, bool anything) {
    if (typing_ == &field && anything_typed_ == anything) return;
    typing_ = &field;
    anything_typed_ = anything;
    changed();
}

void AreaMessages::entered(const FieldInfo& field) {
    typing_ = nullptr;
    if (!is_visited(field)) visited_.push_back(&field);
    std::erase_if(refused_texts_, [&](const RefusedText& text) { return text.field == &field; });
}

void AreaMessages::refused(const forms::Row& row, std::string_view typed, bool stays) {
    entered(*row.field);
    refused_texts_.push_back(
        {row.field, std::string(typed), stays, [this, &row] { return record_->limits(row); },
         [this, &row] { return !record_->shown(row).empty() || !record_->state(row).open; }});
}

void AreaMessages::refused(const FieldInfo& field, const Limits& limits, std::string_view typed,
                           std::function<bool()> settled) {
    entered(field);
    refused_texts_.push_back(
        {&field, std::string(typed), false, [&limits] { return &limits; }, std::move(settled)});
}

void AreaMessages::inputs_changed() {
    look();
    std::erase_if(refused_texts_, [](const RefusedText& text) { return text.settled(); });
    forget_met_refusal();
    changed();
}

void AreaMessages::forget_met_refusal() {
    if (!refusal_) return;
    if (refusal_->check) {
        auto now = refusal_->check();
        if (now && now->field == refusal_->field)
            refusal_->box = std::move(now->box);
        else
            refusal_.reset();
    } else if (refusal_->field != nullptr && complaint(*refusal_->field) == nullptr) {
        refusal_.reset();
    }
}

void AreaMessages::run_refused(const Box& box) {
    look();
    for (const forms::Complaint& complaint : complaints_)
        if (!is_visited(*complaint.field)) visited_.push_back(complaint.field);
    refusal_ = {complaints_.empty() ? nullptr : complaints_.front().field, box};
    forget_told();
    changed();
}

void AreaMessages::run_refused(std::function<std::optional<FieldBox>()> check) {
    const auto first = check();
    if (!first) return;
    refusal_ = {first->field, first->box, std::move(check)};
    further_told_.clear();
    changed();
}

void AreaMessages::run_done(std::vector<FieldBox> told, std::vector<Note> notes) {
    refusal_.reset();
    refused_texts_.clear();
    forget_told();
    told_ = std::move(told);
    notes_ = std::move(notes);
    inputs_changed();
}

void AreaMessages::further_done(std::vector<Box> told) {
    further_told_ = std::move(told);
    changed();
}

void AreaMessages::forget_told() {
    told_.clear();
    further_told_.clear();
    notes_.clear();
}

void AreaMessages::renew_notes(std::vector<Note> notes) {
    notes_ = std::move(notes);
    changed();
}

void AreaMessages::forget() {
    visited_.clear();
    typing_ = nullptr;
    refused_texts_.clear();
    refusal_.reset();
    forget_told();
    look();
    changed();
}

AreaMessage AreaMessages::line_of(const RefusedText& text) const {
    using namespace message_texts;
    const LangId lang = locale_.lang;
    return {
        AreaMessage::Sort::RefusedText,
        Icon::Warning,
        std::string(refused_caption.in(lang)),
        refused_text(name_of(*text.field, lang), *text.field, text.limits(), text.typed, locale_),
        text.field,
        text.stays ? std::string() : text.typed};
}

/// In the language of the moment, as far as the checks tell it.
AreaMessage AreaMessages::line_of(const Refusal& refusal) const {
    const forms::Complaint* now = refusal.field != nullptr ? complaint(*refusal.field) : nullptr;
    AreaMessage line =
        message_of(AreaMessage::Sort::Refusal, now != nullptr ? now->box : refusal.box);
    line.field = refusal.field;
    return line;
}

std::vector<AreaMessage> AreaMessages::lines(MessagePage page) const {
    using namespace message_texts;
    const LangId lang = locale_.lang;
    std::vector<AreaMessage> lines;
    for (auto text = refused_texts_.rbegin(); text != refused_texts_.rend(); ++text)
        lines.push_back(line_of(*text));
    if (refusal_) lines.push_back(line_of(*refusal_));
    if (page == MessagePage::Further)
        for (const Box& box : further_told_)
            lines.push_back(message_of(AreaMessage::Sort::Told, box));
    if (page != MessagePage::Results) return lines;
    if (const auto names = changed_inputs(); !names.empty())
        lines.push_back({AreaMessage::Sort::OutOfDate, Icon::None,
                         std::string(out_of_date_caption.in(lang)),
                         fill(out_of_date.in(lang), {some_of(names, lang)})});
    for (const auto& [box, field] : told_) {
        lines.push_back(message_of(AreaMessage::Sort::Told, box));
        lines.back().field = field;
    }
    for (const Note& told : notes_)
        lines.push_back(
            {AreaMessage::Sort::Note, Icon::None, std::string(note.in(lang)), told.text});
    return lines;
}

Mark AreaMessages::mark(const forms::Complaint& complaint) const {
    if (typing_ == complaint.field && anything_typed_) return Mark::None;
    if (holds_refused(*complaint.field)) return Mark::Wrong;
    const bool visited = is_visited(*complaint.field);
    if (complaint.missing) return visited ? Mark::Missing : Mark::Needed;
    return visited ? Mark::Wrong : Mark::None;
}

Mark AreaMessages::mark(const FieldInfo& field) const {
    const forms::Complaint* found = complaint(field);
    if (found != nullptr) return mark(*found);
    return typing_ != &field && holds_refused(field) ? Mark::Wrong : Mark::None;
}

bool AreaMessages::holds_refused(const FieldInfo& field) const {
    return std::any_of(refused_texts_.begin(), refused_texts_.end(),
                       [&](const RefusedText& text) { return text.stays && text.field == &field; });
}

int AreaMessages::page_of(const FieldInfo& field) const {
    for (const forms::Section& section : record_->sections())
        for (const forms::Row& row : section.rows)
            if (row.field == &field) return section.page;
    return 0;
}

MarkCount AreaMessages::count(int page) const {
    MarkCount count;
    for (const forms::Complaint& complaint : complaints_) {
        if (complaint.page != page) continue;
        const Mark found = mark(complaint);
        if (found == Mark::Needed) ++count.needed;
        if (found == Mark::Missing || found == Mark::Wrong) ++count.wrong;
    }
    for (const RefusedText& text : refused_texts_)
        if (complaint(*text.field) == nullptr && mark(*text.field) == Mark::Wrong &&
            page_of(*text.field) == page)
            ++count.wrong;
    return count;
}

}  // namespace zel
