#include "desktop/batch/frm_excel_IO.h"

#include <QCoreApplication>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <cmath>

#include "desktop/frame/group.h"
#include "desktop/frame/qt_text.h"
#include "excel_batch/batch_texts.h"
#include "excel_batch/test_rows.h"
#include "forms/config_options.h"

namespace zel {
namespace {

using namespace excel_batch;

constexpr std::string_view module_name = "MOD02EXCEL";
constexpr int percent_unit = 100;  // steps of the bar in a percent
constexpr qint64 pause = 30;       // ms between two looks at the windows

constexpr Text steady_title = {"Excel-Berechnung stationär", "Excel calculation steady-state"};
constexpr Text transient_title = {"Excel-Berechnung instationär (PATL / TATL)",
                                  "Excel calculation transient (PATL / TATL)"};
constexpr Text choice_caption = {"Excel-Arbeitsmappe ...", "Excel workbook ..."};
constexpr Text with_conductor_caption = {
    "... mit Leiterdaten in Arbeitsblatt \"variable_input_result\"",
    "... with conductor data in worksheet \"variable_input_result\""};
constexpr Text without_conductor_caption = {
    "... ohne Leiterdaten in Arbeitsblatt \"variable_input_result\"",
    "... without conductor data in worksheet \"variable_input_result\""};
constexpr Text duration_note = {"Die Gesamtrechenzeit kann bis zu 5 h dauern.   ",
                                "The whole calculation may take up to 5 h.   "};
constexpr Text start_caption = {"&Auswahl Arbeitsmappe u. Start der Berechnung",
                                "&Select workbook and start the calculation"};
constexpr Text open_caption = {"Aktuelle &Arbeitsmappe in Excel öffnen",
                               "Open present &workbook in Excel"};
constexpr Text stop_caption = {"Excel-Berechnung &abbrechen", "&Cancel Excel calculation"};
constexpr Text close_caption = {"Fenster schließen", "Close window"};
constexpr Text random_caption = {"Auswahl Arbeitsmappe / Generierung zufälliger Datensätze",
                                 "Select workbook / generate random data sets"};
constexpr Text deviation_caption = {
    "Auswahl Arbeitsmappe & Auswertung Abweichungen Cigre / Webs / Kirn",
    "Select workbook & evaluate deviations Cigre / Webs / Kirn"};
constexpr Text tests_caption = {"Programmtest", "Program test"};
constexpr Text seed_label = {"Startwert (leer = zufällig) :", "Seed (empty = random) :"};
constexpr Text rows_written = {"{0} Zeilen wurden geschrieben.", "{0} rows were written."};
constexpr Text stopped_saved = {
    "Die Berechnung wurde abgebrochen. Die bis dahin berechneten Zeilen stehen in der Arbeitsmappe.",
    "The calculation was cancelled. The rows calculated until then stand in the workbook."};
constexpr Text stopped_unsaved = {
    "Die Berechnung wurde abgebrochen. Die Arbeitsmappe ist unverändert.",
    "The calculation was cancelled. The workbook is unchanged."};

constexpr Text select_title = {"Auswahl Excel-Arbeitsmappe Berechnung ...",
                               "Select excel calculation workbook ..."};
constexpr Text select_filters = {"Excel-Dateien (*.xlsx)\nAlle Dateien (*)",
                                 "Excel files (*.xlsx)\nAll files (*)"};

// An ampersand in a caption marks a key, two of them are one.
QString plain_caption(const Text& text, LangId lang) { return qt(text, lang).replace("&", "&&"); }

std::string folder_of_path(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

}  // namespace

/// Shows the run in the window, and lets the windows live after each row.
class FrmExcelIO::Observer : public BatchObserver {
public:
    explicit Observer(FrmExcelIO& form) : form_(form) {}

    void status(const std::string& line) override {
        form_.status_->setText(qt(line));
        look();
    }
    void percent(double percent) override {
        form_.progress_->setValue(static_cast<int>(percent * percent_unit));
        const bool whole = std::floor(percent) == percent;
        form_.progress_->setFormat(
            qt(masked(percent, whole ? "##0 %" : "##0.0# %", form_.state_.session.separator)));
        look();
    }
    void active_rows(const std::string& line) override { form_.active_rows_->setText(qt(line)); }
    void time_suffix(std::string_view suffix) override { suffix_ = suffix; }
    bool cancelled() override {
        if (form_.clock_.elapsed() - looked_ >= pause) look();
        return form_.stop_;
    }

