#include "desktop/frame/input_page.h"

#include <QVBoxLayout>
#include <algorithm>

namespace zel {
namespace {

constexpr int panel_gap = 12;  // pixels between panels that do not fill their column

}  // namespace

InputPage::InputPage(int page, const FormParts& parts) : parts_(parts) {
    for (const forms::Section& section : parts.record.sections())
        if (section.page == page) panels_.push_back(new FormPanel(section, parts));
}

QWidget* InputPage::column_of(const std::vector<std::size_t>& indexes) {
    const bool fills = parts_.look.fills_room;
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    std::vector<FormPanel*> members;
    for (const std::size_t index : indexes) {
        layout->addWidget(panels_[index], fills && index == indexes.back() ? 1 : 0);
        members.push_back(panels_[index]);
    }
    if (!fills) {
        layout->setSpacing(panel_gap);
        layout->addStretch();
    }
    parts_.captions.computed([members](LangId) { align(members); });
    return column;
}

void InputPage::tab_through(const std::vector<std::size_t>& indexes) {
    QWidget* last = nullptr;
    for (const std::size_t index : indexes)
        for (QWidget* input : panels_[index]->inputs()) {
            if (last != nullptr) setTabOrder(last, input);
            last = input;
        }
}

void InputPage::focus_first() {
    for (const FormPanel* panel : panels_)
        if (const auto inputs = panel->inputs(); !inputs.empty()) return inputs.front()->setFocus();
}

void InputPage::load() {
    for (FormPanel* panel : panels_) panel->load();
}

void InputPage::load_anew() {
    for (FormPanel* panel : panels_) panel->load_anew();
}

void InputPage::show_states() {
    for (FormPanel* panel : panels_) panel->show_states();
}

void InputPage::show_labels() {
    for (FormPanel* panel : panels_) panel->show_labels();
}

void InputPage::commit() {
    for (FormPanel* panel : panels_) panel->commit();
}

bool InputPage::is_unfinished() const {
    return std::any_of(panels_.begin(), panels_.end(),
                       [](const FormPanel* panel) { return panel->is_unfinished(); });
}

void InputPage::show_marks() {
    for (FormPanel* panel : panels_) panel->show_marks();
}

std::vector<forms::PendingText> InputPage::pending() const {
    std::vector<forms::PendingText> texts;
    for (const FormPanel* panel : panels_)
        for (forms::PendingText& text : panel->pending()) texts.push_back(std::move(text));
    return texts;
}

QWidget* InputPage::input(const FieldInfo& field) const {
    for (const FormPanel* panel : panels_)
        if (QWidget* found = panel->input(field)) return found;
    return nullptr;
}

}  // namespace zel
