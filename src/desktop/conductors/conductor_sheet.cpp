#include "desktop/conductors/conductor_sheet.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QTabWidget>

#include "desktop/frame/group.h"
#include "desktop/frame/number_keys.h"
#include "desktop/frame/qt_text.h"
#include "workflow/rules/conductor_needs.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

// The sections of a conductor in the tables of the forms, by their order there.
namespace section {
constexpr std::size_t designation = 0, kind = 1, geometry = 2, resistance = 3, conductivity = 4,
                      material = 5, core = 6, ac_pairs = 7;
}  // namespace section

constexpr int side_by_side = 2;

struct Tab {
    Text caption;
    std::vector<std::size_t> sections;
};

const std::vector<Tab>& tabs_of_sheet() {
    static const std::vector<Tab> tabs = {
        {{"&Leiter", "C&onductor"}, {section::designation, section::kind, section::geometry}},
        {{"Leiter&werkstoff", "Conductor &material"}, {section::material}},
        {{"Ke&rn", "Cor&e"}, {section::core}},
        {{"Wi&derstand", "&Resistance"}, {section::resistance, section::conductivity}},
        {{"AC-Wert&epaare", "AC &pairs"}, {section::ac_pairs}},
    };
    return tabs;
}

constexpr Text source_caption = {"Quelle :", "Source :"};
constexpr int figure_width = 80;  // pixels
constexpr Text methods_caption = {"Berechnungsverfahren mit diesem Leiter",
                                  "Calculation methods with this conductor"};
constexpr Text can_run = {"kann rechnen", "can run"};
constexpr Text wrong_kind_text = {"nicht für diese Leiterart", "not for this type of conductor"};
constexpr Text cannot_run = {"kann nicht rechnen: {0}", "cannot run: {0}"};
constexpr const char* good_mark = "✓";
constexpr const char* bad_mark = "✗";
constexpr const char* no_mark = "–";

QLabel* plain_label() {
    auto* label = new QLabel;
    label->setTextFormat(Qt::PlainText);
    return label;
}

