#include "desktop/line/live_results.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/events.h"

namespace zel {
namespace {

constexpr int pause = 600;             // ms without a change, before what takes longer begins
constexpr int button_after = 300;      // ms of work: most is done before
constexpr std::size_t most_lines = 3;  // of the inputs that move the result
constexpr int column_gap = 28;         // pixels
constexpr double value_size = 1.5;     // of the usual type

constexpr Text about_line = {"Winkel Wind-Leiter {0}, Wind quer zum Leiter {1}",
                             "Angle wind-conductor {0}, wind across the conductor {1}"};
constexpr Text least_wind = {"Webs mit mindestens 0,2 m/s quer zum Leiter",
                             "Webs with at least 0.2 m/s across the conductor"};
constexpr Text note_count = {"{0} Hinweise bei den Ergebnissen", "{0} notes at the results"};
constexpr Text one_note = {"1 Hinweis bei den Ergebnissen", "1 note at the results"};
constexpr Text cancel_caption = {"Abbrechen (Esc)", "Cancel (Esc)"};
constexpr Text working = {"Es wird gerechnet, was das Ergebnis bewegt (Esc bricht ab) ...",
                          "Calculating what moves the result (Esc cancels) ..."};
constexpr Text was_cancelled = {"Abgebrochen; die nächste Änderung rechnet wieder.",
                                "Cancelled; the next change calculates again."};
constexpr Text of_former = {"Ergebnis der früheren Eingaben: {0}",
                            "Result of the former inputs: {0}"};
constexpr Text nothing_yet = {"Noch kein Ergebnis: {0}", "No result yet: {0}"};
constexpr Text former_value = {"{0}: {1}, der früheren Eingaben", "{0}: {1}, of the former inputs"};
constexpr Text present_value = {"{0}: {1}", "{0}: {1}"};

/// Webs asks in a weak wind whether to count with its least one; nobody can be asked here.
bool counts_with_least_wind(const SteadyRunResult& result, const Session& session) {
    constexpr double least = 0.2;  // m/s
    return session.wi_v_wi_merker && result.perpendicular_wind < least &&
           std::any_of(result.methods.begin(), result.methods.end(),
                       [](const MethodResult& line) { return line.method == Method::Webs; });
}

std::string about(const SteadyRunResult& result, const Session& session) {
    const LangId lang = session.lang;
    std::string text =
        fill(about_line.in(lang), {result.angle_text, result.perpendicular_wind_text});
    if (counts_with_least_wind(result, session)) text += "\n" + std::string(least_wind.in(lang));
    const std::size_t notes = result.notes.size();
    if (notes == 1) text += "\n" + std::string(one_note.in(lang));
    if (notes > 1) text += "\n" + fill(note_count.in(lang), {std::to_string(notes)});
    return text;
}

QString text_of(const std::vector<Note>& notes) {
    std::vector<std::string> texts;
    for (const Note& note : notes) texts.push_back(note.text);
    return qt(joined(texts, "\n\n"));
}

}  // namespace

LiveResults::LiveResults(Parts parts)
    : parts_(std::move(parts)),
      about_(plain_label()),
      reason_(new NoteLine(NoteLine::Sign::Note, "live_reason")),
      outlook_(plain_label()),
      cancel_(parts_.captions.text(new QPushButton, cancel_caption)),
      cancel_key_(new QShortcut(QKeySequence::Cancel, this)),
      job_(pause) {
    setObjectName("live_results");
    about_->setObjectName("live_about");
    about_->setWordWrap(true);
    outlook_->setObjectName("live_outlook");
    outlook_->setWordWrap(true);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(column_gap);
    grid->setVerticalSpacing(0);
    int place = 0;
    for (const Method method : all_methods) {
        Column& column = columns_.emplace_back(
            Column{method, plain_label(qt(name_of(method))), plain_label(value_size, true)});
        column.value->setObjectName(qt("live_" + std::string(key_of(method))));
        grid->addWidget(column.name, 0, place);
        grid->addWidget(column.value, 1, place++);
    }
    grid->addWidget(about_, 0, place, 2, 1, Qt::AlignVCenter);
    grid->setColumnStretch(place, 1);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(12, 4, 12, 6);
    layout->setSpacing(4);
    layout->addLayout(grid);
    layout->addWidget(reason_);
    layout->addLayout(make_outlook());
    layout->addStretch(1);
    parts_.captions.computed([this](LangId) { update_results(); });
}

QLayout* LiveResults::make_outlook() {
    cancel_->setObjectName("live_cancel");
    cancel_key_->setObjectName("live_cancel_key");
    cancel_->setFocusPolicy(Qt::NoFocus);  // it goes by itself; the key does the same
    on(cancel_, &QPushButton::clicked, [this] { cancel(); });
    on(cancel_key_, &QShortcut::activated, [this] { cancel(); });
    moment_.setSingleShot(true);
    moment_.setInterval(button_after);
    on(&moment_, &QTimer::timeout, [this] { cancel_->setVisible(job_.works()); });
    job_.turned = [this] { show_work(); };
    show_work();
    auto* line = new QHBoxLayout;
    line->addWidget(outlook_, 1);
    line->addWidget(cancel_, 0, Qt::AlignTop);
    return line;
}

void LiveResults::show_work() {
    cancel_->hide();
    cancel_key_->setEnabled(job_.is_under_way());
    job_.works() ? moment_.start() : moment_.stop();
    show_outlook();
}

void LiveResults::cancel() {
    cancelled_ = true;
    job_.cancel();
}

void LiveResults::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    guarded(*this, [this] { update_results(); });
}

