#include "desktop/line/transient_row_panel.h"

#include <QButtonGroup>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>
#include <QToolButton>
#include <string>

#include "desktop/frame/events.h"
#include "desktop/frame/field_mark.h"
#include "desktop/frame/inputs.h"
#include "forms/line_form.h"
#include "messages/message_texts.h"
#include "workflow/rules/transient_cells.h"
#include "workflow/rules/transient_check.h"
#include "workflow/run/notes.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

constexpr std::array<int, 4> cell_digits = {7, 7, 5, 5};
constexpr int cell_frame = 16;  // pixels, around its digits

/// Each control array holds the four cells of a row: current, temperature, minutes, seconds.
constexpr std::array<const char*, state_change_count> control_arrays = {
    "Text32", "Text33", "Text34", "Text35", "Text48", "Text49"};

constexpr std::array<Text, 3> kind_captions = {
    {{"Stromstärke", "current"}, {"Temperatur", "temperature"}, {"Zeitdauer", "duration"}}};
constexpr std::array<Text, 3> kind_hints = {
    {{"gesucht wird die Stromstärke zu Temperatur und Zeitdauer",
      "the current is sought for temperature and duration"},
     {"gesucht wird die Temperatur zu Stromstärke und Zeitdauer",
      "the temperature is sought for current and duration"},
     {"gesucht wird die Zeitdauer zu Stromstärke und Temperatur",
      "the duration is sought for current and temperature"}}};
constexpr Text off_hint = {"Zustandsänderung inaktiv setzen (Taste - auf der Auswahl)",
                           "Deactivate this change-of-state (key - on the choice)"};

const std::string TransientRowTexts::*const found_texts[] = {
    &TransientRowTexts::Strom, &TransientRowTexts::Temp, &TransientRowTexts::Min,
    &TransientRowTexts::Sec};

QString named(const QString& array, std::size_t index) {
    return array + "(" + QString::number(index) + ")";
}

/// What was found stands out, and still reads well where the cell takes no input.
void set_look(QLineEdit& edit, bool found, bool stale) {
    QFont font = edit.font();
    font.setBold(found);
    font.setItalic(found && stale);
    edit.setFont(font);
    QPalette palette;
    if (found)
        palette.setColor(
            QPalette::Disabled, QPalette::Text,
            palette.color(stale ? QPalette::Disabled : QPalette::Active, QPalette::WindowText));
    edit.setPalette(palette);
}

}  // namespace

TransientRowPanel::TransientRowPanel(std::size_t index, Parts parts, QGridLayout& grid, int line)
    : index_(index),
      parts_(std::move(parts)),
      line_(line + 1),
      name_(new QLabel),
      kinds_(new QButtonGroup(this)),
      off_(new QToolButton),
      total_(new QLabel),
      note_(new NoteLine(NoteLine::Sign::Warning, named("row_note", index))) {
    make_kinds(grid, line_);
    make_cells(grid, line_);
    total_->setObjectName(named("total", index_));
    grid.addWidget(note_, line_ + 1, kind_column, 1, -1);
    place(grid, false);
    enter_captions();
}

void TransientRowPanel::place(QGridLayout& grid, bool narrow) {
    for (QLabel* label : {name_, total_}) grid.removeWidget(label);
    const int line = narrow ? line_ - 1 : line_;
    grid.addWidget(name_, line, narrow ? kind_column : name_column, 1, narrow ? 3 : 1);
    grid.addWidget(total_, line, narrow ? cell_column : total_column, 1, narrow ? -1 : 1);
}

void TransientRowPanel::make_kinds(QGridLayout& grid, int line) {
    for (std::size_t i = 0; i < kind_buttons_.size(); ++i) {
        auto* button = kind_buttons_[i] = new QRadioButton;
        const std::int16_t kind = transient_kinds[i];
        button->setObjectName(
            named(QString("Z%1_merker_db").arg(index_ + 1), static_cast<std::size_t>(kind)));
        button->installEventFilter(this);
        button->installEventFilter(new FocusChain(button));
        kinds_->addButton(button, kind);
        grid.addWidget(button, line, kind_column + static_cast<int>(i));
    }
    on(kinds_, &QButtonGroup::idClicked,
       [this](int kind) { set_kind(static_cast<std::int16_t>(kind)); });
    off_->setObjectName(named("off", index_));
    off_->setText(" - ");
    off_->setFocusPolicy(Qt::TabFocus);
    on(off_, &QToolButton::clicked, [this] { set_kind(row_unused); });
    grid.addWidget(off_, line, off_column);
}

