#include "desktop/line/table_panel.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QShortcut>
#include <QTableView>
#include <QToolButton>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/job_runner.h"
#include "forms/line_form.h"
#include "persistence/sheet_file.h"
#include "workflow/rules/derived.h"
#include "workflow/run/steady_texts.h"
#include "workflow/run/transient_memory.h"

namespace zel {
namespace {

enum { winds, temperatures, currents };  // the panels
enum : std::size_t { copy_button = 1, save_button = 2 };

constexpr int cell_padding = 2;  // pixels
constexpr int line_height = 22;
constexpr int least_height = 200;  // of the table

constexpr Text table_name = {"Parametertabelle", "Parameter table"};
constexpr Text choose_step = {"Schrittweite auswählen", "Choose the step"};
constexpr Text save_title = {"Tabelle speichern", "Save table"};
constexpr BoxText saved = {
    Icon::None, save_title, {"Die Tabelle wurde geschrieben:\n{0}", "The table was written:\n{0}"}};
/// {0} what the rows step, {1} of what, {2} the unit of the cells and of what they are
constexpr Text heading = {"Zeilen : {0}{1}     Zellen : {2}", "Rows : {0}{1}     Cells : {2}"};
constexpr Text sub_conductor = {"Teilleiter", "sub-conductor"};

/// What is read of `c` for its table, whatever the separator of its texts is.
CalcCase table_inputs(const CalcCase& c, DecimalSeparator separator) {
    CalcCase inputs = steady_inputs(c);
    static_cast<ParameterTableData&>(inputs) = c;
    inputs.Umgebungstemperaturmerker_db = c.Umgebungstemperaturmerker_db;
    respell(inputs, separator, DecimalSeparator::Point);
    return inputs;
}

std::string heading_of(const CalcCase& c, Stepped stepped, LangId lang) {
    const std::string conductors(bundle_name(c.Anzahl_Teilleiter_db).in(lang));
    const std::string rows(step_label(stepped).in(lang));
    if (stepped != Stepped::Current) return fill(heading.in(lang), {rows, "", "A, " + conductors});
    const bool of_one = !c.Stromstaerkebuendel_Merker_db && c.Anzahl_Teilleiter_db > 1;
    return fill(heading.in(lang),
                {rows, ", " + (of_one ? std::string(sub_conductor.in(lang)) : conductors), "°C"});
}

}  // namespace

struct TablePanel::ButtonRow {
    const char* name;
    void (TablePanel::*act)();
    Text caption;  // of the first the title of the table stands there
};

TablePanel::TablePanel(const Parts& parts)
    : parts_(parts),
      caption_(plain_label(1, true)),
      heading_(plain_label()),
      model_(parts.form.session),
      view_(new QTableView) {
    caption_->setObjectName("table_caption");
    heading_->setObjectName("table_heading");
    FormParts form = parts.form;
    form.refused = [this, told = parts.form.refused](QWidget* input) {
        typing_refused_ = true;
        told(input);
    };
    form.look.row_gap = 6;
    for (const forms::Section& section : forms::table_sections())
        panels_.push_back(new FormPanel(section, form));
    make_view();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(caption_);
    for (FormPanel* panel : panels_) layout->addWidget(panel);
    layout->addLayout(make_buttons());
    layout->addWidget(heading_);
    layout->addWidget(view_, 1);
    // The lists of steps stand last, out of the way of return.
    setTabOrder(buttons_.back(), view_);
    QWidget* last = view_;
    for (const auto& [panel, field] : {std::pair(temperatures, &CalcCase::Schrittweite_Temp_db),
                                       std::pair(currents, &CalcCase::Schrittweite_Strom_db)}) {
        FormPanel& range = *panels_[panel];
        QToolButton* steps =
            make_steps(range, *forms::row_of(forms::table_sections(), field_of(field)));
        setTabOrder(last, steps);
        last = steps;
    }
    parts.form.captions.accessible_name(view_, table_name);
    parts.form.captions.computed([this](LangId) {
        show_captions();
        model_.retell();
        show_heading();
    });
    case_changed();
}

void TablePanel::make_view() {
    view_->setObjectName("parameter_table");
    view_->setModel(&model_);
    view_->setMinimumHeight(least_height);
    view_->setTabKeyNavigation(false);
    view_->setWordWrap(false);
    view_->setSelectionMode(QAbstractItemView::ContiguousSelection);
    view_->setHorizontalScrollMode(QAbstractItemView::ScrollPerPixel);
    for (QHeaderView* head : {view_->horizontalHeader(), view_->verticalHeader()})
        head->setSectionResizeMode(QHeaderView::Fixed);
    view_->verticalHeader()->setDefaultSectionSize(line_height);
    view_->verticalHeader()->setDefaultAlignment(Qt::AlignRight | Qt::AlignVCenter);
    view_->horizontalHeader()->setDefaultAlignment(Qt::AlignHCenter | Qt::AlignBottom);
    auto* shortcut = new QShortcut(QKeySequence::Copy, view_);
    shortcut->setContext(Qt::WidgetShortcut);
    on(shortcut, &QShortcut::activated, [this] { copy(); });
}

/// A list of usual steps beside the box, which takes any.
QToolButton* TablePanel::make_steps(FormPanel& panel, const forms::Row& row) {
    auto* button = new QToolButton;
    button->setObjectName(QString("steps_of_") + row.control);
    button->setText(qt(row.field->unit));
    button->setPopupMode(QToolButton::InstantPopup);
    auto* menu = new QMenu(button);
    const bool of_current = row.field == &field_of(&CalcCase::Schrittweite_Strom_db);
    for (const std::string& step : kind_texts(of_current, false, LangId::English).table_steps) {
        const std::string number(without_outer_blanks(step));
        QAction* action = menu->addAction(qt(number));
        action->setObjectName(button->objectName() + "(" + qt(number) + ")");
        on(action, &QAction::triggered, [this, &panel, &row, number] {
            (void)parts_.form.record.enter(row, number);
            panel.load();
            parts_.form.changed();
        });
    }
    button->setMenu(menu);
    Captions& captions = parts_.form.captions;
    captions.tool_tip(captions.accessible_name(button, choose_step), choose_step);
    panel.add_beside(row.control, button);
    return button;
}

QHBoxLayout* TablePanel::make_buttons() {
    static constexpr ButtonRow rows[] = {
        {"calculate_table", &TablePanel::calculate, {}},
        {"copy_table", &TablePanel::copy, {"Ko&pieren", "Cop&y"}},
        {"save_table", &TablePanel::save, {"Spei&chern ...", "Sa&ve ..."}},
        {"draw_diagram",
         &TablePanel::show_diagram,
         {"&Graphische Darstellung ...", "Diagra&m ..."}},
    };
    auto* line = new QHBoxLayout;
    for (const ButtonRow& row : rows) {
        auto* button = parts_.form.captions.text(new QPushButton, row.caption);
        button->setObjectName(row.name);
        button->setAutoDefault(true);
        on(button, &QPushButton::clicked, [this, &row] { (this->*row.act)(); });
        line->addWidget(button);
        buttons_.push_back(button);
    }
    line->addStretch(1);
    return line;
}

void TablePanel::show_captions() {
    const LangId lang = parts_.form.session.lang;
    const Stepped stepped = stepped_by(parts_.c);
    caption_->setText(
        qt(kind_texts(stepped == Stepped::Current, stepped == Stepped::AmbientTemperature, lang)
               .parameter_table_caption)
            .trimmed());
    QString title = qt(table_title(stepped), lang);
    title.insert(title.indexOf(lang == LangId::German ? 'a' : 'b'), '&');
    buttons_.front()->setText(title);
}

void TablePanel::show_heading() {
    const bool filled = model_.rowCount() > 0;
    for (const std::size_t of_table : {copy_button, save_button})
        buttons_[of_table]->setEnabled(filled);
    heading_->setText(
        filled ? qt(heading_of(inputs_, model_.table().stepped, parts_.form.session.lang))
               : QString());
    view_->setEnabled(filled);
}

void TablePanel::load(bool anew) {
    for (FormPanel* panel : panels_) anew ? panel->load_anew() : panel->load();
    case_changed();
}

void TablePanel::commit() {
    for (FormPanel* panel : panels_) panel->commit();
}

bool TablePanel::is_unfinished() const {
    return std::any_of(panels_.begin(), panels_.end(),
                       [](const FormPanel* panel) { return panel->is_unfinished(); });
}

QWidget* TablePanel::input(const FieldInfo& field) const {
    for (const FormPanel* panel : panels_)
        if (QWidget* found = panel->input(field)) return found;
    return nullptr;
}

void TablePanel::case_changed() {
    const bool of_current = stepped_by(parts_.c) == Stepped::Current;
    panels_[temperatures]->setVisible(!of_current);
    panels_[currents]->setVisible(of_current);
    show_captions();
    if (model_.rowCount() > 0 && table_inputs(parts_.c, parts_.form.session.separator) == inputs_)
        return;
    clear();
}

void TablePanel::clear() {
    model_.clear();
    show_heading();
}

void TablePanel::calculate() {
    if (running_) return;
    const QScopedValueRollback<bool> guard(running_, true);
    const Session& session = parts_.form.session;
    if (!taken_in()) return;
    if (start_table(parts_.c, session).refusal)
        return parts_.form.messages->run_refused(
            [this] { return refusal_of_table(parts_.c, parts_.form.session.lang); });
    std::optional<ParameterTable> table;
    RunProgress progress(*this, session.lang, parts_.patience);
    run_job(
        progress, session.dialogs,
        [&table, c = parts_.c, memory = *session.memory, session](Job& job) mutable {
            const std::string title(table_title(stepped_by(c)).in(session.lang));
            table = calculate_table(
                c, session.apart(job.dialogs(), &memory), [&](std::size_t done, std::size_t all) {
                    job.tell({100.0 * static_cast<double>(done) / static_cast<double>(all), title});
                    return !job.cancelled();
                });
        });
    if (!table) return;
    inputs_ = table_inputs(parts_.c, session.separator);
    model_.show(*std::move(table));
    show_heading();
    const QFontMetrics letters = view_->fontMetrics();
    int width = letters.horizontalAdvance("000000.0");
    for (int column = 0; column < model_.columnCount(); ++column)
        width = std::max(width, view_->horizontalHeader()->sectionSizeHint(column));
    view_->horizontalHeader()->setDefaultSectionSize(width + cell_padding);
    view_->scrollToTop();
    calculated();
}

/// False where a text was refused.
bool TablePanel::taken_in() {
    typing_refused_ = false;
    commit();
    return !typing_refused_;
}

void TablePanel::show_diagram() {
    if (taken_in()) draw();
}

void TablePanel::copy() {
    if (model_.rowCount() == 0) return;
    const WaitCursor waiting;
    QGuiApplication::clipboard()->setText(qt(model_.text_of(view_->selectionModel()->selection())));
}

void TablePanel::save() {
    const LangId lang = parts_.form.session.lang;
    const SheetDesign sheet = table_sheet(model_.table(), parts_.form.session);
    parts_.saving.save(save_title, {}, sheet.name, [&](const std::string& path) {
        write_sheet(sheet, path, parts_.saving.workbooks, parts_.saving.files,
                    parts_.form.session.separator);
        return box_in(lang, saved, {path});
    });
}

}  // namespace zel
