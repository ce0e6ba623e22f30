#include "desktop/line/form1_input_pages.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/frame/column_grid.h"
#include "desktop/frame/events.h"
#include "desktop/frame/field_mark.h"
#include "desktop/line/frm_emissivity.h"
#include "forms/given_value.h"
#include "forms/line_form.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

constexpr int gap = 12;  // pixels between columns
constexpr int gap_of_methods = 22;

constexpr Text mode_caption = {"Berechnungsart", "Mode of calculation"};
constexpr Text methods_caption = {"Berechnungsverfahren", "Calculation methods"};
constexpr Text age_hint = {"Emissionsverhältnis aus dem Seilalter berechnen ...",
                           "Calculate the emissivity from the conductor's age ..."};
constexpr Text keep_caption = {"In Schnell&zugriff-Tabelle speichern",
                               "Save in &Quick-Access-Table"};
constexpr Text open_database_caption = {"&Aus Seildatenbank auswählen",
                                        "Select from conductor data&base"};
constexpr Text open_database_hint = {"Leiterdatenbank öffnen", "Open the conductor database"};
constexpr Text take_over_caption = {"Überneh&men", "Ta&ke over"};
constexpr Text take_over_hint = {"Den dort ausgewählten Leiter übernehmen",
                                 "Take over the conductor selected there"};
constexpr Text not_available = {"Dieses Verfahren ist in dieser Version nicht verfügbar.",
                                "This method is not available in this version."};

// What a check tells that is met by a choice without a row.
const FieldInfo& mode_field() { return field_of(&CalcCase::Leitertemp_Merker_db); }
const FieldInfo& methods_field() { return field_of(flag_of(all_methods.front())); }

}  // namespace

GeneralPage::GeneralPage(const FormParts& parts, LineCase& line, const LiveSettings& settings)
    : InputPage(input_page, parts),
      line_(line),
      settings_(settings),
      mode_(make_mode_list()),
      keep_(parts.captions.text(new QPushButton, keep_caption)),
      mode_mark_(new FieldMark(*mode_)) {
    keep_->setObjectName("Command2");
    enum { project, geography, date, surroundings, overhead_line, given, measured };
    QToolButton* age_button = make_age_button();
    panel(given).add_on_top(mode_);
    panel(overhead_line).add_beside("Text2", age_button);
    auto* content = new QWidget;
    auto* columns = new ColumnGrid(gap);
    columns->place(column_of({project, geography}), {0, 0, 2, 1}, {0, 0, 2, 1});
    columns->place(column_of({date}), {0, 1}, {2, 0});
    columns->place(column_of({surroundings}), {1, 1}, {0, 1});
    columns->place(column_of({overhead_line, given, measured}), {0, 2, 2, 1}, {1, 1, 2, 1});
    columns->share({1, 1, 1}, {1, 1}, 1, 2);
    parts.captions.computed([middle = std::vector<FormPanel*>{&panel(date), &panel(surroundings)}](
                                LangId) { align(middle); });
    auto* layout = new QVBoxLayout(content);
    layout->addWidget(columns);
    // The button beside the methods leaves room for what stands below the page.
    auto* foot = new ColumnGrid(gap);
    foot->place(make_methods(), {0, 0}, {0, 0});
    foot->place(keep_, {0, 1}, {1, 0});
    foot->share({1, 0}, {1}, 1, 2);
    layout->addWidget(foot);
    layout->addStretch(1);
    set_content(content);
    measured_ = &panel(measured);
    parts.captions.computed([this](LangId) { show_measured(); });
    // The mode opens one of the given values. The button stands last, out of the way of return.
    setTabOrder(panel(overhead_line).inputs().back(), mode_);
    setTabOrder(mode_, panel(given).inputs().front());
    setTabOrder(panel(given).inputs().back(), age_button);
    show_choices();
}

QComboBox* GeneralPage::make_mode_list() {
    auto* mode = new QuietList;
    mode->setObjectName("Combo1");
    mode->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    mode->setMinimumContentsLength(20);
    for (std::size_t i = 0; i < given_value_rows().size(); ++i) mode->addItem(QString());
    on(mode, &QComboBox::activated, [this](int index) {
        set_given_value(line_.c, given_value_rows()[static_cast<std::size_t>(index)].value,
                        parts().session.separator);
        show_states();
        line_.changed();
    });
    Captions& captions = parts().captions;
    captions.tool_tip(captions.accessible_name(mode, mode_caption), mode_caption);
    captions.computed([mode](LangId lang) {
        for (const GivenValueRow& row : given_value_rows())
            mode->setItemText(static_cast<int>(row.value), qt(row.text, lang));
    });
    return mode;
}