/// A closed input is as good to read as an open one, and looks as if nothing can be typed.
void open_input(QWidget& input, bool open) {
    QPalette palette = QApplication::palette();
    if (!open) palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    for (const auto role : {QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    input.setPalette(palette);
    if (auto* edit = qobject_cast<QLineEdit*>(&input))
        edit->setReadOnly(!open);
    else
        input.setEnabled(open);
}

QWidget* scrolling(QWidget* content) {
    auto* area = new QScrollArea;
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setWidget(content);
    return area;
}

}  // namespace

ConductorSheet::ConductorSheet(const DesktopState& program)
    : state_{CalcCase{},      program.session,  program.store,
             program.chooser, program.settings, program.launcher},
      sections_(forms::conductor_sections()) {
    state_.case_changed = [this] { judge(); };
    for (const std::size_t wide : {section::designation, section::ac_pairs})
        sections_[wide].columns = side_by_side;
    sections_[section::designation].first_stretch = 2;  // designation 1 and the remark
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(make_tabs(), 1);
    layout->addWidget(make_source());
    layout->addWidget(methods_ = make_methods());
    show_conductor({}, false);
    recaption(state_.session.lang);
}

FieldPanel* ConductorSheet::make_panel(std::size_t section) {
    auto* panel =
        new FieldPanel(sections_[section], state_, [this](QWidget* input) { refused(input); });
    panels_.push_back(panel);
    return panel;
}

QWidget* ConductorSheet::make_tabs() {
    tabs_ = new QTabWidget;
    for (const Tab& tab : tabs_of_sheet()) {
        auto* page = new QWidget;
        auto* down = new QVBoxLayout(page);
        std::vector<FieldPanel*> panels;
        for (const std::size_t member : tab.sections) {
            panels.push_back(make_panel(member));
            down->addWidget(panels.back());
        }
        align(panels);
        down->addStretch();
        tabs_->addTab(scrolling(page), QString());
    }
    return tabs_;
}

QWidget* ConductorSheet::make_source() {
    source_ = new QLineEdit;
    source_->setObjectName("source");
    source_label_ = plain_label();
    source_label_->setBuddy(source_);
    auto* line = new QWidget;
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(source_label_);
    layout->addWidget(source_, 1);
    for (FigureLine& figure : figures_) {
        figure.label = plain_label();
        figure.edit = new QLineEdit;
        figure.edit->setObjectName(figure.name);
        figure.edit->setAlignment(Qt::AlignRight);
        figure.edit->setFixedWidth(figure_width);
        figure.edit->installEventFilter(new NumberKeys(figure.edit, state_.session));
        figure.label->setBuddy(figure.edit);
        layout->addWidget(figure.label);
        layout->addWidget(figure.edit);
        auto* unit = plain_label();
        unit->setText(figure.unit);
        layout->addWidget(unit);
    }
    return line;
}

QGroupBox* ConductorSheet::make_methods() {
    auto* group = new QGroupBox;
    auto* grid = new QGridLayout(inside_of(*group));
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(2, 1);
    for (const Method method : all_methods) {
        const int row = grid->rowCount();
        MethodLine line{method, plain_label(), plain_label()};
        line.text->setObjectName("runs_" + qt(key_of(method)));
        line.text->setWordWrap(true);
        line.text->setAlignment(Qt::AlignTop);
        auto* name = plain_label();
        name->setText(qt(name_of(method)));
        grid->addWidget(line.mark, row, 0, Qt::AlignTop);
        grid->addWidget(name, row, 1, Qt::AlignTop);
        grid->addWidget(line.text, row, 2);
        lines_.push_back(line);
    }
    return group;
}

void ConductorSheet::show_conductor(const LibraryConductor& conductor, bool open) {
    conductor_ = conductor;
    static_cast<ConductorData&>(state_.calc_case) = conductor.c;
    state_.calc_case.GMR_Merker_db = conductor.c.GMR_Merker_db;
    state_.calc_case.ACDC_R_Option_Merker_db = conductor.c.ACDC_R_Option_Merker_db;
    for (FieldPanel* panel : panels_) panel->load();
    source_->setText(qt(conductor.source));
    source_->setCursorPosition(0);
    // What is longer than its box can be read all the same.
    source_->setToolTip(qt(conductor.source));
    if (auto* remark = findChild<QLineEdit*>("Anmerkung_db"))
        remark->setToolTip(qt(conductor.c.Anmerkung_db));
    for (const FigureLine& figure : figures_)
        figure.edit->setText(qt((conductor.*figure.value).text));
    open_inputs(open);
    judge();
}

void ConductorSheet::open_inputs(bool open) {
    open_input(*source_, open);
    for (const FigureLine& figure : figures_) open_input(*figure.edit, open);
    for (FieldPanel* panel : panels_)
        for (QWidget* input : panel->inputs()) open_input(*input, open);
}

bool ConductorSheet::commit() {
    for (FieldPanel* panel : panels_) panel->commit();
    for (const FigureLine& figure : figures_) {
        const auto refusal = enter(conductor_.*figure.value, nullptr,
                                   figure.edit->text().toStdString(), state_.session);
        if (!refusal) continue;
        figure.edit->clear();
        state_.session.tell(*refusal);
        refused(figure.edit);
    }
    return refused_.isNull();
}

const LibraryConductor& ConductorSheet::conductor() {
    static_cast<ConductorData&>(conductor_.c) = state_.calc_case;
    conductor_.c.GMR_Merker_db = state_.calc_case.GMR_Merker_db;
    conductor_.c.ACDC_R_Option_Merker_db = state_.calc_case.ACDC_R_Option_Merker_db;
    conductor_.source = source_->text().toStdString();
    return conductor_;
}

void ConductorSheet::focus_first() {
    tabs_->setCurrentIndex(0);
    panels_.front()->inputs().front()->setFocus();
}

void ConductorSheet::judge() {
    const LangId lang = state_.session.lang;
    for (const MethodLine& line : lines_) {
        const bool fits = is_for_kind(state_.calc_case, line.method);
        const auto missing = missing_for(state_.calc_case, line.method, lang);
        const bool runs = fits && missing.empty();
        line.mark->setText(runs ? good_mark : fits ? bad_mark : no_mark);
        const QString told = !fits  ? qt(wrong_kind_text, lang)
                             : runs ? qt(can_run, lang)
                                    : qt(fill(cannot_run.in(lang), {joined(missing, "; ")}));
        line.text->setText(told);
        line.text->setEnabled(fits);
    }
}

void ConductorSheet::recaption(LangId lang) {
    state_.session.lang = lang;
    for (FieldPanel* panel : panels_) panel->recaption();
    int index = 0;
    for (const Tab& tab : tabs_of_sheet()) tabs_->setTabText(index++, qt(tab.caption, lang));
    source_label_->setText(qt(source_caption, lang));
    for (const FigureLine& figure : figures_) figure.label->setText(qt(figure.caption, lang));
    methods_->setTitle(qt(methods_caption, lang));
    judge();
}

void ConductorSheet::refused(QWidget* input) {
    refused_ = input;
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (refused_) refused_->setFocus();
            refused_.clear();
        },
        Qt::QueuedConnection);
}

}  // namespace zel
