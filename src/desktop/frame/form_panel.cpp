#include "desktop/frame/form_panel.h"

#include <QEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QSignalBlocker>
#include <algorithm>
#include <array>

#include "desktop/frame/column_grid.h"
#include "desktop/frame/events.h"
#include "desktop/frame/field_mark.h"
#include "desktop/frame/inputs.h"
#include "messages/message_texts.h"

namespace zel {
namespace {

using forms::Row;
using forms::Section;

constexpr int grid_columns_per_row = 4;        // label, input, unit, gap to the next row
constexpr int gap_width = 12;                  // pixels
constexpr int top_line = 0;                    // for a widget above the rows
constexpr QColor closed_input(192, 192, 192);  // in every theme, and its ink with it
constexpr QColor closed_ink(64, 64, 64);
constexpr QColor closed_caption(128, 128, 128);

bool has_units(const Section& section) {
    return std::any_of(section.rows.begin(), section.rows.end(),
                       [](const Row& row) { return !row.field->unit.empty(); });
}

/// An unchanged text stays as it is, with what the box can undo.
void show_in(QLineEdit& edit, const std::string& text) {
    if (edit.text() == qt(text)) return;
    edit.setText(qt(text));
    edit.setCursorPosition(0);
}

}  // namespace

QWidget* FormPanel::Field::input() const {
    if (edit != nullptr) return edit;
    return list;
}

QWidget* FormPanel::Field::content() const { return shown != nullptr ? shown : input(); }

FormPanel::FormPanel(const Section& section, const FormParts& parts)
    : section_(section),
      parts_(parts),
      grid_(new QGridLayout(inside_of(*this))),
      columns_(section.columns) {
    parts_.captions.title(this, section.caption);
    grid_->setHorizontalSpacing(8);
    grid_->setVerticalSpacing(parts.look.row_gap);
    if (!section.note.de.empty()) add_note(section.note);
    first_line_ = grid_->rowCount();
    fields_.reserve(section.rows.size());  // connections refer to fields by their places
    int index = 0;
    for (const Row& row : section.rows) {
        const int column = index++ % section.columns;
        add_row(row, column == 0, column * grid_columns_per_row);
    }
    // A panel taller than its rows has them on top.
    if (parts.look.fills_room) grid_->setRowStretch(grid_->rowCount(), 1);
    share_columns();
    load_anew();
}

void FormPanel::share_columns() {
    for (int column = 0; column < section_.columns; ++column) {
        const int first = column * grid_columns_per_row;
        const int share = column == 0 ? section_.first_stretch : 1;
        grid_->setColumnStretch(first + 1, column < columns_ ? share : 0);
        if (column > 0) grid_->setColumnMinimumWidth(first - 1, column < columns_ ? gap_width : 0);
    }
}

/// The widest label, input and unit of each column.
int FormPanel::width_with(int columns) const {
    const auto count = static_cast<std::size_t>(columns);
    std::vector<std::array<int, 3>> widest(count);
    for (std::size_t i = 0; i < fields_.size(); ++i) {
        const Field& field = fields_[i];
        const QWidget* parts[] = {field.label, field.content(), field.unit};
        for (std::size_t part = 0; part < std::size(parts); ++part)
            if (parts[part] != nullptr)
                widest[i % count][part] =
                    std::max({widest[i % count][part], parts[part]->minimumSizeHint().width(),
                              parts[part]->minimumWidth()});
    }
    const int frame = QGroupBox::minimumSizeHint().width() - grid_->minimumSize().width();
    int width = frame + (columns - 1) * (gap_width + 2 * grid_->horizontalSpacing());
    for (const auto& [label, input, unit] : widest)
        width += label + input + unit + (unit > 0 ? 2 : 1) * grid_->horizontalSpacing();
    return width;
}

QSize FormPanel::minimumSizeHint() const {
    const QSize least = QGroupBox::minimumSizeHint();
    if (section_.columns == 1) return least;
    const int caption = fontMetrics().horizontalAdvance(title()) + gap_width;
    return {std::max(width_with(1), caption), least.height()};
}

/// As many rows side by side as there is room for.
bool FormPanel::event(QEvent* event) {
    if (section_.columns > 1 &&
        (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest)) {
        int columns = section_.columns;
        while (columns > 1 && width_with(columns) > width()) --columns;
        if (columns != columns_) place_rows(columns);
    }
    return QGroupBox::event(event);
}

bool FormPanel::eventFilter(QObject* of, QEvent* event) {
    constexpr int margin = 8;  // pixels
    if (event->type() == QEvent::FocusIn)
        for (QWidget* at = parentWidget(); at != nullptr; at = at->parentWidget())
            if (auto* area = qobject_cast<QScrollArea*>(at))
                area->ensureWidgetVisible(qobject_cast<QWidget*>(of), margin, margin);
    return QGroupBox::eventFilter(of, event);
}

void FormPanel::place_rows(int columns) {
    columns_ = columns;
    int index = 0;
    for (const Field& field : fields_) {
        const int line = first_line_ + index / columns;
        const int column = index++ % columns * grid_columns_per_row;
        for (QWidget* part : {static_cast<QWidget*>(field.label), field.content(), field.unit})
            if (part != nullptr) grid_->removeWidget(part);
        grid_->addWidget(field.label, line, column);
        grid_->addWidget(field.content(), line, column + 1, 1, field.wide ? 2 : 1);
        if (field.unit != nullptr) grid_->addWidget(field.unit, line, column + 2);
    }
    for (int line = 0; line < grid_->rowCount(); ++line) grid_->setRowStretch(line, 0);
    if (parts_.look.fills_room) grid_->setRowStretch(grid_->rowCount(), 1);
    share_columns();
    need_anew(*this);
}

void FormPanel::add_row(const Row& row, bool new_line, int column) {
    const int line = grid_->rowCount() - (new_line ? 0 : 1);
    const std::size_t index = fields_.size();
    fields_.push_back({&row, make_label()});
    Field& field = fields_.back();
    QWidget* content = nullptr;
    if (row.is_list())
        content = field.list = make_list(row);
    else if (section_.typed)
        content = field.edit = make_edit(index);
    else
        content = field.shown = make_label();
    content->setObjectName(row.control);
    if (field.shown != nullptr)
        field.shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    else
        field.label->setBuddy(content);
    content->installEventFilter(this);
    if (parts_.messages != nullptr && field.shown == nullptr) field.mark = new FieldMark(*content);
    const bool wide = field.edit == nullptr || row.is_free_text() || !has_units(section_);
    if (row.caption_above) {
        grid_->addWidget(field.label, line, column, 1, 3);
        grid_->addWidget(content, line + 1, column, 1, 3);
    } else {
        grid_->addWidget(field.label, line, column);
        grid_->addWidget(content, line, column + 1, 1, wide ? 2 : 1);
    }
    field.wide = wide;
    if (!wide) {
        QLabel* unit = make_label();
        unit->setText(qt(row.field->unit_in(parts_.session.lang)));
        grid_->addWidget(field.unit = unit, line, column + 2);
    }
    enter_captions(index);
    if (!row.note.de.empty()) add_note(row.note);
}

QLabel* FormPanel::make_label() const {
    QLabel* label = plain_label();
    if (!parts_.look.closed_turn_grey) return label;
    QPalette palette = label->palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, closed_caption);
    label->setPalette(palette);
    return label;
}

