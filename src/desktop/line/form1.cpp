#include "desktop/line/form1.h"

#include <QPushButton>
#include <QTabWidget>
#include <QTime>
#include <utility>

#include "compare/comparison.h"
#include "desktop/frame/events.h"
#include "desktop/line/form1_input_pages.h"
#include "desktop/line/form1_result_page.h"
#include "desktop/line/form1_transient_page.h"
#include "desktop/line/line_diagrams.h"
#include "desktop/line/line_pictures.h"
#include "desktop/line/line_reports.h"
#include "desktop/line/live_results.h"
#include "desktop/pictures/compare_panel.h"
#include "desktop/pictures/side_dock.h"
#include "measuring/measuring_table.h"
#include "messages/box_chain.h"
#include "persistence/case_file.h"
#include "platform/errors.h"
#include "shell/program_texts.h"
#include "steady/case/case_fields.h"
#include "steady/case/state_change.h"
#include "workflow/rules/derived.h"
#include "workflow/run/notes.h"
#include "workflow/run/page_change.h"
#include "workflow/run/steady_texts.h"

namespace zel {
namespace {

AreaFacts area() {
    return {"Form1",    "new_case", "close_Form1",          short_name,
            short_name, long_title, forms::line_databases()};
}

constexpr Text page_captions[] = {
    {"&Eingabedaten", "&Input data"},
    {"&Leiterdaten", "&Conductor data"},
    {"E&rgebnis", "&Results"},
    {"&Transient", "&Transient"},
};

constexpr Text print_transient_caption = {"Ausdruck : &Instationäre Berechnung",
                                          "Print : &Transient calculation"};

/// What was told in boxes; those of the advice came last, and lead to an input.
std::vector<FieldBox> told_by(const BoxChain& boxes, const SteadyRunResult& result) {
    std::vector<FieldBox> told;
    for (const Box& box : boxes.told()) told.push_back({box});
    std::copy_backward(result.advice.begin(), result.advice.end(), told.end());
    return told;
}

}  // namespace

Form1::Form1(Form1Parts parts)
    : AreaFrame(area(), parts.area,
                std::make_unique<LineRecord>(parts.c, parts.area.session, parts.settings),
                std::move(parts.path)),
      line_{parts.c, parts.transient, [this] { case_changed(); }},
      form_(parts.c, parts.area.session),
      settings_(parts.settings),
      conductors_(parts.make_conductors(*this, [this] { take_over_conductor(); })),
      steps_(parts.settings.store.user_store()),
      sharing_(sharing_conductors(parts.c)) {
    const auto refuse = [this](QWidget* input) { refused(input); };
    const auto typed = [this] { this->typed(); };
    FormParts form = {form_, session(), captions(), refuse, [this] { line_.changed(); }};
    form.typed = typed;
    form.messages = &messages();
    FormParts conductor_form = form;
    conductor_form.look.row_gap = 6;
    general_ = new GeneralPage(form, line_, settings_);
    conductor_ = new ConductorPage(conductor_form);
    result_ = new ResultPage({form,
                              line_.c,
                              {session(), parts.area.chooser, parts.workbooks, parts.files},
                              parts.patience});
    transient_ = new TransientPage({line_, session(), captions(), messages(), refuse, typed},
                                   parts.patience);
    const Text* caption = page_captions;
    for (AreaPage* page :
         std::initializer_list<AreaPage*>{general_, conductor_, result_, transient_})
        add_page(page, *caption++);
    captions().computed([this](LangId) { tell_result_anew(); });
    strip().setTabEnabled(transient_page, false);
    on(&general_->Command2(), &QPushButton::clicked, [this] { databases().save_in_fixed(); });
    on(&conductor_->Command3(), &QPushButton::clicked, [this] { open_database(); });
    on(&conductor_->Command4(), &QPushButton::clicked, [this] { take_over_conductor(); });
    result_->table_calculated = [this] { show_print_caption(); };
    add_print_button(result_->print_button());
    add_print_button(transient_->print_button());
    const LineDiagramParts diagrams = {*this, line_, session(), messages(), parts.patience};
    steady_diagram_ = parts.make_diagrams(*this, steady_diagram_form(diagrams));
    transient_diagram_ = parts.make_diagrams(*this, transient_diagram_form(diagrams));
    result_->table().draw = [this] { steady_diagram_->open(); };
    transient_->draw = [this] { transient_diagram_->open(); };
    transient_->calculated = [this] { allow_output_of_page(); };
    messages().changed_inputs = [this] { return changed_inputs(); };
    finish(*result_, form_, transient_);
    add_docks(parts);
}

void Form1::add_docks(const Form1Parts& parts) {
    pictures_ = new LinePictures({session(), captions(), parts.area.chooser, parts.files},
                                 printing(), line_, steps_);
    pictures_->steps_changed = [this] { live_->settings_changed(); };
    auto* pictures = new SideDock(*this, pictures_dock, pictures_, captions());
    pictures->open_by_itself(true);
    comparison_ = new ComparePanel(
        {{session(), captions(), parts.area.chooser, parts.files},
         parts.workbooks,
         [this](const KeptRun& run) { open_run(run); },
         [&store = parts.area.store](const CalcCase& c) {
             return store.text_of(values_of(without_found_values(without_derived_current(c))));
         }});
    auto* comparison = new SideDock(*this, comparison_dock, comparison_, captions());
    tabifyDockWidget(pictures, comparison);
    live_ = new LiveResults(
        {line_, session(), captions(), [this] { return texts_in_boxes(); }, steps_});
    live_dock_ = new SideDock(*this, live_dock, live_, captions());
    live_dock_->open_by_itself(true);
    add_view_menu(*this, captions(), {live_dock_, pictures, comparison});
}

/// A kept run becomes the case. The file that is open may be that of another line.
void Form1::open_run(const KeptRun& run) {
    if (!commit() || !may_be_replaced()) return;
    line_.c = run.c;
    // Its texts and settings are those of the time when it ran.
    const DecimalSeparator own = session().separator;
    respell(line_.c,
            own == DecimalSeparator::Comma ? DecimalSeparator::Point : DecimalSeparator::Comma,
            own);
    take_settings(line_.c, settings_.now());
    detach_document();
    messages().forget();
    load();
    line_.changed();
    strip().setCurrentIndex(input_page);
}

Form1::~Form1() = default;

/// The shown result is told again, not computed again.
void Form1::tell_result_anew() {
    if (!shown_run_) return;
    write_texts(*shown_run_, session());
    result_->show_run(*shown_run_);
    if (!shown_run_is_stale_) messages().renew_notes(shown_run_->notes);
    show_former_result();
}

/// By their names, since the run whose result is shown.
std::vector<std::string> Form1::changed_inputs() const {
    if (!shown_run_) return {};
    return changed_names(run_case_, line_.c, session());
}

bool Form1::result_is_former() const { return shown_run_is_stale_ || !changed_inputs().empty(); }

/// A result is grey, and no longer handed out, as long as it is not that of the inputs.
void Form1::show_former_result() {
    if (!shown_run_) return;
    const bool changed = !changed_inputs().empty();
    if (!changed) shown_run_is_stale_ = false;
    shown_run_is_stale_ ? result_->show_nothing_new() : result_->show_former(changed);
    allow_output_of_page();
}

void Form1::typed() {
    show_modified();
    live_->update_results();
    pictures_->follow_typing(texts_in_boxes());
}

/// What is typed and not yet entered.
std::vector<forms::PendingText> Form1::texts_in_boxes() const {
    auto texts = general_->pending();
    for (auto& text : conductor_->pending()) texts.push_back(std::move(text));
    return texts;
}

void Form1::load() {
    AreaFrame::load();
    live_->update_results();
}

/// Follows every change of the case: what hangs on it is brought into line.
void Form1::case_changed() {
    const int sharing = sharing_conductors(line_.c);
    if (sharing != sharing_) share_bundle_currents(line_.c, session().separator);
    sharing_ = sharing;
    conductor_->show_labels();
    result_->case_changed();
    transient_->load();
    pictures_->show_case();
    live_->update_results();
    steady_diagram_->inputs_changed();
    transient_diagram_->inputs_changed();
    show_print_caption();
    show_modified();
    show_former_result();
    messages().inputs_changed();
}

/// The pages of results have their own.
void Form1::follow_page() {
    live_dock_->belong_here(page() == input_page || page() == conductor_page);
    allow_output_of_page();
}

void Form1::allow_output_of_page() {
    allow_output(page() == transient_page ? line_.transient.result() != nullptr
                                          : page() == result_page && !result_is_former());
}

void Form1::take_measured(const StoredRow& row) {
    if (!commit()) return;
    measuring::take_over(row, line_.c, session().separator);
    show_new_case();
}

void Form1::show_changed_inputs() {
    load();
    line_.changed();
}

void Form1::apply_settings() {
    general_->show_measured();
    line_.changed();
    live_->settings_changed();
}

bool Form1::may_be_left() { return conductors_->may_be_left() && AreaFrame::may_be_left(); }

void Form1::open_database() {
    (void)trap(errors(), "Form1", "Command3_click", [this] {
        if (!conductors_->start_database())
            throw PlatformError(PlatformFault::ProgramMissing,
                                settings_.now().Seildatenbanknamepluspfad);
    });
}

void Form1::take_over_conductor() {
    if (!commit()) return;
    (void)trap(errors(), "Form1", "Command4_click", [this] {
        conductors_->take_over(line_.c, [this] {
            load();
            line_.changed();
        });
    });
}

void Form1::turn_to(int to) {
    const PageChange change = change_page(line_.c, page(), to, session().lang);
    if (change.clears_balance) {
        result_->reset();
        databases().allow_saving(false);
    }
    // A transient starts from the steady state of the inputs as they are now.
    if (to == transient_page && line_.transient.basis_is_stale(line_.c) && !run())
        return show_page(page());
    show_page(change.page);
    follow_page();  // before boxes come up over it
    if (change.refusal) session().tell(*change.refusal);
    if (page() == conductor_page) conductor_->show_states();
    if (change.runs) run();
    if (page() == transient_page) transient_->focus_first();
    allow_output_of_page();
}

/// False where the input was refused.
bool Form1::run() {
    BoxChain boxes(session().dialogs);
    SteadyRunResult result;
    boxes.collect([&] { RunSteady(line_.c, session().apart(boxes, session().memory), result); });
    boxes.show_waiting(!result.advice.empty());
    shown_run_is_stale_ = !result.input_valid;
    if (!result.input_valid) {
        result_->show_nothing_new();
        messages().run_refused(result.refusal);
        return false;
    }
    show_result(result);
    for (const FieldBox& advice : result.advice) (void)boxes.show(advice.box);
    boxes.show_waiting(false);
    messages().run_done(told_by(boxes, result), result.notes);
    return true;
}

void Form1::show_result(SteadyRunResult result) {
    result_->show_run(result);
    if (result.may_save) databases().allow_saving(true);
    line_.transient.keep(result, line_.c);
    const KeptRun kept = {QTime::currentTime().toString("HH:mm:ss").toStdString(), line_.c, result};
    pictures_->show_run(kept);
    comparison_->keep(kept);
    shown_run_ = std::move(result);
    run_case_ = line_.c;
    load();  // the run reconciles the currents of sub-conductor and bundle
    strip().setTabEnabled(transient_page, true);
}

/// Results and an opened transient belong to the former case.
void Form1::forget_results() {
    databases().allow_saving(true);
    line_.transient.forget();
    steady_diagram_->forget();
    transient_diagram_->forget();
    sharing_ = sharing_conductors(line_.c);
    result_->reset();
    result_->clear();
    shown_run_.reset();
    pictures_->forget();
    live_->forget();
    strip().setTabEnabled(transient_page, false);
    follow_page();  // the first one is shown
}

std::string Form1::text_to_copy() {
    if (page() == transient_page) return transient_->text_to_copy();
    if (!shown_run_ || result_is_former()) return {};
    const LangId lang = session().lang;
    return result_text(*shown_run_, lang) + notes_text(shown_run_->notes, lang);
}

std::string Form1::print_caption() const {
    const LangId lang = session().lang;
    if (page() == transient_page) return std::string(print_transient_caption.in(lang));
    if (const ParameterTable* table = result_->table().table())
        return std::string(table_print_caption(table->stepped).in(lang));
    return kind_texts(line_.c.Stromstaerke_Merker_db, false, lang).print_caption;
}

std::optional<PrintOrder> Form1::report_of_page() {
    if (page() == transient_page) {
        if (line_.transient.result() == nullptr) return std::nullopt;
        (void)transient_->brought_up_to_date();
        return transient_table_order(line_, session());
    }
    if (page() != result_page || !shown_run_ || result_is_former()) return std::nullopt;
    return steady_table_order(run_case_, *shown_run_, result_->table().table());
}

}  // namespace zel
