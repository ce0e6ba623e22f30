#include "desktop/line/form1_input_pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/frame/group.h"
#include "desktop/frame/qt_text.h"
#include "desktop/frame/quiet_list.h"
#include "desktop/line/frm_emissivity.h"
#include "forms/given_value.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

constexpr int gap = 12;  // pixels between columns
constexpr int most_width = 1300;

constexpr Text mode_caption = {"Berechnungsart", "Mode of calculation"};
constexpr Text methods_caption = {"Berechnungsverfahren", "Calculation methods"};
constexpr Text age_hint = {"Emissionsverhältnis aus dem Seilalter berechnen ...",
                           "Calculate the emissivity from the conductor's age ..."};
constexpr Text open_database_caption = {"Aus Seil&datenbank auswählen",
                                        "Select from conductor &database"};
constexpr Text open_database_hint = {"Leiterdatenbank öffnen", "Open the conductor database"};
constexpr Text take_over_caption = {"Über&nehmen", "&Take over"};
constexpr Text take_over_hint = {"Den dort ausgewählten Leiter übernehmen",
                                 "Take over the conductor selected there"};
constexpr Text not_available = {"Dieses Verfahren ist in dieser Version nicht verfügbar.",
                                "This method is not available in this version."};

}  // namespace

InputPage::InputPage(DesktopState& state, FieldPanel::Refused refused)
    : state_(state), refused_(std::move(refused)) {
    setWidgetResizable(true);
    setFrameShape(QFrame::NoFrame);
}

void InputPage::make_panels(int page) {
    const auto& sections =
        page == input_page ? forms::input_sections() : forms::conductor_sections();
    for (const forms::Section& section : sections)
        panels_.push_back(new FieldPanel(section, state_, refused_));
}

QWidget* InputPage::column_of(const std::vector<std::size_t>& indexes) {
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    auto& members = columns_.emplace_back();
    for (const std::size_t index : indexes) {
        // The last panel reaches down to the end of the neighbouring columns.
        layout->addWidget(panels_[index], index == indexes.back() ? 1 : 0);
        members.push_back(panels_[index]);
    }
    return column;
}

void InputPage::set_content(QWidget* content) {
    content->setMaximumWidth(most_width);
    setWidget(content);
}

void InputPage::tab_through(const std::vector<std::size_t>& indexes) {
    QWidget* last = nullptr;
    for (const std::size_t index : indexes)
        for (QWidget* input : panels_[index]->inputs()) {
            if (last != nullptr) setTabOrder(last, input);
            last = input;
        }
}

void InputPage::focus_first() { panels_.front()->inputs().front()->setFocus(); }

void InputPage::recaption() {
    for (FieldPanel* panel : panels_) panel->recaption();
    for (const auto& column : columns_) align(column);
}

void InputPage::load() {
    for (FieldPanel* panel : panels_) panel->load();
    mark_needed();
}

void InputPage::commit() {
    for (FieldPanel* panel : panels_) panel->commit();
}

void InputPage::mark_needed() {
    for (FieldPanel* panel : panels_) panel->mark_needed();
}

GeneralPage::GeneralPage(DesktopState& state, FieldPanel::Refused refused)
    : InputPage(state, std::move(refused)),
      mode_(new QuietList),
      age_button_(make_age_button()),
      methods_(make_methods()) {
    enum { project, geography, date, surroundings, line, given, measured };
    make_panels(input_page);
    measured_ = &panel(measured);
    make_mode_list();
    panel(given).add_on_top(mode_);
    panel(line).add_beside("Text2", age_button_);
    auto* content = new QWidget;
    auto* columns = new QHBoxLayout;
    columns->setSpacing(gap);
    columns->addWidget(column_of({project, geography}), 1);
    columns->addWidget(column_of({date, surroundings}), 1);
    columns->addWidget(column_of({line, given, measured}), 1);
    auto* layout = new QVBoxLayout(content);
    layout->addLayout(columns);
    layout->addWidget(methods_);
    layout->addStretch(1);
    set_content(content);
    // The mode opens one of the given values. The button stands last, out of the way of return.
    setTabOrder(panel(line).inputs().back(), mode_);
    setTabOrder(mode_, panel(given).inputs().front());
    setTabOrder(panel(given).inputs().back(), age_button_);
    GeneralPage::recaption();
    GeneralPage::load();
}

void GeneralPage::make_mode_list() {
    mode_->setObjectName("Combo1");
    mode_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    mode_->setMinimumContentsLength(20);
    for (std::size_t i = 0; i < given_value_rows().size(); ++i) mode_->addItem(QString());
    connect(mode_, &QComboBox::activated, this, [this](int index) {
        set_given_value(state().calc_case,
                        given_value_rows()[static_cast<std::size_t>(index)].value,
                        state().session.separator);
        open_given_box();
        state().case_changed();
    });
}