    /// Shows the elapsed time and handles what happened in the windows.
    void look() {
        looked_ = form_.clock_.elapsed();
        const std::string time = duration_text(static_cast<double>(looked_) / 1000) + suffix_;
        form_.elapsed_->setText(qt(fill(elapsed_line.in(form_.lang()), {time})));
        QCoreApplication::processEvents();
    }
    void begin() {
        suffix_.clear();
        looked_ = 0;
    }

private:
    FrmExcelIO& form_;
    std::string suffix_;
    qint64 looked_ = 0;
};

FrmExcelIO::FrmExcelIO(QWidget* parent, DesktopState& state, ExcelMode mode)
    : QDialog(parent), state_(state), mode_(mode), observer_(std::make_unique<Observer>(*this)) {
    setObjectName("frm_excel_IO");
    // Nothing may change under a run.
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(qt(mode == ExcelMode::Steady ? steady_title : transient_title, lang()));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    if (mode == ExcelMode::Steady) layout->addWidget(make_choice());
    QPushButton* start = make_button("Command1", start_caption, &FrmExcelIO::start);
    start->setDefault(true);
    layout->addWidget(start);
    layout->addWidget(make_progress());
    stop_button_ = make_button("Command3", stop_caption, &FrmExcelIO::stop);
    open_ = make_button("Command2", open_caption, &FrmExcelIO::open_workbook);
    if (state.settings.now().frm_excel_IO_height == excel_height_with_tests)
        layout->addWidget(make_tests());
    layout->addStretch();
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(stop_button_);
    buttons->addWidget(open_);
    buttons->addStretch();
    buttons->addWidget(make_button("Command6", close_caption, &FrmExcelIO::close_window));
    layout->addLayout(buttons);
    set_running(false);
    resize(720, sizeHint().height());
}

FrmExcelIO::~FrmExcelIO() = default;

QPushButton* FrmExcelIO::make_button(const char* name, const Text& caption,
                                     void (FrmExcelIO::*action)()) {
    auto* button = new QPushButton(qt(caption, lang()));
    button->setObjectName(name);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, action] { (this->*action)(); });
    at_rest_.push_back(button);
    return button;
}

QWidget* FrmExcelIO::make_choice() {
    auto* box = new QGroupBox(qt(choice_caption, lang()));
    auto* layout = new QVBoxLayout(inside_of(*box));
    with_conductor_ = new QRadioButton(qt(with_conductor_caption, lang()));
    with_conductor_->setObjectName("Option7");
    without_conductor_ = new QRadioButton(qt(without_conductor_caption, lang()));
    without_conductor_->setObjectName("Option8");
    const bool with = state_.settings.now().Excel_Leiterdaten_Merker == 1;
    (with ? with_conductor_ : without_conductor_)->setChecked(true);
    for (QRadioButton* option : {with_conductor_, without_conductor_}) {
        const std::int16_t value = option == with_conductor_ ? 1 : 2;
        connect(option, &QRadioButton::clicked, this, [this, value] {
            state_.change(&ProgramSettings::Excel_Leiterdaten_Merker, value);
        });
        layout->addWidget(option);
    }
    at_rest_.push_back(box);
    return box;
}

QWidget* FrmExcelIO::make_progress() {
    auto* area = new QWidget;
    auto* layout = new QVBoxLayout(area);
    layout->setContentsMargins(0, 4, 0, 4);
    auto* note = new QLabel(qt(duration_note, lang()));
    progress_ = new QProgressBar;
    progress_->setObjectName("progress");
    progress_->setRange(0, 100 * percent_unit);
    progress_->setValue(0);
    progress_->setFormat("0 %");
    const auto line = [](const char* name) {
        auto* label = new QLabel;
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setWordWrap(true);
        return label;
    };
    status_ = line("status");
    active_rows_ = line("active_rows");
    elapsed_ = line("elapsed");
    summary_ = line("summary");
    summary_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    summary_->setMinimumHeight(5 * summary_->fontMetrics().lineSpacing());
    summary_->setAlignment(Qt::AlignTop);
    for (QWidget* widget : std::initializer_list<QWidget*>{note, progress_, status_, active_rows_,
                                                           elapsed_, summary_})
        layout->addWidget(widget);
    return area;
}

QWidget* FrmExcelIO::make_tests() {
    auto* box = new QGroupBox(qt(tests_caption, lang()));
    box->setObjectName("tests");
    auto* layout = new QVBoxLayout(inside_of(*box));
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(qt(seed_label, lang()));
    seed_ = new QLineEdit;
    seed_->setObjectName("seed");
    seed_->setMaximumWidth(140);
    seed_->setValidator(new QRegularExpressionValidator(QRegularExpression("[0-9]{0,9}"), seed_));
    label->setBuddy(seed_);
    QPushButton* random =
        make_button("Command4", random_caption, &FrmExcelIO::fill_with_random_values);
    QPushButton* deviations =
        make_button("Command5", deviation_caption, &FrmExcelIO::write_deviations);
    deviations->setText(plain_caption(deviation_caption, lang()));
    row->addWidget(random);
    row->addWidget(label);
    row->addWidget(seed_);
    row->addStretch();
    layout->addLayout(row);
    layout->addWidget(deviations, 0, Qt::AlignLeft);
    at_rest_.push_back(seed_);
    return box;
}