void FormPanel::close_in_grey(QWidget& input) const {
    if (!parts_.look.closed_turn_grey) return;
    QPalette palette = input.palette();
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Button})
        palette.setColor(QPalette::Disabled, role, closed_input);
    for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, closed_ink);
    input.setPalette(palette);
}

QLineEdit* FormPanel::make_edit(std::size_t index) {
    const Row& row = *fields_[index].row;
    auto* edit = new QLineEdit;
    edit->setMinimumWidth(parts_.look.number_width);
    close_in_grey(*edit);
    edit->installEventFilter(
        new LeavingBox(edit, alive_, [this, index] { take_in(fields_[index]); }));
    edit->installEventFilter(new FocusChain(
        edit, [this](std::string_view control) { return parts_.record.next_control(control); }));
    on(edit, &QLineEdit::textEdited, [this, index] {
        parts_.record.typed_into(*fields_[index].row);
        (void)show_state(fields_[index]);
        tell_typing(fields_[index]);
        parts_.typed();
    });
    if (row.is_free_text()) return edit;
    edit->setAlignment(Qt::AlignRight);
    understand_pasted_numbers(*edit, parts_.session);
    if (!parts_.record.filters_keys()) return edit;
    edit->installEventFilter(new NumberKeys(edit, parts_.session));
    // An input method would type past the filter of keys.
    edit->setAttribute(Qt::WA_InputMethodEnabled, false);
    return edit;
}