QToolButton* GeneralPage::make_age_button() {
    auto* button = new QToolButton;
    button->setObjectName("open_frm_emissivity");
    button->setText("ε ...");
    button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);  // fills the unit's place
    on(button, &QToolButton::clicked, [this] { ask_age(); });
    Captions& captions = parts().captions;
    return captions.tool_tip(captions.accessible_name(button, age_hint), age_hint);
}

void GeneralPage::ask_age() {
    commit();
    FrmEmissivity form(this, parts().session);
    if (form.exec() != QDialog::Accepted) return;
    line_.c.Emissionsverhaeltnis_db = form.emissivity();
    load();
    line_.changed();
}

QGroupBox* GeneralPage::make_methods() {
    Captions& captions = parts().captions;
    auto* group = captions.title(new QGroupBox, methods_caption);
    group->setObjectName("methods");
    auto* layout = new QVBoxLayout(inside_of(*group));
    auto* boxes = new ColumnGrid(gap_of_methods);
    layout->addWidget(boxes);
    for (const forms::MethodRow& row : forms::method_rows()) {
        auto* box = captions.text(new QCheckBox, row.label);
        box->setObjectName(row.control);
        box->setEnabled(find_method(row.method) != nullptr);
        if (!box->isEnabled()) captions.tool_tip(box, not_available);
        on(box, &QCheckBox::toggled, [this, &row](bool chosen) {
            line_.c.*flag_of(row.method) = chosen ? 1 : 0;
            show_states();
            line_.changed();
        });
        const int place = static_cast<int>(method_boxes_.size());
        boxes->place(box, {0, place}, {place / 2, place % 2});
        method_boxes_.push_back(box);
    }
    boxes->share({0, 0, 0, 0, 1}, {0, 1}, 1, 3);
    group->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    methods_mark_ = new FieldMark(*group);
    return group;
}

QWidget* GeneralPage::input(const FieldInfo& field) const {
    if (&field == &mode_field()) return mode_;
    if (&field == &methods_field()) return method_boxes_.front();
    return InputPage::input(field);
}

void GeneralPage::show_marks() {
    InputPage::show_marks();
    const AreaMessages& messages = *parts().messages;
    const LangId lang = parts().session.lang;
    mode_mark_->show_mark(messages.mark(mode_field()), lang);
    methods_mark_->show_mark(messages.mark(methods_field()), lang);
}

void GeneralPage::show_measured() { measured_->setVisible(settings_.now().Mess_merker != 0); }

void GeneralPage::load() {
    InputPage::load();
    show_choices();
}

void GeneralPage::load_anew() {
    InputPage::load_anew();
    show_choices();
}

/// What is chosen otherwise than by a row.
void GeneralPage::show_choices() {
    mode_->setCurrentIndex(static_cast<int>(given_value(line_.c)));
    std::size_t index = 0;
    for (const forms::MethodRow& row : forms::method_rows()) {
        QCheckBox* box = method_boxes_[index++];
        const QSignalBlocker quiet(box);
        box->setChecked(is_selected(line_.c, row.method));
    }
}

ConductorPage::ConductorPage(const FormParts& parts)
    : InputPage(conductor_page, parts),
      open_database_(new QPushButton),
      take_over_(new QPushButton) {
    open_database_->setObjectName("Command3");
    take_over_->setObjectName("Command4");
    Captions& captions = parts.captions;
    captions.tool_tip(captions.text(open_database_, open_database_caption), open_database_hint);
    captions.tool_tip(captions.text(take_over_, take_over_caption), take_over_hint);
    enum { designation, kind, geometry, resistance, conductivity, material, core, ac_pairs };
    auto* grid = new ColumnGrid(gap);
    for (QPushButton* button : {open_database_, take_over_})
        button->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Expanding);
    grid->place(open_database_, {0, 0}, {0, 0});
    grid->place(take_over_, {1, 0}, {0, 1});
    grid->place(&panel(designation), {0, 1, 2, 2}, {1, 0, 1, 2});
    grid->place(&panel(kind), {2, 0, 1, 3}, {2, 0, 1, 2});
    grid->place(column_of({geometry, resistance, conductivity}), {3, 0, 2, 1}, {3, 0, 2, 1});
    grid->place(column_of({material}), {3, 1}, {3, 1});
    grid->place(column_of({core}), {3, 2}, {4, 1});
    grid->place(&panel(ac_pairs), {4, 1, 1, 2}, {5, 0, 1, 2});
    grid->share({6, 7, 7}, {1, 1}, 4, 4);
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->addWidget(grid);
    layout->addStretch(1);
    set_content(content);
    // The chain of the conductivities is a ring, and the equivalent radius leads into it.
    tab_through({designation, kind, geometry, material, core, ac_pairs, resistance, conductivity});
    setTabOrder(open_database_, take_over_);
    setTabOrder(take_over_, panel(designation).inputs().front());
}

}  // namespace zel