void TransientRowPanel::make_cells(QGridLayout& grid, int line) {
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        auto* edit = cells_[i] = new QLineEdit;
        edit->setObjectName(named(control_arrays[index_], i));
        edit->setAlignment(Qt::AlignRight);
        edit->setFixedWidth(cell_digits[i] * edit->fontMetrics().horizontalAdvance('0') +
                            cell_frame);
        understand_pasted_numbers(*edit, parts_.session);
        edit->installEventFilter(new LeavingBox(edit, alive_, [this, i] { take_in(i); }));
        edit->installEventFilter(new FocusChain(edit));
        edit->installEventFilter(new NumberKeys(edit, parts_.session));
        on(edit, &QLineEdit::textEdited, [this, i] {
            show_mark(i);
            parts_.typed();
        });
        marks_[i] = new FieldMark(*edit);
        // An input method would type past the filter of keys.
        edit->setAttribute(Qt::WA_InputMethodEnabled, false);
        grid.addWidget(edit, line, cell_column + static_cast<int>(i));
    }
}

StateChange& TransientRowPanel::row() const { return parts_.line.c.Z[index_]; }

bool TransientRowPanel::is_found(std::size_t cell) const {
    return is_in_use(row()) && !takes_input(row().merker, state_cells[cell]);
}

/// Whether the last run had a row of this kind here.
bool TransientRowPanel::has_result() const {
    const TransientResult* result = parts_.line.transient.result();
    return result != nullptr && is_in_use(row()) && result->rows[index_].Merker == row().merker;
}

/// The text that stands in a cell: the input, or what the last run found for this kind of row.
std::string TransientRowPanel::text_of(std::size_t cell) const {
    if (!is_found(cell)) return (row().*state_cells[cell]).text;
    if (!has_result()) return {};
    return parts_.line.transient.result()->texts[index_].*found_texts[cell];
}

void TransientRowPanel::load(bool stale) {
    show_kind();
    for (std::size_t i = 0; i < cells_.size(); ++i) {
        QLineEdit& edit = *cells_[i];
        const QString text = qt(text_of(i));
        if (edit.text() != text) {
            edit.setText(text);
            edit.setCursorPosition(0);
        }
        edit.setEnabled(takes_input(row().merker, state_cells[i]));
        set_look(edit, is_found(i), stale);
        show_mark(i);
    }
    const TransientResult* result = parts_.line.transient.result();
    const bool ran = result != nullptr && is_in_use(row());
    total_->setText(ran ? qt(result->texts[index_].total) : QString());
    total_->setEnabled(!stale);
    show_note();
    note_->setEnabled(!stale);
    name_->setEnabled(is_in_use(row()));
    off_->setEnabled(is_in_use(row()));
}

void TransientRowPanel::show_note() {
    const auto note = parts_.line.transient.note_on_row(index_, parts_.session);
    note_->tell(note && has_result() ? std::string_view(note->text) : "");
}

void TransientRowPanel::show_kind() {
    kinds_->setExclusive(false);
    for (QRadioButton* button : kind_buttons_)
        button->setChecked(kinds_->id(button) == row().merker);
    kinds_->setExclusive(true);
    // Tab stops once: at the chosen kind, or at the first.
    QWidget* stop = input(nullptr);
    for (QRadioButton* button : kind_buttons_)
        button->setFocusPolicy(button == stop ? Qt::StrongFocus : Qt::ClickFocus);
}

void TransientRowPanel::set_kind(std::int16_t kind) {
    row().merker = kind;
    parts_.line.changed();
}