QComboBox* FormPanel::make_list(const Row& row) {
    auto* list = new QuietList;
    close_in_grey(*list);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(parts_.look.list_length);
    if (parts_.look.return_leaves_lists) list->installEventFilter(new FocusChain(list));
    on(list, &QComboBox::activated, [this, &row](int index) {
        parts_.record.choose(row, index);
        if (parts_.messages != nullptr) parts_.messages->entered(*row.field);
        parts_.changed();
    });
    return list;
}

void FormPanel::add_note(const Text& note) {
    QLabel* label = make_label();
    label->setWordWrap(true);
    add_below(parts_.captions.text(label, note));
}

void FormPanel::enter_captions(std::size_t index) {
    parts_.captions.computed([this, index](LangId lang) {
        const Field& field = fields_[index];
        const QString hint = qt(field.row->hint, lang);
        field.label->setToolTip(hint);
        if (field.list != nullptr) name_choices(field);
        QWidget* input = field.input();
        if (input == nullptr) return;
        (void)show_state(field);
    });
    parts_.captions.computed([this, index](LangId) { show_label(fields_[index]); });
}

void FormPanel::show_label(const Field& field) const {
    const LangId lang = parts_.session.lang;
    const Text label = parts_.record.label(*field.row);
    field.label->setText(qt(label, lang).trimmed());
    if (QWidget* input = field.input()) input->setAccessibleName(field.label->text());
}

void FormPanel::name_choices(const Field& field) const {
    const QSignalBlocker quiet(field.list);
    const LangId lang = parts_.record.language_of_choices(*field.row);
    field.list->clear();
    for (const forms::Choice& choice : field.row->choices)
        field.list->addItem(qt(choice.text, lang).trimmed());
    field.list->setCurrentIndex(parts_.record.chosen(*field.row));
}

/// A text that is again what it was is not being typed.
void FormPanel::tell_typing(const Field& field) const {
    if (parts_.messages == nullptr) return;
    const QString text = field.edit->text();
    parts_.messages->typing(*field.row->field, !text.isEmpty() && text != qt(field.seen));
}

void FormPanel::take_in(Field& field) {
    const std::string typed = field.edit->text().toStdString();
    if (typed == field.seen) return;
    const auto refusal = parts_.record.enter(*field.row, typed);
    field.kept = parts_.record.shown(*field.row);
    field.seen = refusal && refusal->text_stays ? typed : field.kept;
    show_in(*field.edit, field.seen);
    if (parts_.messages != nullptr)
        refusal ? parts_.messages->refused(*field.row, typed, refusal->text_stays)
                : parts_.messages->entered(*field.row->field);
    parts_.changed();
    if (!refusal) return;
    parts_.session.tell(refusal->box);
    parts_.refused(field.edit);
}

void FormPanel::commit() {
    for (Field& field : fields_)
        if (field.edit != nullptr) take_in(field);
}

bool FormPanel::is_unfinished() const { return !pending().empty(); }

std::vector<forms::PendingText> FormPanel::pending() const {
    std::vector<forms::PendingText> texts;
    for (const Field& field : fields_)
        if (field.edit != nullptr && field.edit->text() != qt(field.seen))
            texts.push_back({field.row, field.edit->text().toStdString()});
    return texts;
}

void FormPanel::load(bool anew) {
    for (Field& field : fields_) load(field, anew);
}

void FormPanel::show_states() {
    for (const Field& field : fields_) (void)show_state(field);
}

void FormPanel::show_marks() {
    for (const Field& field : fields_)
        if (field.mark != nullptr)
            field.mark->show_mark(parts_.messages->mark(*field.row->field), parts_.session.lang);
}

void FormPanel::show_labels() {
    for (const Field& field : fields_) show_label(field);
}