void LiveResults::forget() {
    job_.cancel();
    rating_.forget();
    found_.reset();
    cancelled_ = false;
    show_outlook();
}

void LiveResults::settings_changed() {
    job_.cancel();
    found_.reset();
    cancelled_ = false;
    update_results();
}

void LiveResults::update_results() {
    if (!isVisible()) return;
    rating_.update(parts_.line.c, parts_.pending(), parts_.session);
    show_results();
    look_further();
}

void LiveResults::show_results() {
    const LangId lang = parts_.session.lang;
    const KeptRun* run = rating_.run();
    for (const Column& column : columns_) {
        const MethodResult* found = nullptr;
        if (run != nullptr)
            for (const MethodResult& line : run->result.methods)
                if (line.method == column.method) found = &line;
        show_column(column, found);
    }
    about_->setText(run == nullptr ? QString() : qt(about(run->result, parts_.session)));
    about_->setToolTip(run == nullptr ? QString() : text_of(run->result.notes));
    about_->setEnabled(rating_.reason().empty());
    const Text& frame = run == nullptr ? nothing_yet : of_former;
    reason_->tell(rating_.reason().empty() ? "" : fill(frame.in(lang), {rating_.reason()}));
    outlook_->setVisible(rating_.reason().empty());
}

/// A result of former inputs is grey, and says so where it is read out.
void LiveResults::show_column(const Column& column, const MethodResult* line) const {
    const bool present = rating_.reason().empty();
    for (QLabel* label : {column.name, column.value}) {
        label->setVisible(line != nullptr);
        label->setEnabled(present);
    }
    if (line == nullptr) return;
    const std::string value = without_outer_blanks(line->result);
    column.value->setText(qt(value));
    column.value->setAccessibleName(
        qt(fill((present ? present_value : former_value).in(parts_.session.lang),
                {name_of(column.method), value})));
}

/// Each change begins the pause anew.
void LiveResults::look_further() {
    if (!rating_.reason().empty()) return job_.cancel();
    if (rating_.has_moved()) {
        found_.reset();
        cancelled_ = false;
    }
    show_outlook();
    if (found_ || cancelled_ || (!rating_.has_moved() && job_.is_under_way())) return;
    const auto memory = std::make_shared<MethodMemory>();
    if (parts_.session.memory != nullptr) *memory = *parts_.session.memory;
    const auto found = std::make_shared<std::optional<Outlook>>();
    job_.start(
        [run = *rating_.run(), steps = parts_.steps.of(rating_.run()->c), session = parts_.session,
         memory, found](Job& job) {
            *found = outlook(
                run, session.apart(job.dialogs(), memory.get()),
                [&job] { return !job.cancelled(); }, steps);
        },
        [this, found] {
            found_ = std::move(*found);
            show_outlook();
        });
}

void LiveResults::show_outlook() {
    std::vector<std::string> lines;
    if (!found_ && job_.is_under_way()) lines.emplace_back(working.in(parts_.session.lang));
    if (cancelled_) lines.emplace_back(was_cancelled.in(parts_.session.lang));
    if (found_)
        for (std::string line : {sensitivity_line(*found_->sensitivity, most_lines, parts_.session),
                                 transient_line(*found_, parts_.session)})
            if (!line.empty()) lines.push_back(std::move(line));
    outlook_->setText(qt(joined(lines, "\n")));
    need_height();
}

/// Docks do not ask how high a text is at their width.
void LiveResults::need_height() {
    layout()->activate();  // the layouts in it remember heights of former texts
    setMinimumHeight(std::max(0, layout()->heightForWidth(width())));
}

void LiveResults::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    need_height();
}

}  // namespace zel
