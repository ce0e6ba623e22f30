#include "desktop/measuring/measuring_panels.h"

#include <QFocusEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPainter>
#include <QSignalBlocker>
#include <QWheelEvent>

#include "adapters/qt_canvas/qt_canvas.h"
#include "desktop/frame/events.h"
#include "measuring/measuring_texts.h"

namespace zel {
namespace {

using namespace measuring;

constexpr double twips_per_pixel = 15;

constexpr Text live_caption = {"Aktuelle Messwerte", "Present values"};
constexpr Text means_caption = {"Mittelwerte des Meßzyklus", "Means of the measuring cycle"};

constexpr Text direction_label = {"Windrichtung", "Wind direction"};
constexpr Text speed_label = {"Windgeschwindigkeit", "Wind speed"};
constexpr Text temperature_label = {"Lufttemperatur", "Air temperature"};
constexpr Text radiation_label = {"Globalstrahlung", "Global radiation"};
constexpr Text samples_label = {"Anzahl der Messwerte", "Number of samples"};

constexpr const char* nothing = "-";
/// What the window has always shown for the mean direction.
constexpr const char* always_shown = "0.0 °";

QLabel* add_value(QGridLayout& grid, Captions& captions, const Text& label, const char* name) {
    const int line = grid.rowCount();
    QLabel* caption = plain_label();
    captions.computed([caption, label](LangId lang) { caption->setText(qt(label, lang) + ":"); });
    caption->setWordWrap(true);
    QLabel* value = plain_label(nothing);
    value->setObjectName(name);
    value->setTextInteractionFlags(Qt::TextSelectableByMouse);
    value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    grid.addWidget(caption, line, 0);
    grid.addWidget(value, line, 1);
    return value;
}

QGridLayout* make_grid(QGroupBox& group) {
    auto* grid = new QGridLayout(inside_of(group));
    grid->setColumnStretch(0, 1);
    grid->setVerticalSpacing(4);
    return grid;
}

}  // namespace

TraceView::TraceView(const Session& session) : session_(session) { setObjectName("trace"); }

void TraceView::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QtCanvas canvas(painter, 1 / twips_per_pixel, palette().color(QPalette::WindowText));
    trace_.draw(canvas, {0, 0, (width() - 1) * twips_per_pixel, height() * twips_per_pixel},
                session_);
}

LivePanel::LivePanel(Captions& captions, const Session& session)
    : session_(session),
      anemometer_(new NoteLine(NoteLine::Sign::Warning, "anemometer_state")),
      radiation_meter_(new NoteLine(NoteLine::Sign::Warning, "radiation_meter_state")) {
    captions.title(static_cast<QGroupBox*>(this), live_caption);
    QGridLayout* grid = make_grid(*this);
    values_ = {add_value(*grid, captions, direction_label, "live_direction"),
               add_value(*grid, captions, speed_label, "live_speed"),
               add_value(*grid, captions, temperature_label, "live_temperature"),
               add_value(*grid, captions, radiation_label, "Label2")};
    for (NoteLine* note : {anemometer_, radiation_meter_})
        grid->addWidget(note, grid->rowCount(), 0, 1, 2);
    captions.computed([this](LangId) { clear_status(); });
}

void LivePanel::show_readings(const Readings& readings) {
    const DecimalSeparator separator = session_.separator;
    const std::string texts[] = {direction_text(readings.Windrichtung, separator),
                                 speed_text(readings.Windgeschwindigkeit, separator),
                                 temperature_text(readings.Lufttemperatur, separator),
                                 radiation_text(readings.Globalstrahlung)};
    for (std::size_t i = 0; i < values_.size(); ++i) values_[i]->setText(qt(texts[i]));
}

void LivePanel::show_status(const InstrumentStatus& anemometer,
                            const InstrumentStatus& radiation_meter) {
    const auto tell = [this](NoteLine& note, const Text& name, const InstrumentStatus& status) {
        const bool worth = status.gives_nothing() || status.dropped > 0;
        note.tell(worth ? std::string(name.in(session_.lang)) + " " +
                              status_text(status, session_.lang)
                        : std::string());
    };
    tell(*anemometer_, anemometer_name, anemometer);
    tell(*radiation_meter_, radiation_meter_name, radiation_meter);
}

void LivePanel::clear_status() {
    anemometer_->tell({});
    radiation_meter_->tell({});
}