/// Gives whether the input is open.
bool FormPanel::show_state(const Field& field) {
    const auto [open, needed, assumed] = parts_.record.state(*field.row);
    if (QWidget* input = field.input()) {
        input->setEnabled(open);
        show_beside(field, assumed);
    }
    for (QWidget* told : {static_cast<QWidget*>(field.label), field.unit})
        if (told != nullptr) told->setEnabled(needed);
    return open;
}

/// What nobody gave is told by the box, in italics, behind its unit and by the hint. The hint tells
/// the limits, and a screen reader the unit too.
void FormPanel::show_beside(const Field& field, bool assumed) const {
    const LangId lang = parts_.session.lang;
    const std::string range = message_texts::range_text(
        *field.row->field, parts_.record.allowed(*field.row), parts_.session);
    QStringList hints = {qt(field.row->hint, lang)};
    if (!range.empty()) hints << qt(fill(message_texts::allowed.in(lang), {range}));
    if (assumed) hints << qt(assumed_mark, lang);
    hints.removeAll("");
    field.input()->setToolTip(hints.join("\n"));
    QStringList facts = {qt(range.empty() ? field.row->field->unit_in(lang) : range)};
    if (assumed) facts << qt(assumed_mark, lang);
    facts.removeAll("");
    if (field.mark != nullptr)
        field.mark->tell_before(facts.join("; "));
    else
        field.input()->setAccessibleDescription(facts.join("; "));
    QFont font = field.input()->font();
    font.setItalic(assumed);
    field.input()->setFont(font);
    if (auto* unit = qobject_cast<QLabel*>(field.unit); unit != nullptr && field.edit != nullptr)
        unit->setText(
            (qt(field.row->field->unit_in(lang)) + " " + qt(parts_.record.beside(*field.row)))
                .trimmed());
}

void FormPanel::load(Field& field, bool anew) {
    const bool open = show_state(field);
    show_label(field);
    if (field.list != nullptr) {
        field.list->setCurrentIndex(parts_.record.chosen(*field.row));
        return;
    }
    const std::string text = parts_.record.shown(*field.row);
    if (field.shown != nullptr) return field.shown->setText(qt(text).trimmed());
    if (text == field.kept && open && !anew) return;
    field.seen = field.kept = text;
    show_in(*field.edit, text);
}

std::vector<QWidget*> FormPanel::inputs() const {
    std::vector<QWidget*> all;
    for (const Field& field : fields_)
        if (QWidget* input = field.input()) all.push_back(input);
    return all;
}

QWidget* FormPanel::input(const FieldInfo& field) const {
    const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const Field& candidate) {
        return candidate.row->field == &field;
    });
    return found == fields_.end() ? nullptr : found->input();
}

void FormPanel::add_on_top(QWidget* widget) {
    grid_->addWidget(widget, top_line, 0, 1, section_.columns * grid_columns_per_row - 1);
}

void FormPanel::add_below(QWidget* widget) {
    grid_->addWidget(widget, grid_->rowCount(), 0, 1, section_.columns * grid_columns_per_row - 1);
}

void FormPanel::add_beside(std::string_view control, QWidget* widget) {
    for (Field& field : fields_) {
        if (field.row->control != control || field.unit == nullptr) continue;
        delete grid_->replaceWidget(field.unit, widget);
        delete field.unit;
        field.unit = widget;
    }
}

FormPanel::ColumnWidths FormPanel::column_widths() const {
    ColumnWidths widths;
    for (const Field& field : fields_) {
        if (!field.row->caption_above)
            widths.label = std::max(widths.label, field.label->sizeHint().width());
        if (field.unit != nullptr)
            widths.unit = std::max(widths.unit, field.unit->sizeHint().width());
    }
    return widths;
}

void FormPanel::set_column_widths(ColumnWidths widths) {
    grid_->setColumnMinimumWidth(0, widths.label);
    grid_->setColumnMinimumWidth(2, widths.unit);
}

void align(const std::vector<FormPanel*>& panels) {
    FormPanel::ColumnWidths widest;
    for (const FormPanel* panel : panels) {
        const auto [label, unit] = panel->column_widths();
        widest.label = std::max(widest.label, label);
        widest.unit = std::max(widest.unit, unit);
    }
    for (FormPanel* panel : panels) panel->set_column_widths(widest);
}

}  // namespace zel