bool TransientRowPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || static_cast<QKeyEvent*>(event)->key() != Qt::Key_Minus)
        return false;
    guarded(*watched, [this] {
        set_kind(row_unused);
        input(nullptr)->setFocus();
    });
    return true;
}

bool TransientRowPanel::is_unfinished(std::size_t cell) const {
    const QLineEdit& edit = *cells_[cell];
    return edit.isEnabled() && edit.text() != qt(text_of(cell));
}

bool TransientRowPanel::is_unfinished() const {
    for (std::size_t i = 0; i < cells_.size(); ++i)
        if (is_unfinished(i)) return true;
    return false;
}

void TransientRowPanel::take_in(std::size_t cell) {
    QLineEdit& edit = *cells_[cell];
    if (!is_unfinished(cell)) return;
    const std::string typed = edit.text().toStdString();
    const Session& session = parts_.session;
    const StateCell place = state_cells[cell];
    const auto refusal = enter_cell(parts_.line.c, {index_, place}, typed, session);
    const FieldInfo& input = forms::transient_input(index_, place);
    const auto settled = [this, place] {
        return (row().*place).given() || !takes_input(row().merker, place);
    };
    refusal ? parts_.messages.refused(input, limits_of(place), typed, settled)
            : parts_.messages.entered(input);
    parts_.line.changed();
    if (!refusal) return;
    session.tell(*refusal);
    parts_.refused(&edit);
}

void TransientRowPanel::commit() {
    for (std::size_t i = 0; i < cells_.size(); ++i) take_in(i);
}

QWidget* TransientRowPanel::input(StateCell cell) const {
    for (std::size_t i = 0; i < cells_.size(); ++i)
        if (state_cells[i] == cell) return cells_[i];
    QAbstractButton* chosen = kinds_->checkedButton();
    return chosen != nullptr ? chosen : kind_buttons_.front();
}

std::vector<QWidget*> TransientRowPanel::inputs() const {
    std::vector<QWidget*> all(kind_buttons_.begin(), kind_buttons_.end());
    all.insert(all.end(), cells_.begin(), cells_.end());
    return all;
}

QWidget* TransientRowPanel::off_button() const { return off_; }

/// The limits are read out with the unit, and shown by a hint.
void TransientRowPanel::describe_cell(std::size_t cell, LangId lang) {
    const FieldInfo& input = forms::transient_input(index_, state_cells[cell]);
    const std::string range =
        message_texts::range_text(input, limits_of(state_cells[cell]), parts_.session);
    cells_[cell]->setAccessibleName(qt(long_label_of(input), lang) + ", " + qt(input.unit));
    cells_[cell]->setToolTip(qt(fill(message_texts::allowed.in(lang), {range})));
    marks_[cell]->tell_before(qt(range));
    show_mark(cell);
}

/// A cell that a run needs, as far as nobody is typing there.
void TransientRowPanel::show_mark(std::size_t cell) {
    const bool needed =
        cells_[cell]->text().isEmpty() && is_missing(parts_.line.c, {index_, state_cells[cell]});
    marks_[cell]->show_mark(needed ? Mark::Needed : Mark::None, parts_.session.lang);
}

void TransientRowPanel::enter_captions() {
    Captions& captions = parts_.captions;
    const Text& name = change_of_state_names[index_];
    const auto named_for = [&captions, name](QWidget* widget, const Text& what) {
        captions.computed([widget, name, what](LangId lang) {
            widget->setAccessibleName(qt(name, lang) + ": " + qt(what, lang));
        });
    };
    captions.text(name_, name);
    for (std::size_t i = 0; i < kind_buttons_.size(); ++i) {
        captions.text(kind_buttons_[i], kind_captions[i]);
        captions.tool_tip(kind_buttons_[i], kind_hints[i]);
        named_for(kind_buttons_[i], kind_hints[i]);
    }
    captions.tool_tip(off_, off_hint);
    named_for(off_, off_hint);
    for (std::size_t i = 0; i < cells_.size(); ++i)
        captions.computed([this, i](LangId lang) { describe_cell(i, lang); });
}

}  // namespace zel