MeansPanel::MeansPanel(Captions& captions, const Session& session)
    : session_(session), note_(new NoteLine(NoteLine::Sign::Warning, "stale_note")) {
    captions.title(static_cast<QGroupBox*>(this), means_caption);
    QGridLayout* grid = make_grid(*this);
    const auto add = [&](const Text& label, const char* name) {
        return add_value(*grid, captions, label, name);
    };
    direction_ = add(direction_label, "Windrichtung_Mittel");
    speed_ = add(speed_label, "Windgeschw_Mittel");
    temperature_ = add(temperature_label, "Lufttemp_Mittel");
    radiation_ = add(radiation_label, "Globalstrahlung_Mittel");
    vector_direction_ = add(vector_direction_label, "vector_mean_direction");
    extrapolated_ = add(extrapolated_label, "Wind_Hochrechnung");
    samples_ = add(samples_label, "Anzahl");
    grid->addWidget(note_, grid->rowCount(), 0, 1, 2);
    grid->setRowStretch(grid->rowCount(), 1);
}

void MeansPanel::clear() {
    for (QLabel* label :
         {direction_, speed_, temperature_, radiation_, vector_direction_, extrapolated_, samples_})
        label->setText(nothing);
    note_->tell({});
}

void MeansPanel::show_means(const CycleMeans& means, const std::string& note) {
    const DecimalSeparator separator = session_.separator;
    direction_->setText(qt(always_shown));
    speed_->setText(qt(speed_text(means.Windgeschw_Mittel, separator)));
    temperature_->setText(qt(temperature_text(means.Lufttemp_Mittel, separator)));
    radiation_->setText(qt(radiation_text(means.Globalstrahlung_Mittel)));
    const auto& direction = means.vector_mean_direction;
    vector_direction_->setText(qt(direction ? direction_text(*direction, separator) : nothing));
    samples_->setText(QString::number(means.Anzahl));
    note_->tell(note);
}

void MeansPanel::show_extrapolated(std::optional<double> meters_per_second) {
    extrapolated_->setText(
        qt(meters_per_second ? speed_text(*meters_per_second, session_.separator) : nothing));
}

CombinationInput::CombinationInput(const CombinationBox& box, const Session& session, CalcCase& c,
                                   std::function<void()> changed)
    : box_(box), session_(session), c_(c), changed_(std::move(changed)) {
    setObjectName(box.control);
    setFocusPolicy(Qt::StrongFocus);
    setEditable(true);
    lineEdit()->setObjectName(objectName() + "_text");
    understand_pasted_numbers(*lineEdit(), session);
    setInsertPolicy(NoInsert);
    setCompleter(nullptr);  // a typed 0,2 is not the beginning of an entry
    setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
    setMinimumContentsLength(20);
    on(this, &QComboBox::activated, [this](int index) { chosen(index); });
    on(lineEdit(), &QLineEdit::textEdited, [this] { typed_ = true; });
    on(lineEdit(), &QLineEdit::returnPressed, [this] { entered(); });
}

void CombinationInput::show_language() {
    const QSignalBlocker quiet(this);
    const int present = currentIndex();
    const QString text = currentText();
    const bool listed = present >= 0 && text == itemText(present);
    clear();
    for (const ListedValue& entry : box_.entries) addItem(qt(entry.text, session_.lang));
    setCurrentIndex(present);
    if (!listed) setEditText(text);
}

void CombinationInput::load() {
    const QSignalBlocker quiet(this);
    typed_ = false;
    const Entry& field = c_.*box_.field;
    const ListedValue& standing = box_.entries[box_.at_load];
    setCurrentIndex(static_cast<int>(box_.at_load));
    if (field.given() && field.value != standing.value) {
        setCurrentIndex(-1);
        setEditText(qt(field.text));
    }
}

void CombinationInput::chosen(int index) {
    typed_ = false;
    choose(box_, static_cast<std::size_t>(index), c_, session_.separator);
    changed_();
}

/// The wheel scrolls the window, unless the list has the focus.
void CombinationInput::wheelEvent(QWheelEvent* event) {
    if (hasFocus())
        QComboBox::wheelEvent(event);
    else
        event->ignore();
}

void CombinationInput::focusOutEvent(QFocusEvent* event) {
    QComboBox::focusOutEvent(event);
    if (event->reason() != Qt::PopupFocusReason) guarded(*this, [this] { entered(); });
}

void CombinationInput::entered() {
    if (!std::exchange(typed_, false)) return;
    const std::string text = currentText().trimmed().toStdString();
    if (const auto index = entry_named(box_, text)) return chosen(static_cast<int>(*index));
    const auto refused = enter(box_, text, c_, session_);
    changed_();
    if (!refused) return;
    session_.dialogs.show(refused->box);
    if (refused->clears) clearEditText();
    refused_.to(this);
}

}  // namespace zel
