#include "desktop/measuring/frm_mess_01.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTimer>

#include "desktop/frame/events.h"
#include "measuring/measuring_texts.h"
#include "messages/message_texts.h"
#include "platform/errors.h"

namespace zel {
namespace {

using namespace measuring;

constexpr int poll_ms = 50;  // a tick is due every 550 ms
constexpr int alarm_ms = 2000;
constexpr QSize window_size(980, 700);

constexpr Text window_title = {"Fenster Meßwertaufnahme", "Measuring window"};
constexpr Text table_menu = {"&Tabelle", "&Table"};
constexpr Text table_caption = {"&Meßwerttabelle ...", "&Measuring table ..."};
constexpr Text duration_caption = {"Messzyklusdauer", "Length of the measuring cycle"};
constexpr Text duration_hint = {"Die Auswahl wird aufbewahrt; jeder Zyklus dauert eine Minute.",
                                "The choice is kept; every cycle takes one minute."};
constexpr Text inputs_caption = {"Angaben zur Messung", "Inputs of the measurement"};
constexpr Text height_label = {"Höhen&differenz Meßkopf - Seil:",
                               "Height &difference head - conductor:"};
constexpr Text identification_label = {"&Kennung:", "&Identification:"};
constexpr Text remaining_label = {"Restdauer:", "Remaining time:"};
constexpr Text remaining_text = {"noch {0} s, {1} Messwerte", "{0} s left, {1} samples"};
constexpr Text minutes = {"{0} min ", "{0} min "};
constexpr Text alarm_text = {"Meßzyklus beendet !", "Measuring cycle has ended !"};

constexpr Text start_caption = {"Meßzyklus st&arten", "&Start measuring cycle"};
constexpr Text running_caption = {"Meßzyklus läuft", "Measuring cycle is running"};
constexpr Text cancel_caption = {"Meßzyklus a&bbrechen", "&Cancel measuring cycle"};
constexpr Text back_caption = {"&Zurück", "&Back"};
constexpr Text save_caption = {"Speichern in Meß&werttabelle", "Sa&ve in measuring table"};

constexpr BoxText cannot_start = {
    Icon::Stop,
    {"Meßzyklus", "Measuring cycle"},
    {"Der Meßzyklus kann nicht beginnen, ein Meßgerät kann nicht geöffnet werden:\n{0}",
     "The measuring cycle cannot begin, an instrument cannot be opened:\n{0}"}};

constexpr BoxText lose_question = {
    Icon::Question,
    {"Meßzyklus", "Measuring cycle"},
    {"Die Mittelwerte des Meßzyklus sind nicht gespeichert.\nSollen sie gespeichert werden ?",
     "The means of the measuring cycle are not saved.\nDo you want to save them ?"},
    Buttons::SaveDiscardCancel,
    Answer::Cancel};

struct Duration {
    const char* control;
    std::int16_t minutes;
    Text caption;
};
constexpr Duration duration_rows[] = {
    {"Option1", 5, {"5 min", "5 min"}},
    {"Option2", 10, {"10 min", "10 min"}},
    {"Option3", 15, {"15 min (Standard)", "15 min (standard)"}},
};

}  // namespace

FrmMess01::FrmMess01(FrmMess01Parts parts)
    : parts_(std::move(parts)),
      cycle_(parts_.clock),
      tables_(parts_.make_tables(*this)),
      live_(new LivePanel(parts_.captions, parts_.session)),
      means_(new MeansPanel(parts_.captions, parts_.session)),
      trace_(new TraceView(parts_.session)),
      Timer1_(new QTimer(this)),
      Timer3_(new QTimer(this)) {
    setObjectName("frm_mess_01");
    parts_.captions.window_title(static_cast<QWidget*>(this), window_title);
    make_menus();
    auto* content = new QWidget;
    auto* grid = new QGridLayout(content);
    grid->setSpacing(10);
    grid->addWidget(Picture3_ = make_alarm(), 0, 0, 1, 2);
    grid->addWidget(make_inputs(), 1, 0);
    grid->addWidget(make_duration(), 2, 0);
    grid->addWidget(means_, 3, 0);
    auto* right = new QVBoxLayout;
    right->addWidget(live_);
    right->addWidget(trace_, 1);
    grid->addLayout(right, 1, 1, 3, 1);
    grid->addLayout(make_buttons(), 4, 0, 1, 2);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(3, 1);
    auto* area = new QScrollArea;  // for the smallest screens
    make_scrolling(*area);
    area->setWidget(content);
    setCentralWidget(area);
    Timer1_->setObjectName("Timer1");
    Timer3_->setObjectName("Timer3");
    on(Timer1_, &QTimer::timeout, [this] { go_on(); });
    on(Timer3_, &QTimer::timeout, [this] { sound_alarm(); });
    parts_.captions.computed([this](LangId) {
        show_buttons();
        for (CombinationInput* input : combinations_) input->show_language();
        trace_->update();
    });
    size_window(*this, window_size);
}

FrmMess01::~FrmMess01() { cycle_.stop(); }

void FrmMess01::make_menus() {
    ports_.emplace(*menuBar(), parts_.captions, parts_.session, parts_.settings);
    QMenu* menu = parts_.captions.title(menuBar()->addMenu(QString()), table_menu);
    QAction* action = parts_.captions.text(menu->addAction(QString()), table_caption);
    action->setObjectName(QStringLiteral("mMeßwerttabelle"));
    on(action, &QAction::triggered, [this] { tables_->browse(); });
}

QWidget* FrmMess01::make_inputs() {
    auto* group = parts_.captions.title(new QGroupBox, inputs_caption);
    auto* grid = new QGridLayout(inside_of(*group));
    const auto add = [&](QWidget* box, const Text& text, const char* unit) {
        const int line = grid->rowCount();
        auto* label = parts_.captions.text(new QLabel, text);
        label->setBuddy(box);
        grid->addWidget(label, line, 0);
        grid->addWidget(box, line, 1);
        grid->addWidget(plain_label(unit), line, 2);
    };
    Text1_ = new QLineEdit;
    Text1_->setObjectName("Text1");
    add(Text1_, height_label, "m");
    understand_pasted_numbers(*Text1_, parts_.session);  // before the text is judged
    tell_range(*Text1_, "m", allowed_heights());
    on(Text1_, &QLineEdit::textEdited, [this] { height_typed(); });
    on(Text1_, &QLineEdit::editingFinished, [this] { height_left(); });
    Text2_ = new QLineEdit;
    Text2_->setObjectName("Text2");
    add(Text2_, identification_label, "");
    for (const CombinationBox& box : combination_boxes()) {
        auto* input = new CombinationInput(box, parts_.session, parts_.c, parts_.case_changed);
        combinations_.push_back(input);
        add(input, box.label, "");
        tell_range(*input, "", allowed_values(box));
    }
    grid->setColumnStretch(1, 1);
    return group;
}

/// What `input` takes, as a hint and for who is told of it.
void FrmMess01::tell_range(QWidget& input, const char* unit, const NumberSpan& allowed) {
    parts_.captions.computed([this, &input, unit, allowed](LangId lang) {
        const FieldInfo number = {.kind = FieldKind::Number, .unit = unit};
        const std::string range =
            message_texts::range_text(number, std::vector{allowed}, parts_.session);
        input.setToolTip(qt(fill(message_texts::allowed.in(lang), {range})));
        input.setAccessibleDescription(qt(range));
    });
}

QWidget* FrmMess01::make_duration() {
    auto* group = parts_.captions.title(new QGroupBox, duration_caption);
    auto* grid = new QGridLayout(inside_of(*group));
    int column = 0;
    for (const Duration& row : duration_rows) {
        auto* option = parts_.captions.text(new QRadioButton, row.caption);
        option->setObjectName(row.control);
        parts_.captions.tool_tip(option, duration_hint);
        on(option, &QRadioButton::clicked, [this, value = row.minutes] {
            parts_.settings.change(&ProgramSettings::Messzyklusdauer, value);
        });
        durations_.emplace_back(row.minutes, option);
        grid->addWidget(option, 0, column++);
    }
    grid->addWidget(parts_.captions.text(plain_label(), remaining_label), 1, 0);
    Label8_ = plain_label();
    Label8_->setObjectName("Label8");
    remaining_ = plain_label();
    remaining_->setObjectName("remaining");
    grid->addWidget(Label8_, 1, 1);
    grid->addWidget(remaining_, 1, 2);
    return group;
}

QFrame* FrmMess01::make_alarm() {
    auto* panel = new QFrame;
    panel->setObjectName("Picture3");
    panel->setFrameShape(QFrame::Box);
    auto* row = new QHBoxLayout(panel);
    row->addStretch();
    row->addWidget(parts_.captions.text(plain_label(1.4, true), alarm_text));
    row->addSpacing(24);
    add_button(*row, "Command6", {"OK"}, &FrmMess01::silence_alarm);
    row->addStretch();
    panel->hide();
    return panel;
}

QPushButton* FrmMess01::add_button(QBoxLayout& row, const char* name, const Text& caption,
                                   void (FrmMess01::*act)()) {
    QPushButton* button = parts_.captions.text(new QPushButton, caption);
    button->setObjectName(name);
    button->setAutoDefault(true);
    on(button, &QPushButton::clicked, [this, act] { (this->*act)(); });
    row.addWidget(button);
    return button;
}

QBoxLayout* FrmMess01::make_buttons() {
    auto* row = new QHBoxLayout;
    Command1_ = add_button(*row, "Command1", start_caption, &FrmMess01::S61_Messzyklus_starten);
    Command2_ = add_button(*row, "Command2", cancel_caption, &FrmMess01::cancel_cycle);
    Command4_ = add_button(*row, "Command4", save_caption, &FrmMess01::save_means);
    row->addStretch();
    Command3_ = add_button(*row, "Command3", back_caption, &FrmMess01::leave);
    return row;
}

void FrmMess01::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous()) guarded(*this, [this] { S60_loadform_Messfenster(); });
}

