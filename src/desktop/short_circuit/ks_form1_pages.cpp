#include "desktop/short_circuit/ks_form1_pages.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/frame/qt_text.h"
#include "short_circuit/input_check.h"
#include "short_circuit/short_circuit_fields.h"

namespace zel {
namespace {

constexpr int gap = 12;  // pixels between columns
constexpr int most_width = 1300;

// The captions are German in every language, the hints say the same in English.
constexpr std::string_view start_caption = "Aus Seildatenbank auswählen";
constexpr std::string_view start_hint = "Choose in the conductor database";
constexpr std::string_view take_over_caption = "Übernehmen";
constexpr std::string_view take_over_hint = "Take over the chosen conductor";
constexpr Text no_link = {"Es besteht keine Verbindung zur Seildatenbank.",
                          "There is no link to the conductor database."};

}  // namespace

KsInputPage::KsInputPage(int page, KsState& state, const KsPanel::Notify& notify) : state_(state) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
    for (const forms::Section& section : forms::short_circuit_sections())
        if (section.page == page) panels_.push_back(new KsPanel(section, state, notify));
}

void KsInputPage::set_columns(const std::vector<std::vector<std::size_t>>& columns) {
    auto* content = new QWidget;
    auto* side_by_side = new QHBoxLayout;
    side_by_side->setSpacing(gap);
    for (const auto& indexes : columns) {
        auto* column = new QVBoxLayout;
        std::vector<KsPanel*> members;
        for (const std::size_t index : indexes) {
            column->addWidget(panels_[index]);
            members.push_back(panels_[index]);
        }
        align(members);
        column->addStretch();
        side_by_side->addLayout(column, 1);
    }
    auto* layout = new QVBoxLayout(content);
    layout->addLayout(side_by_side);
    layout->addStretch();
    content->setMaximumWidth(most_width);
    setWidget(content);
    // Tab and return lead through the page from top to bottom.
    QWidget* last = nullptr;
    for (const KsPanel* panel : panels_)
        for (QWidget* input : panel->inputs()) {
            if (last != nullptr) setTabOrder(last, input);
            last = input;
        }
}

void KsInputPage::recaption() {
    for (KsPanel* panel : panels_) panel->recaption();
}

void KsInputPage::load() {
    for (KsPanel* panel : panels_) panel->load();
}

void KsInputPage::load_anew() {
    for (KsPanel* panel : panels_) panel->load_anew();
}

void KsInputPage::commit() {
    for (KsPanel* panel : panels_) panel->commit();
}

void KsInputPage::focus_first() {
    for (const KsPanel* panel : panels_)
        if (const auto inputs = panel->inputs(); !inputs.empty()) {
            inputs.front()->setFocus();
            return;
        }
}

QWidget* KsInputPage::input(KsKey key) const {
    for (const KsPanel* panel : panels_)
        if (QWidget* found = panel->input(key)) return found;
    return nullptr;
}

KsGeneralPage::KsGeneralPage(KsState& state, const KsPanel::Notify& notify)
    : KsInputPage(ks_input_page, state, notify) {
    enum { project, current, object };
    set_columns({{project, object}, {current}});
}

KsConductorPage::KsConductorPage(KsState& state, const KsPanel::Notify& notify)
    : KsInputPage(ks_conductor_page, state, notify),
      notify_(notify),
      start_(new QPushButton(qt(start_caption))),
      take_over_(new QPushButton(qt(take_over_caption))) {
    enum { record, material };
    panels()[record]->add_below(make_buttons());
    set_columns({{record}, {material}});
    KsConductorPage::recaption();
}

QWidget* KsConductorPage::make_buttons() {
    start_->setObjectName("Command3");
    take_over_->setObjectName("Command4");
    connect(start_, &QPushButton::clicked, this, [this] { state().start_conductor_database(); });
    connect(take_over_, &QPushButton::clicked, this, [this] { take_over(); });
    auto* buttons = new QWidget;
    auto* layout = new QHBoxLayout(buttons);
    layout->setContentsMargins(0, 6, 0, 0);
    layout->addWidget(start_);
    layout->addWidget(take_over_);
    layout->addStretch();
    return buttons;
}

void KsConductorPage::take_over() {
    commit();
    const Session& session = state().session;
    const auto conductor = state().chosen_conductor();
    if (!conductor) return;
    const auto refused = state().form.take_over(*conductor, session);
    notify_.changed();
    for (const auto& [box, refusal] : refused) {
        zel::Box told = refusal.box;  // a frame has a Box too
        told.lines.insert(told.lines.begin(), without_outer_blanks(field_of(box).label.de));
        session.tell(told);
    }
    if (!refused.empty()) input(refused.front().box)->setFocus();
}

void KsConductorPage::recaption() {
    KsInputPage::recaption();
    const LangId lang = state().session.lang;
    const auto set = [&](QPushButton& button, bool linked, std::string_view hint) {
        button.setEnabled(linked);
        if (!linked)
            button.setToolTip(qt(no_link, lang));
        else
            button.setToolTip(lang == LangId::English ? qt(hint) : QString());
    };
    set(*start_, static_cast<bool>(state().start_conductor_database), start_hint);
    set(*take_over_, static_cast<bool>(state().chosen_conductor), take_over_hint);
}

}  // namespace zel
