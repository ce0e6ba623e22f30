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

bool is_number(const KsFormRow& row) { return std::holds_alternative<KsBox>(row.field); }

}  // namespace

QWidget* KsPanel::Field::input() const {
    if (edit != nullptr) return edit;
    return list;
}

KsPanel::KsPanel(const KsFormSection& section, KsState& state, Notify notify)
    : section_(section),
      state_(state),
      notify_(std::move(notify)),
      grid_(new QGridLayout(inside_of(*this))) {
    grid_->setHorizontalSpacing(8);
    grid_->setVerticalSpacing(8);
    grid_->setColumnStretch(1, 1);
    if (!section.note.empty()) add_note(section.note);
    for (const KsFormRow& row : section.rows) add_row(row);
    recaption();
    load_anew();
}

void KsPanel::add_row(const KsFormRow& row) {
    const int line = grid_->rowCount();
    Field field{&row, make_label(row.caption), nullptr, nullptr, nullptr, nullptr, {}, {}};
    QWidget* content = nullptr;
    if (row.entries != nullptr)
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
    if (*row.unit != '\0' && field.edit != nullptr)
        grid_->addWidget(field.unit = make_label(row.unit), line, 2);
    fields_.push_back(std::move(field));
    if (!row.note.empty()) add_note(row.note);
}

void KsPanel::add_note(std::string_view note) { add_below(make_label(note)); }

QLineEdit* KsPanel::make_edit(const KsFormRow& row) {
    auto* edit = new QLineEdit;
    edit->setMinimumWidth(number_width);
    set_closed_colour(*edit);
    edit->installEventFilter(this);
    edit->installEventFilter(new FocusChain(edit));
    if (!is_number(row)) return edit;
    edit->setAlignment(Qt::AlignRight);
    connect(edit, &QLineEdit::textEdited, this,
            [this, &row] { state_.form.typed_into(std::get<KsBox>(row.field)); });
    return edit;
}

QComboBox* KsPanel::make_list(const KsFormRow& row) {
    auto* list = new QuietList;
    set_closed_colour(*list);
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(12);
    for (const std::string_view entry : row.entries()) list->addItem(qt(entry).trimmed());
    list->installEventFilter(new FocusChain(list));
    connect(list, &QComboBox::activated, this, [this, &row](int index) {
        state_.form.choose(std::get<KsList>(row.field), static_cast<std::int16_t>(index));
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
    std::optional<KsEntryRefusal> refusal;
    if (const auto* text = std::get_if<KsText>(&field.row->field))
        state_.form.write(*text, typed);
    else
        refusal = state_.form.change(std::get<KsBox>(field.row->field), typed, state_.session);
    field.kept = ks_shown_text(state_.form.content(), *field.row, state_.session.separator);
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

bool KsPanel::is_open(const KsFormRow& row) const {
    if (const auto* box = std::get_if<KsBox>(&row.field)) return state_.form.is_open(*box);
    if (const auto* list = std::get_if<KsList>(&row.field)) return state_.form.is_open(*list);
    return true;
}

void KsPanel::load(Field& field, bool anew) {
    const ShortCircuitCase& c = state_.form.content();
    const bool open = is_open(*field.row);
    for (QWidget* part :
         {static_cast<QWidget*>(field.label), field.input(), static_cast<QWidget*>(field.unit)})
        if (part != nullptr) part->setEnabled(open);
    if (field.list != nullptr) {
        field.list->setCurrentIndex(c.*std::get<KsList>(field.row->field));
        return;
    }
    const std::string text = ks_shown_text(c, *field.row, state_.session.separator);
    if (field.shown != nullptr) {
        const bool has_unit =
            *field.row->unit != '\0' && c.*std::get<KsRecordNumber>(field.row->field) != 0;
        field.shown->setText(has_unit ? qt(text) + " " + qt(field.row->unit) : qt(text).trimmed());
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
        const QString hint = lang == LangId::English ? qt(field.row->hint) : QString();
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
    const auto found = std::find_if(fields_.begin(), fields_.end(),
                                    [&](const Field& field) { return field.row->field == key; });
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
