#include "desktop/frame/field_panel.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>

#include "desktop/frame/focus_chain.h"
#include "desktop/frame/group.h"
#include "desktop/frame/number_keys.h"
#include "desktop/frame/qt_text.h"
#include "desktop/frame/quiet_list.h"
#include "workflow/run/page_change.h"

namespace zel {
namespace {

constexpr int grid_columns_per_field = 4;  // label, input, unit, gap to the next field
constexpr int gap_width = 12;
constexpr int number_width = 72;  // pixels at least, for a number
constexpr int top_row = 0;        // for a widget above the rows

bool is_free_text(const forms::Row& row) { return row.is_free_text(); }

bool has_units(const forms::Section& section) {
    return std::any_of(section.rows.begin(), section.rows.end(),
                       [](const forms::Row& row) { return !row.field->unit.empty(); });
}

/// An unchanged text stays as it is, with what the box can undo.
void show_in(QLineEdit& edit, const std::string& text) {
    if (edit.text() == qt(text)) return;
    edit.setText(qt(text));
    edit.setCursorPosition(0);
}

/// These lists have German and English texts only.
LangId report_language(const DesktopState& state) {
    return state.settings.now().LangId_print == 1 ? LangId::German : LangId::English;
}

QLabel* make_label(const QString& text) {
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    return label;
}

}  // namespace

FieldPanel::FieldPanel(const forms::Section& section, DesktopState& state, Refused refused)
    : section_(section),
      state_(state),
      form_(state.calc_case, state.session, [&state] { return report_language(state); }),
      refused_(std::move(refused)),
      grid_(new QGridLayout(inside_of(*this))) {
    grid_->setHorizontalSpacing(8);
    grid_->setVerticalSpacing(section.page == conductor_page ? 6 : 10);
    int index = 0;
    for (const forms::Row& row : section.rows) add_row(row, index++);
    grid_->setRowStretch(grid_->rowCount(), 1);  // a panel taller than its rows has them on top
    for (int column = 0; column < section.columns; ++column) {
        const int first = column * grid_columns_per_field;
        grid_->setColumnStretch(first + 1, column == 0 ? section.first_stretch : 1);
        if (column > 0) grid_->setColumnMinimumWidth(first - 1, gap_width);
    }
    recaption();
    load();
}

void FieldPanel::add_row(const forms::Row& row, int index) {
    const int line = top_row + 1 + index / section_.columns;
    const int column = index % section_.columns * grid_columns_per_field;
    Field field{&row, make_label({}), nullptr, nullptr, nullptr, nullptr};
    QWidget* input = nullptr;
    if (row.is_list())
        input = field.list = make_list(row);
    else
        input = field.edit = make_edit(row);
    input->setObjectName(row.control);
    field.label->setBuddy(input);
    grid_->addWidget(field.label, line, column);
    const bool wide = field.list != nullptr || is_free_text(row) || !has_units(section_);
    grid_->addWidget(input, line, column + 1, 1, wide ? 2 : 1);
    if (!wide) grid_->addWidget(field.unit = make_label(qt(row.field->unit)), line, column + 2);
    fields_.push_back(field);
}

QLineEdit* FieldPanel::make_edit(const forms::Row& row) {
    auto* edit = new QLineEdit;
    edit->setMinimumWidth(number_width);
    if (!is_free_text(row)) edit->setAlignment(Qt::AlignRight);
    edit->installEventFilter(this);
    edit->installEventFilter(new FocusChain(edit, [](std::string_view control) {
        static CalcCase c;
        return forms::LineForm(c, Locale{}).next_control(control);
    }));
    if (is_free_text(row)) return edit;
    edit->installEventFilter(new NumberKeys(edit, state_.session));
    // An input method would type past the filter of keys.
    edit->setAttribute(Qt::WA_InputMethodEnabled, false);
    return edit;
}

bool FieldPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::FocusOut) return false;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return false;
    for (const Field& field : fields_)
        if (field.edit == watched) take_in(*field.row, *field.edit);
    return false;
}

