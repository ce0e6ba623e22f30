#include "desktop/short_circuit/ks_panel.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

#include "desktop/frame/focus_chain.h"
#include "desktop/frame/group.h"
#include "desktop/frame/qt_text.h"
#include "desktop/frame/quiet_list.h"

namespace zel {
namespace {

constexpr int number_width = 90;  // pixels at least, for a number
constexpr QColor closed_input(192, 192, 192);
constexpr QColor closed_caption(128, 128, 128);

QLabel* make_label(std::string_view text) {
    auto* label = new QLabel(qt(text).trimmed());
    label->setTextFormat(Qt::PlainText);
    QPalette palette = label->palette();
    palette.setColor(QPalette::Disabled, QPalette::WindowText, closed_caption);
    label->setPalette(palette);
    return label;
}

/// Closed inputs turn grey.
void set_closed_colour(QWidget& input) {
    QPalette palette = input.palette();
    for (const QPalette::ColorRole role : {QPalette::Base, QPalette::Button})
        palette.setColor(QPalette::Disabled, role, closed_input);
    input.setPalette(palette);
}

bool is_number(const forms::Row& row) {
    return std::holds_alternative<KsBox>(key_of<ShortCircuitCase>(*row.field));
}

}  // namespace

QWidget* KsPanel::Field::input() const {
    if (edit != nullptr) return edit;
    return list;
}

KsPanel::KsPanel(const forms::Section& section, KsState& state, Notify notify)
    : section_(section),
      state_(state),
      form_(state.form, state.session),
      notify_(std::move(notify)),
      grid_(new QGridLayout(inside_of(*this))) {
    grid_->setHorizontalSpacing(8);
    grid_->setVerticalSpacing(8);
    grid_->setColumnStretch(1, 1);
    if (!section.note.de.empty()) add_note(section.note.de);
    for (const forms::Row& row : section.rows) add_row(row);
    recaption();
    load_anew();
}

void KsPanel::add_row(const forms::Row& row) {
    const int line = grid_->rowCount();
    Field field{&row, make_label(row.field->label.de), nullptr, nullptr, nullptr, nullptr, {}, {}};
    QWidget* content = nullptr;
    if (row.is_list())
        content = field.list = make_list(row);
    else if (section_.typed)
        content = field.edit = make_edit(row);
    else
        content = field.shown = make_label({});
    content->setObjectName(row.control);
    if (field.shown != nullptr)
        field.shown->setTextInteractionFlags(Qt::TextSelectableByMouse);
    else
        field.label->setBuddy(content);
    if (row.caption_above) {
        grid_->addWidget(field.label, line, 0, 1, 3);
        grid_->addWidget(content, line + 1, 0, 1, 3);
    } else {
        grid_->addWidget(field.label, line, 0);
        grid_->addWidget(content, line, 1, 1, is_number(row) ? 1 : 2);
    }
    if (!row.field->unit.empty() && field.edit != nullptr)
        grid_->addWidget(field.unit = make_label(row.field->unit), line, 2);
    fields_.push_back(std::move(field));
    if (!row.note.de.empty()) add_note(row.note.de);
}

void KsPanel::add_note(std::string_view note) { add_below(make_label(note)); }

QLineEdit* KsPanel::make_edit(const forms::Row& row) {
    auto* edit = new QLineEdit;
    edit->setMinimumWidth(number_width);
    set_closed_colour(*edit);
    edit->installEventFilter(this);
    edit->installEventFilter(new FocusChain(edit));
    if (!is_number(row)) return edit;
    edit->setAlignment(Qt::AlignRight);
    connect(edit, &QLineEdit::textEdited, this, [this, &row] { form_.typed_into(row); });
    return edit;
}

QComboBox* KsPanel::make_list(const forms::Row& row) {
    auto* list = new QuietList;
    set_closed_colour(*list);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(12);
    for (const forms::Choice& entry : row.choices) list->addItem(qt(entry.text.de).trimmed());
    list->installEventFilter(new FocusChain(list));
    connect(list, &QComboBox::activated, this, [this, &row](int index) {
        form_.choose(row, index);
        notify_.changed();
    });
    return list;
}

bool KsPanel::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::FocusOut) return false;
    const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason) return false;
    for (Field& field : fields_)
        if (field.edit == watched) take_in(field);
    return false;
}

void KsPanel::take_in(Field& field) {
    const std::string typed = field.edit->text().toStdString();
    if (typed == field.seen) return;
    const auto refusal = form_.enter(*field.row, typed);
    field.kept = form_.shown(*field.row);
    field.seen = refusal && !refusal->text_stays ? field.kept : typed;
    if (field.seen != typed) field.edit->setText(qt(field.seen));
    notify_.changed();
    if (!refusal) return;
    state_.session.tell(refusal->box);
    notify_.refused(field.edit);
}

void KsPanel::commit() {
    for (Field& field : fields_)
        if (field.edit != nullptr) take_in(field);
}

bool KsPanel::is_open(const forms::Row& row) const { return form_.state(row).open; }

void KsPanel::load(Field& field, bool anew) {
    const bool open = is_open(*field.row);
    for (QWidget* part :
         {static_cast<QWidget*>(field.label), field.input(), static_cast<QWidget*>(field.unit)})
        if (part != nullptr) part->setEnabled(open);
    if (field.list != nullptr) {
        field.list->setCurrentIndex(form_.chosen(*field.row));
        return;
    }
    const std::string text = form_.shown(*field.row);
    if (field.shown != nullptr) {
        field.shown->setText(qt(text).trimmed());
        return;
    }
    if (text == field.kept && open && !anew) return;
    field.seen = field.kept = text;
    if (field.edit->text() == qt(text)) return;
    field.edit->setText(qt(text));
    field.edit->setCursorPosition(0);
}

void KsPanel::load() {
    for (Field& field : fields_) load(field, false);
}

void KsPanel::load_anew() {
    for (Field& field : fields_) load(field, true);
}

void KsPanel::recaption() {
    const LangId lang = state_.session.lang;
    setTitle(qt(section_.caption, lang));
    for (const Field& field : fields_) {
        const QString hint = qt(field.row->hint, lang);
        field.label->setToolTip(hint);
        if (QWidget* input = field.input()) {
            input->setToolTip(hint);
            input->setAccessibleName(hint.isEmpty() ? field.label->text() : hint);
        }
    }
}

std::vector<QWidget*> KsPanel::inputs() const {
    std::vector<QWidget*> all;
    for (const Field& field : fields_)
        if (QWidget* input = field.input()) all.push_back(input);
    return all;
}

QWidget* KsPanel::input(KsKey key) const {
    const auto found = std::find_if(fields_.begin(), fields_.end(), [&](const Field& field) {
        return key_of<ShortCircuitCase>(*field.row->field) == key;
    });
    return found == fields_.end() ? nullptr : found->input();
}

void KsPanel::add_below(QWidget* widget) { grid_->addWidget(widget, grid_->rowCount(), 0, 1, 3); }

int KsPanel::label_width() const {
    int width = 0;
    for (const Field& field : fields_)
        if (!field.row->caption_above) width = std::max(width, field.label->sizeHint().width());
    return width;
}

void KsPanel::set_label_width(int width) { grid_->setColumnMinimumWidth(0, width); }

void align(const std::vector<KsPanel*>& panels) {
    int width = 0;
    for (const KsPanel* panel : panels) width = std::max(width, panel->label_width());
    for (KsPanel* panel : panels) panel->set_label_width(width);
}

}  // namespace zel
