#include "desktop/line/form1_transient_page.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/column_grid.h"
#include "desktop/frame/events.h"
#include "desktop/frame/job_runner.h"
#include "desktop/line/course_panel.h"
#include "forms/line_form.h"
#include "messages/box_chain.h"
#include "workflow/run/notes.h"
#include "workflow/run/transient_text.h"

namespace zel {
namespace {

constexpr Text start_caption = {"Ausgangszustand", "Initial state"};
constexpr Text rows_caption = {"Zustandsänderungen", "Change-of-states"};
constexpr Text method_caption = {"Berechnungsverfahren :", "Calculation method :"};
constexpr Text button_caption = {"Bere&chnen", "Calc&ulate"};
constexpr Text diagram_caption = {"&Graphische Darstellung ...", "Diagra&m ..."};
constexpr Text origin_caption = {"Herkunft :", "Origin :"};
constexpr Text origin = {"letzte stationäre Berechnung, {0}", "last steady calculation, {0}"};
constexpr Text no_state = {"-", "-"};
constexpr Text former_start = {
    "Dieser Zustand ist der einer früheren Berechnung: die letzte ergab keinen.",
    "This state is that of a former calculation: the last one found none."};

/// A heading above columns of the grid, in two lines: the quantity and its unit.
struct Heading {
    int column;
    int columns;
    Text quantity;
    const char* unit;
};

constexpr Heading headings[] = {
    {kind_column, 3, {"gesucht", "sought"}, ""},
    {cell_column, 1, {"Stromstärke neu", "new current load"}, "A"},
    {cell_column + 1, 1, {"Temperatur neu", "new temperature"}, "°C"},
    {cell_column + 2, 2, {"Zeitdauer", "duration"}, ""},
    {total_column, 1, {"Zeit ab t 0", "time from t 0"}, ""},
};
constexpr int button_width = 180;  // pixels
constexpr int button_height = 36;
constexpr int quantity_line = 0;
constexpr int unit_line = 1;
constexpr int first_line = 2;

QLabel* make_label(const char* name) {
    QLabel* label = plain_label();
    label->setObjectName(name);
    return label;
}

QLabel* make_notice(const char* name) {
    QLabel* label = plain_label(1, true);
    label->setObjectName(name);
    return label;
}

QLabel* unit_label(const char* unit) {
    auto* label = new QLabel(qt(unit));
    label->setAlignment(Qt::AlignHCenter);
    return label;
}

}  // namespace

JobProgress progress_of(const TransientProgress& at, LangId lang) {
    const auto row =
        static_cast<std::size_t>(std::clamp(at.row, 1, static_cast<int>(state_change_count)) - 1);
    // What has begun shows a little.
    return {std::clamp(100 * at.done, 0.1, 100.0),
            std::string(change_of_state_names[row].in(lang))};
}

TransientPage::TransientPage(const TransientRowPanel::Parts& parts, int patience)
    : parts_(parts),
      patience_(patience),
      method_(make_label("transient_method")),
      start_current_(make_label("start_current")),
      start_temperature_(make_label("start_temperature")),
      start_origin_(make_label("start_origin")),
      former_notice_(parts.captions.text(make_notice("former_start_notice"), former_start)),
      button_(parts.captions.text(new QPushButton, button_caption)),
      diagram_(parts.captions.text(new QPushButton, diagram_caption)),
      print_(new QPushButton),
      notice_(make_notice("stale_notice")),
      curve_(new CoursePanel(parts.session, parts.captions)) {
    parts.captions.computed([this](LangId lang) {
        notice_->setText(qt(lines_of(stale_question.lines.in(lang)).front()));
        for (const auto& row : rows_) row->show_note();
    });
    auto* content = new QWidget;
    auto* layout = new QVBoxLayout(content);
    layout->setContentsMargins(12, 12, 12, 12);
    layout->setSpacing(14);
    layout->addWidget(make_start());
    layout->addWidget(make_rows());
    layout->addWidget(make_actions());
    notice_->setWordWrap(true);
    layout->addWidget(notice_);
    layout->addWidget(curve_, 1);
    layout->addStretch();
    set_content(content);
    parts_.captions.computed([this](LangId) {
        place_rows(false);
        fit_rows();
    });
    set_tab_order();
    TransientPage::load();
}

QGroupBox* TransientPage::make_start() {
    Captions& captions = parts_.captions;
    auto* group = captions.title(new QGroupBox, start_caption);
    auto* grid = new QGridLayout(inside_of(*group));
    grid->setHorizontalSpacing(24);
    grid->setVerticalSpacing(6);
    const struct {
        const char* name;
        Text caption;
        QLabel* value;
    } lines[] = {{"caption_transient_method", method_caption, method_},
                 {"caption_start_current", start_current_label, start_current_},
                 {"caption_start_temperature", start_temperature_label, start_temperature_},
                 {"caption_start_origin", origin_caption, start_origin_}};
    int line = 0;
    for (const auto& [name, caption, value] : lines) {
        QLabel* label = make_label(name);
        captions.computed(
            [label, text = caption](LangId lang) { label->setText(qt(text, lang).trimmed()); });
        grid->addWidget(label, line, 0);
        grid->addWidget(value, line++, 1);
    }
    grid->addWidget(former_notice_, line, 0, 1, 3);
    grid->setColumnStretch(2, 1);
    return group;
}

QGroupBox* TransientPage::make_rows() {
    auto* group = parts_.captions.title(new QGroupBox, rows_caption);
    auto* grid = grid_ = new QGridLayout(inside_of(*group));
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(10);
    for (const Heading& heading : headings) {
        auto* label = parts_.captions.text(new QLabel, heading.quantity);
        label->setAlignment(heading.column == total_column ? Qt::AlignLeft : Qt::AlignHCenter);
        headings_.push_back(label);
        grid->addWidget(label, quantity_line, heading.column, 1, heading.columns);
        if (*heading.unit != '\0')
            grid->addWidget(unit_label(heading.unit), unit_line, heading.column);
    }
    grid->addWidget(unit_label("min"), unit_line, cell_column + 2);
    grid->addWidget(unit_label("sec"), unit_line, cell_column + 3);
    TransientRowPanel::Parts parts = parts_;
    parts.refused = [this](QWidget* input) {
        typing_refused_ = true;
        parts_.refused(input);
    };
    for (std::size_t i = 0; i < state_change_count; ++i)
        rows_.push_back(std::make_unique<TransientRowPanel>(
            i, parts, *grid, first_line + TransientRowPanel::lines * static_cast<int>(i)));
    grid->setColumnStretch(total_column, 1);
    return group;
}

void TransientPage::resizeEvent(QResizeEvent* event) {
    AreaPage::resizeEvent(event);
    fit_rows();
}

/// What was placed while the page was hidden has its room only now.
void TransientPage::showEvent(QShowEvent* event) {
    AreaPage::showEvent(event);
    need_anew(*grid_->parentWidget());
}

/// What the rows need in their wide arrangement is known as long as they have it.
void TransientPage::fit_rows() {
    if (!narrow_) wide_width_ = widget()->minimumSizeHint().width();
    const bool narrow = viewport()->width() < wide_width_;
    if (narrow != narrow_) place_rows(narrow);
}

void TransientPage::place_rows(bool narrow) {
    narrow_ = narrow;
    const auto [from, to] = narrow ? std::pair(' ', '\n') : std::pair('\n', ' ');
    for (QLabel* heading : headings_) {
        QString text = heading->text();
        if (const auto gap = text.indexOf(from); gap > 0) text[gap] = QLatin1Char(to);
        heading->setText(text);
    }
    for (const auto& row : rows_) row->place(*grid_, narrow);
    need_anew(*grid_->parentWidget());
}

QWidget* TransientPage::make_actions() {
    auto* actions = new QWidget;
    auto* layout = new QHBoxLayout(actions);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(24);
    button_->setObjectName("calculate_transient");
    button_->setAutoDefault(true);
    button_->setMinimumSize(button_width, button_height);
    on(button_, &QPushButton::clicked, [this] { press_button(); });
    layout->addWidget(button_);
    diagram_->setObjectName("Command_graph");
    diagram_->setAutoDefault(true);
    diagram_->setMinimumHeight(button_height);
    on(diagram_, &QPushButton::clicked, [this] { show_diagram(); });
    layout->addWidget(diagram_);
    print_->setObjectName("print_transient");
    print_->setAutoDefault(true);
    print_->setMinimumHeight(button_height);
    layout->addWidget(print_);
    layout->addStretch(1);
    return actions;
}

/// Along the rows to the button; the buttons that switch rows off stand last, out of the way.
void TransientPage::set_tab_order() {
    QWidget* last = nullptr;
    const auto follow = [&last](QWidget* input) {
        if (last != nullptr) setTabOrder(last, input);
        last = input;
    };
    for (const auto& row : rows_)
        for (QWidget* input : row->inputs()) follow(input);
    follow(button_);
    follow(diagram_);
    follow(print_);
    follow(curve_->limit_box());
    for (const auto& row : rows_) follow(row->off_button());
}

void TransientPage::focus_first() { rows_.front()->input(nullptr)->setFocus(); }

QWidget* TransientPage::input(const FieldInfo& field) const {
    for (std::size_t row = 0; row < rows_.size(); ++row)
        for (const StateCell cell :
             {StateCell(), state_cells[0], state_cells[1], state_cells[2], state_cells[3]})
            if (&field == &forms::transient_input(row, cell)) return rows_[row]->input(cell);
    return nullptr;
}

bool TransientPage::is_stale() const {
    return parts_.line.transient.result_is_stale(parts_.line.c, parts_.session);
}

void TransientPage::load() {
    const LangId lang = parts_.session.lang;
    const auto& start = parts_.line.transient.basis().start;
    const auto method = transient_method(parts_.line.c);
    method_->setText(method ? qt(name_of(*method)) : qt(no_state, lang));
    const DecimalSeparator separator = parts_.session.separator;
    start_current_->setText(start ? qt(start_current_text(*start, parts_.line.c, separator))
                                  : qt(no_state, lang));
    start_temperature_->setText(start ? qt(start_temperature_text(*start, separator))
                                      : qt(no_state, lang));
    const auto& start_method = parts_.line.transient.basis().start_method;
    start_origin_->setText(start_method ? qt(fill(origin.in(lang), {name_of(*start_method)}))
                                        : qt(no_state, lang));
    former_notice_->setVisible(parts_.line.transient.start_is_former());
    const bool stale = is_stale();
    for (const auto& row : rows_) row->load(stale);
    notice_->setVisible(stale);
    const bool has_run = parts_.line.transient.result() != nullptr;
    diagram_->setEnabled(has_run);
    has_run ? curve_->tell_stale(stale) : curve_->forget();
}

void TransientPage::commit() {
    for (const auto& row : rows_) row->commit();
}

bool TransientPage::is_unfinished() const {
    return std::any_of(rows_.begin(), rows_.end(),
                       [](const auto& row) { return row->is_unfinished(); });
}

bool TransientPage::start_own_calculation() {
    press_button();
    return true;
}

void TransientPage::press_button() {
    typing_refused_ = false;
    commit();
    if (!typing_refused_) calculate();
}

void TransientPage::calculate() {
    if (running_) return;
    const QScopedValueRollback<bool> guard(running_, true);
    CalcCase c = parts_.line.c;
    MethodMemory memory = *parts_.session.memory;
    TransientResult result;
    std::optional<std::vector<RowSeries>> series;
    RunProgress progress(*this, parts_.session.lang, patience_);
    BoxLog boxes(parts_.session.dialogs);
    run_job(progress, boxes,
            [&c, &memory, &result, &series, basis = parts_.line.transient.basis(),
             session = parts_.session](Job& job) {
                const auto observer = [&job, lang = session.lang](const TransientProgress& at) {
                    job.tell(progress_of(at, lang));
                    return !job.cancelled();
                };
                const Session apart = session.apart(job.dialogs(), &memory);
                RunTransient(c, basis, apart, observer, result);
                if (result.input_valid && result.end != TransientEnd::Cancelled)
                    series = transient_series(c, basis, result, apart, observer);
            });
    if (!result.input_valid) {
        parts_.session.tell(result.refusal.box);
        parts_.messages.run_refused([this] { return refusal(); });
        if (result.refusal.row) rows_[*result.refusal.row]->input(result.refusal.cell)->setFocus();
        return;
    }
    if (result.end == TransientEnd::Cancelled) return;
    parts_.line.c = c;
    *parts_.session.memory = memory;
    parts_.line.transient.keep(result, c);
    if (series)
        curve_->show_course({c, result, *std::move(series)});
    else
        curve_->forget();
    parts_.line.changed();
    parts_.messages.further_done(boxes.told());
    calculated();
}

std::optional<FieldBox> TransientPage::refusal() const {
    const auto found =
        refusal_of_transient(parts_.line.c, parts_.line.transient.basis(), parts_.session);
    if (!found) return std::nullopt;
    return FieldBox{found->box,
                    found->row ? &forms::transient_input(*found->row, found->cell) : nullptr};
}

bool TransientPage::brought_up_to_date() {
    const Session& session = parts_.session;
    if (!is_stale()) return true;
    if (session.dialogs.show(box_in(session.lang, stale_question)) != Answer::Yes) return false;
    press_button();
    return !is_stale();
}

/// What is still stale is not drawn, which is told there.
void TransientPage::show_diagram() {
    (void)brought_up_to_date();
    draw();
}

std::string TransientPage::text_to_copy() {
    if (parts_.line.transient.result() == nullptr || !brought_up_to_date()) return {};
    const Session& session = parts_.session;
    const TransientResult& result = *parts_.line.transient.result();
    return transient_text(result, parts_.line.c, session) +
           notes_text(notes_on(result, parts_.line.c, session), session.lang);
}

}  // namespace zel