void FrmMess01::S60_loadform_Messfenster() {
    using S = ProgramSettings;
    for (const NumberMember setting : {&S::Messzyklusdauer, &S::MUCOM, &S::MGCOM})
        parts_.settings.store.reread(setting);
    for (const auto& [minutes_of, option] : durations_) {
        option->setAutoExclusive(false);  // none may be chosen
        option->setChecked(parts_.settings.now().Messzyklusdauer == minutes_of);
        option->setAutoExclusive(true);
    }
    ports_->refresh();
    for (CombinationInput* input : combinations_) input->load();
    show_buttons();
    Text1_->setFocus();
}

void FrmMess01::closeEvent(QCloseEvent* event) {
    QMainWindow::closeEvent(event);
    Timer1_->stop();
    Timer3_->stop();
    Picture3_->hide();
    if (!cycle_.runs()) return;
    cycle_.stop();
    guarded(*this, [this] { show_means(); });
}

void FrmMess01::S61_Messzyklus_starten() {
    if (const auto refusal = refusal_to_start(Hoehendifferenz_, lang())) {
        parts_.session.dialogs.show(*refusal);
        return refused_.to(Text1_);
    }
    try {
        if (ports_->simulated()) {
            instruments_ = std::make_unique<SimulatedInstruments>();
        } else {
            const Connections on_ports = connections(parts_.settings.now());
            instruments_ = std::make_unique<SerialInstruments>(
                parts_.ports, on_ports.anemometer, on_ports.radiation_meter, parts_.clock);
        }
        cycle_.S61_Messzyklus_starten(*instruments_, MeasuringCycle::one_minute);
    } catch (const InputError& error) {
        parts_.session.dialogs.show(box_in(lang(), cannot_start, {error.told(lang())}));
        return;
    }
    shown_samples_ = 0;
    unsaved_ = false;
    trace_->trace().interrupt();
    means_->clear();
    live_->clear_status();
    show_buttons();
    Timer1_->start(poll_ms);
}

