#include "desktop/conductors/conductor_sheet.h"

#include <QApplication>
#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QTabWidget>

#include "workflow/rules/entry_rules.h"
#include "workflow/rules/steady_check.h"

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
        {{"Widers&tand", "&Resistance"}, {section::resistance, section::conductivity}},
        {{"AC-Wert&epaare", "AC &pairs"}, {section::ac_pairs}},
    };
    return tabs;
}

constexpr int figure_digits = 8;
constexpr int box_frame = 16;  // pixels, around its digits
constexpr Text methods_caption = {"Berechnungsverfahren mit diesem Leiter",
                                  "Calculation methods with this conductor"};
constexpr Text can_run = {"kann rechnen", "can run"};
constexpr Text wrong_kind_text = {"nicht für diese Leiterart", "not for this type of conductor"};
constexpr Text cannot_run = {"kann nicht rechnen: {0}", "cannot run: {0}"};
constexpr const char* good_mark = "✓";
constexpr const char* bad_mark = "✗";
constexpr const char* no_mark = "–";

/// A closed input is as good to read as an open one, and looks as if nothing can be typed.
void open_input(QWidget& input, bool open) {
    QPalette palette = QApplication::palette();
    if (!open) palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    for (const auto role : {QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, palette.color(QPalette::Active, role));
    input.setPalette(palette);
    if (auto* edit = qobject_cast<QLineEdit*>(&input)) edit->setReadOnly(!open);
    if (auto* list = dynamic_cast<QuietList*>(&input)) list->set_read_only(!open);
}

}  // namespace

ConductorSheet::ConductorSheet(const Session& session, Captions& captions)
    : session_(session),
      captions_(captions),
      form_(c_, session),
      sections_(forms::conductor_sections()) {
    sections_[section::designation].columns = 1;
    sections_[section::ac_pairs].columns = side_by_side;
    std::erase_if(sections_[section::designation].rows, [](const forms::Row& row) {
        return row.field == &field_of(&CalcCase::Anmerkung_db);  // has a line of its own
    });
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(make_tabs(), 1);
    layout->addLayout(make_texts());
    layout->addLayout(make_figures());
    layout->addWidget(make_methods());
    make_scrolling(*this);
    setWidget(content);
    show_conductor({}, false);
    captions.computed([this](LangId) { judge(); });
}

QSize ConductorSheet::minimumSizeHint() const {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    return {widget()->minimumSizeHint().width() + bar, QScrollArea::minimumSizeHint().height()};
}

FormPanel* ConductorSheet::make_panel(std::size_t section) {
    FormParts parts = {form_, session_, captions_, [this](QWidget* input) { refused_.to(input); },
                       [this] { judge(); }};
    parts.look.row_gap = 6;
    panels_.push_back(new FormPanel(sections_[section], parts));
    return panels_.back();
}

QWidget* ConductorSheet::make_tabs() {
    tabs_ = new QTabWidget;
    tabs_->setUsesScrollButtons(false);  // all are in sight
    for (const Tab& tab : tabs_of_sheet()) {
        auto* page = new QWidget;
        auto* down = new QVBoxLayout(page);
        std::vector<FormPanel*> panels;
        for (const std::size_t member : tab.sections) {
            panels.push_back(make_panel(member));
            down->addWidget(panels.back());
        }
        captions_.computed([panels](LangId) { align(panels); });
        down->addStretch();
        const int index = tabs_->addTab(page, QString());
        captions_.computed([this, index, caption = tab.caption](LangId lang) {
            tabs_->setTabText(index, qt(caption, lang));
        });
    }
    return tabs_;
}

QLayout* ConductorSheet::make_texts() {
    auto* grid = new QGridLayout;
    for (TextLine& line : texts_) {
        const int row = grid->rowCount();
        line.edit = new QLineEdit;
        line.edit->setObjectName(line.name);
        line.shown = plain_label();
        line.shown->setObjectName(QString("shown_") + line.name);
        line.shown->setWordWrap(true);
        line.shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
        QLabel* label = captions_.text(plain_label(), line.caption);
        label->setBuddy(line.edit);
        grid->addWidget(label, row, 0, Qt::AlignTop);
        grid->addWidget(line.edit, row, 1);
        grid->addWidget(line.shown, row, 1);
    }
    grid->setColumnStretch(1, 1);
    return grid;
}

