#include "desktop/batch/frm_excel_IO.h"

#include <QClipboard>
#include <QGroupBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QRegularExpressionValidator>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "desktop/batch/wrong_cell_list.h"
#include "desktop/frame/column_grid.h"
#include "desktop/frame/events.h"
#include "desktop/frame/help_page.h"
#include "desktop/frame/sheet_saving.h"
#include "desktop/frame/widgets.h"
#include "excel_batch/batch_texts.h"
#include "excel_batch/template_design.h"
#include "excel_batch/test_rows.h"
#include "forms/config_options.h"
#include "workflow/run/notes.h"

namespace zel {
namespace {

constexpr int gap = 6;  // pixels between buttons
constexpr int usual_width = 720;

using namespace excel_batch;

constexpr std::string_view module_name = "MOD02EXCEL";
constexpr int percent_unit = 100;  // steps of the bar in a percent

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
constexpr Text template_caption = {"&Leere Vorlage speichern ...", "Save empty &template ..."};
constexpr SavingWords template_words = {
    {"Leere Vorlage speichern", "Save empty template"},
    {"Excel-Dateien (*.xlsx) (*.xlsx)", "Excel files (*.xlsx) (*.xlsx)"},
    "xlsx",
    {"Die Vorlage kann nicht gespeichert werden:\n{0}", "The template can not be saved:\n{0}"}};
constexpr Text template_saved = {"Die leere Vorlage steht in {0}.", "The empty template is {0}."};
constexpr Text copy_caption = {"&Zusammenfassung kopieren", "Copy su&mmary"};
constexpr Text cell_opened = {
    "Die Arbeitsmappe wird geöffnet. In der Zwischenablage steht {0} (Arbeitsblatt {1}).",
    "The workbook is being opened. The clipboard holds {0} (worksheet {1})."};
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

constexpr Text dropped = {"Vorgeschlagen wird {0}.", "{0} is proposed."};

constexpr Text select_title = {"Auswahl Excel-Arbeitsmappe Berechnung ...",
                               "Select excel calculation workbook ..."};
constexpr Text select_filters = {"Excel-Dateien (*.xlsx)\nAlle Dateien (*)",
                                 "Excel files (*.xlsx)\nAll files (*)"};

// An ampersand in a caption marks a key, two of them are one.
QString plain_caption(const Text& text, LangId lang) { return qt(text, lang).replace("&", "&&"); }

std::string folder_of_path(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

}  // namespace

FrmExcelIO::FrmExcelIO(QWidget* parent, DesktopState& state, ExcelMode mode)
    : QDialog(parent), state_(state), mode_(mode) {
    setObjectName("frm_excel_IO");
    setProperty(help_page, static_cast<int>(mode));
    // Nothing may change under a run.
    setWindowModality(Qt::ApplicationModal);
    setWindowTitle(qt(mode == ExcelMode::Steady ? steady_title : transient_title, lang()));
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(10);
    if (mode == ExcelMode::Steady) layout->addWidget(make_choice());
    QPushButton* start = make_button("Command1", start_caption, &FrmExcelIO::start);
    start->setDefault(true);
    auto* first = new ColumnGrid(gap);
    first->place(start, {0, 0}, {0, 0});
    first->place(make_button("save_template", template_caption, &FrmExcelIO::save_template), {0, 1},
                 {1, 0});
    first->share({1}, {1}, 2, 2);
    layout->addWidget(first);
    layout->addWidget(make_progress());
    stop_button_ = make_button("Command3", stop_caption, &FrmExcelIO::stop);
    open_ = make_button("Command2", open_caption, &FrmExcelIO::open_workbook);
    copy_ = make_button("copy_summary", copy_caption, &FrmExcelIO::copy_summary);
    wrong_cells_ = new WrongCellList(lang(), [this](const WrongCell& cell) { go_to(cell); });
    layout->addWidget(wrong_cells_, 1);
    if (state.settings.now().frm_excel_IO_height == excel_height_with_tests)
        layout->addWidget(make_tests());
    layout->addStretch();
    auto* buttons = new ColumnGrid(gap);
    buttons->place_row({stop_button_, open_, copy_,
                        make_button("Command6", close_caption, &FrmExcelIO::close_window)},
                       2, 2);
    layout->addWidget(buttons);
    set_running(false);
    size_window(*this, {std::max(usual_width, sizeHint().width()), 0});
}

QPushButton* FrmExcelIO::make_button(const char* name, const Text& caption,
                                     void (FrmExcelIO::*action)()) {
    auto* button = new QPushButton(qt(caption, lang()));
    button->setObjectName(name);
    button->setAutoDefault(false);
    on(button, &QPushButton::clicked, [this, action] { (this->*action)(); });
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
        on(option, &QRadioButton::clicked, [this, value] {
            state_.settings.change(&ProgramSettings::Excel_Leiterdaten_Merker, value);
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
    done_rows_ = line("done_rows");
    elapsed_ = line("elapsed");
    summary_ = line("summary");
    summary_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    summary_->setMinimumHeight(5 * summary_->fontMetrics().lineSpacing());
    summary_->setAlignment(Qt::AlignTop);
    for (QWidget* widget : std::initializer_list<QWidget*>{note, progress_, status_, active_rows_,
                                                           done_rows_, elapsed_, summary_})
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
    if (!running) job_ = nullptr;
    for (QWidget* widget : at_rest_) widget->setEnabled(!running);
    stop_button_->setEnabled(running);
    open_->setEnabled(!running && !path_.empty());
    copy_->setEnabled(!running && !summary_->text().isEmpty());
    wrong_cells_->setEnabled(!running);
}

void FrmExcelIO::show_job(Job& job, const JobProgress& at, double seconds) {
    job_ = &job;
    status_->setText(qt(at.line));
    active_rows_->setText(qt(at.amount));
    done_rows_->setText(qt(at.done));
    wrong_cells_->show_cells(found_.all());
    show_percent(at.percent);
    elapsed_->setText(qt(fill(elapsed_line.in(lang()), {duration_text(seconds) + at.time_suffix})));
}

void FrmExcelIO::show_percent(double percent) {
    progress_->setValue(static_cast<int>(percent * percent_unit));
    const bool whole = std::floor(percent) == percent;
    progress_->setFormat(
        qt(masked(percent, whole ? "##0 %" : "##0.0# %", state_.session.separator)));
}

void FrmExcelIO::take_dropped(const std::string& path) {
    if (stop_button_->isEnabled()) return;  // a workbook is being calculated
    propose(path);
    status_->setText(qt(fill(dropped.in(lang()), {path})));
}

bool FrmExcelIO::choose_workbook() {
    while (true) {
        const std::string& last = proposed_.empty() ? path_ : proposed_;
        PathQuestion question = {std::string(select_title.in(lang())), folder_of_path(last),
                                 select_filters.in(lang()), "xlsx"};
        question.existing = true;
        question.name = proposed_.substr(folder_of_path(proposed_).size());
        const auto path = state_.chooser.path_to_select(question);
        if (!path) return false;
        if (!is_shipped_template(*path, state_.data_folder)) {
            path_ = *path;
            proposed_.clear();
            return true;
        }
        const std::string name = path->substr(path->rfind('/') + 1);
        state_.session.dialogs.show(box_in(lang(), template_refused, {name}));
    }
}

void FrmExcelIO::run(std::string_view module, std::string_view procedure, const Job::Work& work) {
    // The window comes to rest also where a calculation ends the program.
    struct Running {
        explicit Running(FrmExcelIO& form) : form_(form) { form.set_running(true); }
        ~Running() { form_.set_running(false); }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;
        FrmExcelIO& form_;
    } const running(*this);
    summary_->clear();
    done_rows_->clear();
    found_.clear();
    wrong_cells_->show_cells({});
    trap(state_.errors, module, procedure, [&] { run_job(*this, state_.session.dialogs, work); });
}

void FrmExcelIO::start() {
    if (!choose_workbook()) return;
    const bool steady = mode_ == ExcelMode::Steady;
    const auto calculate =
        steady ? S_00_io_excel_gesamt_rahmen_stat : S_100_io_excel_gesamt_rahmen_transient;
    BatchResult result;
    std::vector<std::string> unseen;
    run(module_name,
        steady ? "S_00_io_excel_gesamt_rahmen_stat" : "S_100_io_excel_gesamt_rahmen_transient",
        [&result, &unseen, &found = found_, calculate, session = state_.session,
         settings = state_.settings.now(), preset = state_.calc_case, &store = state_.workbooks,
         path = path_, data_folder = state_.data_folder](Job& job) {
            SeenBoxes boxes(job.dialogs());
            const Session of_job = session.apart(boxes, nullptr);
            BatchWatch observer(job, found, session.lang);
            BatchJob batch = {store, path, of_job, observer, preset, data_folder, path};
            batch.Excel_Leiterdaten_Merker = settings.Excel_Leiterdaten_Merker;
            batch.Excel_Zelle_Array_Schreiben_Merker = settings.Excel_Zelle_Array_Schreiben_Merker;
            result = calculate(batch);
            unseen = boxes.unseen();
        });
    show_result(result, unseen);
}

void FrmExcelIO::show_result(const BatchResult& result, const std::vector<std::string>& unseen) {
    std::string text = joined(result.summary, "\n");
    const bool stopped = result.end == BatchEnd::Stopped;
    if (stopped) text = (result.saved ? stopped_saved : stopped_unsaved).in(lang());
    if (stopped || result.end == BatchEnd::Refused) status_->clear();
    // The percentage of a stopped run stays where its rows stand in the workbook.
    if (!stopped || !result.saved) show_percent(result.end == BatchEnd::Done ? 100 : 0);
    for (const std::string& lines : unseen) text += (text.empty() ? "" : "\n") + lines;
    done_rows_->setText(qt(end_line(result, lang())));
    summary_->setText(qt(text + notes_text(notes_of(result, lang()), lang())));
    summary_->setMinimumHeight(
        std::max(summary_->minimumHeight(), summary_->heightForWidth(summary_->width())));
    copy_->setEnabled(true);
}

void FrmExcelIO::stop() {
    if (job_ != nullptr) job_->cancel();
}

void FrmExcelIO::open_workbook() {
    trap(state_.errors, "frm_excel_IO", "Command2_click", [&] {
        if (!state_.launcher.open_document(path_))
            throw PlatformError(PlatformFault::ProgramMissing, path_ + ": no program opens it");
    });
}

/// No way of a desktop to open a document names a cell in it.
void FrmExcelIO::go_to(const WrongCell& cell) {
    QGuiApplication::clipboard()->setText(qt(cell.name()));
    status_->setText(qt(fill(cell_opened.in(lang()), {cell.name(), cell.sheet})));
    open_workbook();
}

void FrmExcelIO::save_template() {
    const WorkbookKind kind = mode_ == ExcelMode::Transient  ? WorkbookKind::Transient
                              : with_conductor_->isChecked() ? WorkbookKind::SteadyVar
                                                             : WorkbookKind::SteadyFix;
    const auto write = [&](const std::string& path) -> std::optional<Box> {
        if (is_shipped_template(path, state_.data_folder))
            return box_in(lang(), template_refused, {path.substr(folder_of_path(path).size())});
        state_.workbooks.create(path, template_design(kind, lang(), std::nullopt),
                                template_title(kind, lang()));
        path_ = proposed_ = path;
        // What stands there is of the former workbook.
        for (QLabel* former : {summary_, done_rows_}) former->clear();
        wrong_cells_->show_cells({});
        status_->setText(qt(fill(template_saved.in(lang()), {path})));
        set_running(false);
        return std::nullopt;
    };
    save_as(state_.session, state_.chooser, state_.files, template_words, folder_of_path(path_),
            template_name(kind, lang()), write);
}

void FrmExcelIO::copy_summary() {
    const std::string cells = cells_text(wrong_cells_->cells(), lang());
    std::vector<std::string> parts = {status_->text().toStdString(),
                                      done_rows_->text().toStdString(),
                                      summary_->text().toStdString(), cells};
    std::erase(parts, std::string());
    QGuiApplication::clipboard()->setText(qt(joined(parts, "\n")));
}

void FrmExcelIO::fill_with_random_values() {
    std::optional<std::uint32_t> seed;
    if (!seed_->text().isEmpty()) seed = seed_->text().toUInt();
    work_rows("Command4_click", [seed](WorkbookStore& store, const std::string& path,
                                       const Session& session, const RowsCancelled& cancelled) {
        return excel_batch::fill_with_random_values(store, path, session, seed, cancelled);
    });
}

void FrmExcelIO::write_deviations() { work_rows("Command5_click", excel_batch::write_deviations); }

void FrmExcelIO::work_rows(std::string_view procedure, const TestRows& work) {
    if (!choose_workbook()) return;
    std::optional<int> rows;
    bool stopped = false;
    run("frm_excel_IO", procedure,
        [&, &store = state_.workbooks, path = path_, session = state_.session](Job& job) {
            rows = work(store, path, session.apart(job.dialogs(), nullptr),
                        [&job] { return job.cancelled(); });
            stopped = !rows && job.cancelled();
            if (rows) job.tell({100});
        });
    if (rows) summary_->setText(qt(fill(rows_written.in(lang()), {std::to_string(*rows)})));
    if (stopped) summary_->setText(qt(stopped_unsaved, lang()));
    copy_->setEnabled(!summary_->text().isEmpty());
}

void FrmExcelIO::close_window() { reject(); }

void FrmExcelIO::reject() {
    if (job_ != nullptr)
        stop();
    else
        QDialog::reject();
}

}  // namespace zel