QComboBox* FieldPanel::make_list(const forms::Row& row) {
    auto* list = new QuietList;
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(6);
    connect(list, &QComboBox::activated, this, [this, &row](int index) {
        form_.choose(row, index);
        state_.case_changed();
    });
    return list;
}

void FieldPanel::take_in(const forms::Row& row, QLineEdit& edit) {
    const std::string typed = edit.text().toStdString();
    if (typed == form_.shown(row)) return;
    const auto refusal = form_.enter(row, typed);
    show_in(edit, form_.shown(row));
    state_.case_changed();
    if (!refusal) return;
    state_.session.tell(refusal->box);
    refused_(&edit);
}

void FieldPanel::commit() {
    for (const Field& field : fields_)
        if (field.edit != nullptr) take_in(*field.row, *field.edit);
}

void FieldPanel::load() {
    for (const Field& field : fields_) {
        if (field.edit != nullptr) {
            show_in(*field.edit, form_.shown(*field.row));
            continue;
        }
        if (field.row->in_report_language) recaption_list(field);
        field.list->setCurrentIndex(form_.chosen(*field.row));
    }
}

void FieldPanel::recaption_list(const Field& field) {
    const QSignalBlocker quiet(field.list);
    const int chosen = field.list->currentIndex();
    const LangId lang = form_.language_of_choices(*field.row);
    field.list->clear();
    for (const forms::Choice& choice : field.row->choices)
        field.list->addItem(qt(choice.text, lang));
    field.list->setCurrentIndex(chosen);
}

void FieldPanel::recaption() {
    const LangId lang = state_.session.lang;
    setTitle(qt(section_.caption, lang));
    for (const Field& field : fields_) {
        QWidget* input = field.edit;
        if (field.list != nullptr) {
            recaption_list(field);
            input = field.list;
        }
        field.label->setText(qt(field.row->field->label, lang));
        const QString hint = qt(field.row->hint, lang);
        field.label->setToolTip(hint);
        input->setToolTip(hint);
        input->setAccessibleName(qt(field.row->field->label, lang));
    }
}

void FieldPanel::mark_needed() {
    for (const Field& field : fields_) {
        const bool needed = form_.state(*field.row).needed;
        field.label->setEnabled(needed);
        if (field.unit != nullptr) field.unit->setEnabled(needed);
    }
}

std::vector<QWidget*> FieldPanel::inputs() const {
    std::vector<QWidget*> all;
    for (const Field& field : fields_)
        all.push_back(field.edit != nullptr ? static_cast<QWidget*>(field.edit) : field.list);
    return all;
}

void FieldPanel::add_on_top(QWidget* widget) {
    grid_->addWidget(widget, top_row, 0, 1, section_.columns * grid_columns_per_field - 1);
}

void FieldPanel::add_beside(std::string_view control, QWidget* widget) {
    for (Field& field : fields_) {
        if (field.row->control != control || field.unit == nullptr) continue;
        field.beside = widget;
        delete grid_->replaceWidget(field.unit, widget);
        field.unit->hide();
    }
}

FieldPanel::ColumnWidths FieldPanel::column_widths() const {
    ColumnWidths widths;
    for (const Field& field : fields_) {
        widths.label = std::max(widths.label, field.label->sizeHint().width());
        if (field.unit != nullptr)
            widths.unit = std::max(widths.unit, field.unit->sizeHint().width());
        if (field.beside != nullptr)
            widths.unit = std::max(widths.unit, field.beside->sizeHint().width());
    }
    return widths;
}

void FieldPanel::set_column_widths(ColumnWidths widths) {
    grid_->setColumnMinimumWidth(0, widths.label);
    grid_->setColumnMinimumWidth(2, widths.unit);
}

void align(const std::vector<FieldPanel*>& panels) {
    FieldPanel::ColumnWidths widest;
    for (const FieldPanel* panel : panels) {
        const auto [label, unit] = panel->column_widths();
        widest.label = std::max(widest.label, label);
        widest.unit = std::max(widest.unit, unit);
    }
    for (FieldPanel* panel : panels) panel->set_column_widths(widest);
}

}  // namespace zel