void FrmMess01::go_on() {
    try {
        cycle_.go_on();
    } catch (...) {
        cycle_ended();
        throw;
    }
    show_progress();
    if (!cycle_.runs()) cycle_ended();
}

void FrmMess01::show_progress() {
    const auto samples = cycle_.samples();
    if (samples.size() == shown_samples_) return;
    for (; shown_samples_ < samples.size(); ++shown_samples_)
        trace_->trace().add(parts_.clock.elapsed(), samples[shown_samples_]);
    trace_->update();
    live_->show_readings(cycle_.readings());
    if (cycle_.runs())
        live_->show_status(instruments_->anemometer(), instruments_->radiation_meter());
    const int rest =
        static_cast<int>(MeasuringCycle::one_minute / std::chrono::minutes(1)) - cycle_.Minuten();
    Label8_->setText(qt(fill(minutes.in(lang()), {std::to_string(rest)})));
    const auto seconds = std::chrono::ceil<std::chrono::seconds>(cycle_.remaining()).count();
    remaining_->setText(qt(fill(remaining_text.in(lang()),
                                {std::to_string(seconds), std::to_string(samples.size())})));
}

void FrmMess01::cancel_cycle() {
    cycle_.stop();
    cycle_ended();
}

/// Sounds the alarm. Without a sample there is nothing to sound it for.
void FrmMess01::cycle_ended() {
    Timer1_->stop();
    show_means();
    if (!cycle_.means()) {
        parts_.session.dialogs.show(box_in(lang(), no_sample));
        return;
    }
    red_ = false;
    Timer3_->start(alarm_ms);
    Picture3_->show();
}