QToolButton* GeneralPage::make_age_button() {
    auto* button = new QToolButton;
    button->setObjectName("open_frm_emissivity");
    button->setText("ε ...");
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);  // fills the unit's place
    connect(button, &QToolButton::clicked, this, [this] { ask_age(); });
    return button;
}

void GeneralPage::ask_age() {
    commit();
    FrmEmissivity form(this, state().session);
    if (form.exec() != QDialog::Accepted) return;
    state().calc_case.Emissionsverhaeltnis_db = form.emissivity();
    load();
    state().case_changed();
}

QGroupBox* GeneralPage::make_methods() {
    auto* group = new QGroupBox;
    auto* layout = new QHBoxLayout(inside_of(*group));
    for (const forms::MethodRow& row : forms::method_rows()) {
        auto* box = new QCheckBox;
        box->setObjectName(row.control);
        box->setEnabled(find_method(row.method) != nullptr);
        connect(box, &QCheckBox::toggled, this, [this, &row](bool on) {
            state().calc_case.*flag_of(row.method) = on ? 1 : 0;
            mark_needed();
            state().case_changed();
        });
        layout->addWidget(box);
        layout->addSpacing(16);
        method_boxes_.push_back(box);
    }
    layout->addStretch();
    return group;
}

/// Only the box that belongs to the mode takes an input.
void GeneralPage::open_given_box() {
    const GivenValue given = given_value(state().calc_case);
    for (const GivenValueRow& row : given_value_rows())
        if (auto* box = findChild<QWidget*>(row.control); box != nullptr && *row.control != '\0')
            box->setEnabled(row.value == given);
}

void GeneralPage::recaption() {
    InputPage::recaption();
    show_measured();
    const LangId lang = state().session.lang;
    methods_->setTitle(qt(methods_caption, lang));
    mode_->setAccessibleName(qt(mode_caption, lang));
    mode_->setToolTip(qt(mode_caption, lang));
    age_button_->setToolTip(qt(age_hint, lang));
    age_button_->setAccessibleName(qt(age_hint, lang));
    for (const GivenValueRow& row : given_value_rows())
        mode_->setItemText(static_cast<int>(row.value), qt(row.text, lang));
    std::size_t index = 0;
    for (const forms::MethodRow& row : forms::method_rows()) {
        QCheckBox* box = method_boxes_[index++];
        box->setText(qt(row.label, lang));
        box->setToolTip(box->isEnabled() ? QString() : qt(not_available, lang));
    }
}

void GeneralPage::show_measured() {
    measured_->setVisible(state().settings.now().Mess_merker != 0);
}

void GeneralPage::load() {
    InputPage::load();
    mode_->setCurrentIndex(static_cast<int>(given_value(state().calc_case)));
    std::size_t index = 0;
    for (const forms::MethodRow& row : forms::method_rows()) {
        QCheckBox* box = method_boxes_[index++];
        const QSignalBlocker quiet(box);
        box->setChecked(is_selected(state().calc_case, row.method));
    }
    open_given_box();
}

ConductorPage::ConductorPage(DesktopState& state, FieldPanel::Refused refused)
    : InputPage(state, std::move(refused)),
      open_database_(new QPushButton),
      take_over_(new QPushButton) {
    open_database_->setObjectName("Command3");
    take_over_->setObjectName("Command4");
    enum { designation, kind, geometry, resistance, conductivity, material, core, ac_pairs };
    make_panels(conductor_page);
    auto* materials = new QHBoxLayout;
    materials->setSpacing(gap);
    materials->addWidget(column_of({material}));
    materials->addWidget(column_of({core}));
    auto* right = new QVBoxLayout;
    right->addLayout(materials);
    right->addWidget(&panel(ac_pairs), 1);
    auto* columns = new QHBoxLayout;
    columns->setSpacing(gap);
    columns->addWidget(column_of({geometry, resistance, conductivity}), 3);
    columns->addLayout(right, 7);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    auto* buttons = new QVBoxLayout;
    for (QPushButton* button : {open_database_, take_over_}) {
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
        buttons->addWidget(button);
    }
    auto* choice = new QHBoxLayout;
    choice->setSpacing(gap);
    choice->addLayout(buttons);
    choice->addWidget(&panel(designation), 1);
    layout->addLayout(choice);
    layout->addWidget(&panel(kind));
    layout->addLayout(columns);
    layout->addStretch(1);
    set_content(content);
    // The chain of the conductivities is a ring, and the equivalent radius leads into it.
    tab_through({designation, kind, geometry, material, core, ac_pairs, resistance, conductivity});
    setTabOrder(open_database_, take_over_);
    setTabOrder(take_over_, panel(designation).inputs().front());
    ConductorPage::recaption();
    load();
}

void ConductorPage::recaption() {
    InputPage::recaption();
    const LangId lang = state().session.lang;
    open_database_->setText(qt(open_database_caption, lang));
    take_over_->setText(qt(take_over_caption, lang));
    open_database_->setToolTip(qt(open_database_hint, lang));
    take_over_->setToolTip(qt(take_over_hint, lang));
}

}  // namespace zel