QLayout* ConductorSheet::make_figures() {
    auto* layout = new QHBoxLayout;
    for (FigureLine& figure : figures_) {
        QLabel* label = captions_.text(plain_label(), figure.caption);
        figure.edit = new QLineEdit;
        figure.edit->setObjectName(figure.name);
        figure.edit->setAlignment(Qt::AlignRight);
        figure.edit->setFixedWidth(
            figure_digits * figure.edit->fontMetrics().horizontalAdvance('0') + box_frame);
        figure.edit->installEventFilter(new NumberKeys(figure.edit, session_));
        understand_pasted_numbers(*figure.edit, session_);
        label->setBuddy(figure.edit);
        figure.edit->setAccessibleDescription(figure.unit);
        layout->addWidget(label);
        layout->addWidget(figure.edit);
        layout->addWidget(plain_label(figure.unit));
    }
    layout->addStretch();
    return layout;
}

QGroupBox* ConductorSheet::make_methods() {
    auto* group = captions_.title(new QGroupBox, methods_caption);
    auto* grid = new QGridLayout(inside_of(*group));
    grid->setVerticalSpacing(2);
    grid->setColumnStretch(2, 1);
    for (const Method method : all_methods) {
        const int row = grid->rowCount();
        MethodLine line{method, plain_label(), plain_label()};
        line.text->setObjectName("runs_" + qt(key_of(method)));
        line.text->setWordWrap(true);
        line.text->setAlignment(Qt::AlignTop);
        auto* name = plain_label(qt(name_of(method)));
        grid->addWidget(line.mark, row, 0, Qt::AlignTop);
        grid->addWidget(name, row, 1, Qt::AlignTop);
        grid->addWidget(line.text, row, 2);
        lines_.push_back(line);
    }
    return group;
}

void ConductorSheet::show_conductor(const LibraryConductor& conductor, bool open) {
    conductor_ = conductor;
    static_cast<ConductorData&>(c_) = conductor.c;
    c_.GMR_Merker_db = conductor.c.GMR_Merker_db;
    c_.ACDC_R_Option_Merker_db = conductor.c.ACDC_R_Option_Merker_db;
    for (FormPanel* panel : panels_) panel->load_anew();
    for (const TextLine& line : texts_) {
        const QString text = qt(line.text(conductor_));
        line.edit->setText(text);
        line.edit->setCursorPosition(0);
        line.shown->setText(text);
    }
    for (const FigureLine& figure : figures_)
        figure.edit->setText(qt((conductor.*figure.value).text));
    open_inputs(open);
    judge();
}

void ConductorSheet::open_inputs(bool open) {
    for (const TextLine& line : texts_) {
        line.edit->setVisible(open);
        line.shown->setVisible(!open);
    }
    for (const FigureLine& figure : figures_) open_input(*figure.edit, open);
    for (FormPanel* panel : panels_)
        for (QWidget* input : panel->inputs()) open_input(*input, open);
}

bool ConductorSheet::commit() {
    for (FormPanel* panel : panels_) panel->commit();
    for (const FigureLine& figure : figures_) {
        const auto refusal =
            enter(conductor_.*figure.value, nullptr, figure.edit->text().toStdString(), session_);
        if (!refusal) continue;
        figure.edit->clear();
        session_.tell(*refusal);
        refused_.to(figure.edit);
    }
    return !refused_.waits();
}

const LibraryConductor& ConductorSheet::conductor() {
    static_cast<ConductorData&>(conductor_.c) = c_;
    conductor_.c.GMR_Merker_db = c_.GMR_Merker_db;
    conductor_.c.ACDC_R_Option_Merker_db = c_.ACDC_R_Option_Merker_db;
    for (const TextLine& line : texts_) line.text(conductor_) = line.edit->text().toStdString();
    return conductor_;
}

void ConductorSheet::focus_first() {
    tabs_->setCurrentIndex(0);
    panels_.front()->inputs().front()->setFocus();
}

void ConductorSheet::judge() {
    const LangId lang = session_.lang;
    for (FormPanel* panel : panels_) panel->show_labels();
    for (const MethodLine& line : lines_) {
        const bool fits = is_for_kind(c_, line.method);
        const auto missing = missing_for(c_, line.method, lang);
        const bool runs = fits && missing.empty();
        line.mark->setText(runs ? good_mark : fits ? bad_mark : no_mark);
        const QString told = !fits  ? qt(wrong_kind_text, lang)
                             : runs ? qt(can_run, lang)
                                    : qt(fill(cannot_run.in(lang), {joined(missing, "; ")}));
        line.text->setText(told);
        line.text->setEnabled(fits);
    }
}

}  // namespace zel