void FrmMess01::show_means() {
    remaining_->clear();
    show_buttons();
    if (!cycle_.means()) return;
    unsaved_ = true;
    means_->show_means(*cycle_.means(),
                       stale_note(cycle_.stale_samples(), cycle_.means()->Anzahl, lang()));
    show_extrapolated();
}

void FrmMess01::show_buttons() {
    const bool runs = cycle_.runs();
    Command1_->setEnabled(!runs);
    Command1_->setText(qt(runs ? running_caption : start_caption, lang()));
    Command2_->setEnabled(runs);
    Command4_->setEnabled(!runs && cycle_.means());
    ports_->allow(!runs);
}

/// Each time the other colour. The panel of the alarm tells the same.
void FrmMess01::sound_alarm() {
    QApplication::beep();
    red_ = !red_;
    set_text_colour(*this, red_ ? Qt::red : Qt::black);
}

/// The text of this window keeps the colour that it has.
void FrmMess01::silence_alarm() {
    Timer3_->stop();
    parts_.blacken_form1();
    Picture3_->hide();
}

void FrmMess01::leave() { close(); }

void FrmMess01::tell(const std::optional<EntryRefusal>& refusal) {
    if (!refusal) return;
    parts_.session.dialogs.show(refusal->box);
    if (refusal->clears) Text1_->clear();
    refused_.to(Text1_);
}

/// Each change counts, but for one that only begins a number or leaves open which one is meant.
void FrmMess01::height_typed() {
    const std::string text = Text1_->text().trimmed().toStdString();
    height_waits_ =
        !text.empty() && (may_become_number(text, parts_.session) || asks_for_reading(*Text1_));
    if (height_waits_)
        Hoehendifferenz_ = {};
    else
        tell(enter_height(Hoehendifferenz_, text, parts_.session));
    show_extrapolated();
}

void FrmMess01::height_left() {
    if (!std::exchange(height_waits_, false)) return;
    tell(enter_height(Hoehendifferenz_, Text1_->text().trimmed().toStdString(), parts_.session));
}

std::optional<double> FrmMess01::Wind_Hochrechnung() const {
    if (!cycle_.means() || refusal_to_start(Hoehendifferenz_, lang())) return std::nullopt;
    return S66_Hochrechnung_wind_v(cycle_.means()->Windgeschw_Mittel, Hoehendifferenz_.value);
}

void FrmMess01::show_extrapolated() { means_->show_extrapolated(Wind_Hochrechnung()); }

bool FrmMess01::may_be_left() {
    if (!unsaved_ || cycle_.runs()) return true;
    const Answer answer = parts_.session.dialogs.show(box_in(lang(), lose_question));
    if (answer != Answer::Save) return answer == Answer::Discard;
    show();  // where an input lacks, it is typed here
    return save();
}

void FrmMess01::save_means() { (void)save(); }

/// False where the means stand in no table.
bool FrmMess01::save() {
    if (const auto refusal = refusal_to_start(Hoehendifferenz_, lang())) {
        parts_.session.dialogs.show(*refusal);
        refused_.to(Text1_);
        return false;
    }
    show_extrapolated();
    const bool saved = tables_->save(measured_record(*cycle_.means(), *Wind_Hochrechnung(),
                                                     Text2_->text().trimmed().toStdString(),
                                                     parts_.c, parts_.session.separator));
    if (saved) unsaved_ = false;
    return saved;
}

}  // namespace zel