void FrmExcelIO::set_running(bool running) {
    running_ = running;
    for (QWidget* widget : at_rest_) widget->setEnabled(!running);
    stop_button_->setEnabled(running);
    open_->setEnabled(!running && !path_.empty());
}

std::string FrmExcelIO::choose_workbook() {
    while (true) {
        PathQuestion question = {std::string(select_title.in(lang())), folder_of_path(path_),
                                 select_filters.in(lang()), "xlsx"};
        question.existing = true;
        const auto path = state_.chooser.path_to_select(question);
        if (!path) return {};
        if (!is_shipped_template(*path, state_.data_folder)) return *path;
        const std::string name = path->substr(path->rfind('/') + 1);
        state_.session.dialogs.show(box_in(lang(), template_refused, {name}));
    }
}

BatchJob FrmExcelIO::job() {
    const ProgramSettings& settings = state_.settings.now();
    BatchJob job = {*state_.workbooks, path_, state_.session, *observer_};
    job.preset = state_.calc_case;
    job.data_folder = state_.data_folder;
    job.real_path = path_;
    job.Excel_Leiterdaten_Merker = settings.Excel_Leiterdaten_Merker;
    job.Excel_Zelle_Array_Schreiben_Merker = settings.Excel_Zelle_Array_Schreiben_Merker;
    return job;
}

void FrmExcelIO::start() {
    const std::string path = choose_workbook();
    if (path.empty()) return;
    path_ = path;
    run(job());
}

void FrmExcelIO::run(const BatchJob& job) {
    // The window comes to rest also where a calculation ends the program.
    struct Running {
        explicit Running(FrmExcelIO& form) : form_(form) { form.set_running(true); }
        ~Running() { form_.set_running(false); }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        FrmExcelIO& form_;
    } const running(*this);
    stop_ = false;
    for (QLabel* label : {active_rows_, summary_}) label->clear();
    clock_.start();
    observer_->begin();
    const bool steady = mode_ == ExcelMode::Steady;
    BatchResult result;
    const std::int16_t action =
        trap(state_.errors, module_name,
             steady ? "S_00_io_excel_gesamt_rahmen_stat" : "S_100_io_excel_gesamt_rahmen_transient",
             [&] {
                 result = steady ? S_00_io_excel_gesamt_rahmen_stat(job)
                                 : S_100_io_excel_gesamt_rahmen_transient(job);
             });
    if (action != 0) observer_->percent(0);
    observer_->look();
    show_result(result);
}

void FrmExcelIO::show_result(const BatchResult& result) {
    std::string text = joined(result.summary, "\n");
    if (result.end == BatchEnd::Stopped) {
        text = (result.saved ? stopped_saved : stopped_unsaved).in(lang());
        status_->clear();
    }
    if (result.end == BatchEnd::Refused) status_->clear();
    summary_->setText(qt(text));
}

void FrmExcelIO::stop() { stop_ = true; }

void FrmExcelIO::open_workbook() {
    trap(state_.errors, "frm_excel_IO", "Command2_click", [&] {
        if (!state_.launcher.open_document(path_))
            throw PlatformError(PlatformFault::ProgramMissing, path_ + ": no program opens it");
    });
}

void FrmExcelIO::fill_with_random_values() {
    const std::string path = choose_workbook();
    if (path.empty()) return;
    path_ = path;
    std::optional<std::uint32_t> seed;
    if (!seed_->text().isEmpty()) seed = seed_->text().toUInt();
    std::optional<int> rows;
    trap(state_.errors, "frm_excel_IO", "Command4_click", [&] {
        rows = excel_batch::fill_with_random_values(*state_.workbooks, path_, state_.session, seed);
    });
    show_rows_done(rows);
}

void FrmExcelIO::write_deviations() {
    const std::string path = choose_workbook();
    if (path.empty()) return;
    path_ = path;
    std::optional<int> rows;
    trap(state_.errors, "frm_excel_IO", "Command5_click",
         [&] { rows = excel_batch::write_deviations(*state_.workbooks, path_, state_.session); });
    show_rows_done(rows);
}

void FrmExcelIO::show_rows_done(std::optional<int> rows) {
    summary_->setText(rows ? qt(fill(rows_written.in(lang()), {std::to_string(*rows)}))
                           : QString());
    set_running(false);
}

void FrmExcelIO::close_window() { reject(); }

void FrmExcelIO::reject() {
    if (running_)
        stop();
    else
        QDialog::reject();
}

}  // namespace zel
