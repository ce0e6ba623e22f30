#include "desktop/short_circuit/ks_form1.h"

#include <QTabWidget>
#include <utility>

#include "desktop/frame/events.h"
#include "desktop/pictures/picture_panel.h"
#include "desktop/pictures/side_dock.h"
#include "desktop/short_circuit/form_pages.h"
#include "desktop/short_circuit/result_view.h"
#include "forms/short_circuit_failures.h"
#include "pictures/utilisation_picture.h"
#include "shell/program_texts.h"
#include "short_circuit/short_circuit_fields.h"
#include "short_circuit/short_circuit_file.h"
#include "short_circuit/short_circuit_report.h"
#include "short_circuit/short_circuit_table.h"

namespace zel::short_circuit {
namespace {

constexpr Text page_captions[] = {{"&Eingabedaten", "&Input data"},
                                  {"&Leiterdaten", "&Conductor data"},
                                  {"E&rgebnis", "&Result"}};
constexpr Text form_title = {"Thermische Kurzschlußstromfestigkeit nach IEC 865-1",
                             short_circuit_title.en};

constexpr Text print_report_caption = {"Ausdruck: Thermische Kurzschlußfestigkeit",
                                       "Print: thermal short-circuit strength"};
constexpr std::string_view report_module = "MODUL_IEC865";
constexpr Text utilisation_name = {"Ausnutzung", "Utilisation"};
constexpr Text no_picture = {"Das Bild zeigt das Ergebnis, sobald es berechnet ist.",
                             "The picture shows the result as soon as it is calculated."};

constexpr FormLook look = {
    .row_gap = 8,
    .number_width = 90,
    .list_length = 12,
    .fills_room = false,
    .closed_turn_grey = true,
    .return_leaves_lists = true,
};

/// The case as a document. A new one is asked for whether there are changes or not.
class CaseRecord : public DocumentRecord {
public:
    CaseRecord(ShortCircuitForm& form, const Session& session) : form_(form), session_(session) {}

    [[nodiscard]] FlatObject values() const override { return values_of(form_.content()); }
    std::vector<RefusedText> take(const FlatObject& values) override {
        return take(read_short_circuit_case(values, session_));
    }
    void start_anew() override { form_ = {}; }
    [[nodiscard]] std::optional<Box> question_before_anew() const override {
        return new_case_question(session_.lang);
    }
    [[nodiscard]] std::vector<NamedValue> row(std::vector<CutText>& cut) const override {
        return KS82_Tabellendaten_speichern(form_.content(), cut);
    }
    std::vector<RefusedText> take(const StoredRow& row) override {
        return take(KS72_Daten_einlesen(row, session_));
    }
    [[nodiscard]] std::unique_ptr<forms::ShownRecord> shown(const StoredRow& row) const override {
        return forms::shown_short_circuit(row, session_);
    }
    [[nodiscard]] std::unique_ptr<forms::ShownRecord> shown() const override {
        return forms::shown_short_circuit(form_, session_);
    }

private:
    std::vector<RefusedText> take(ShortCircuitFile file) {
        form_ = std::move(file.form);
        return std::move(file.refused);
    }

    ShortCircuitForm& form_;
    const Session& session_;
};

}  // namespace

KsForm1::KsForm1(const AreaParts& parts, ShortCircuitForm& form, const Text& name,
                 const MakeConductorSource& make_conductors, Files& files)
    : AreaFrame({"KS_Form1", "mneu", "close_KS_Form1", name, short_circuit_title, form_title,
                 forms::short_circuit_databases()},
                parts, std::make_unique<CaseRecord>(form, parts.session), {}),
      form_(form),
      record_(form_, parts.session),
      conductors_(make_conductors(*this, [this] { take_over_conductor(); })),
      result_(new ResultView),
      pictures_(new PicturePanel({parts.session, parts.captions, parts.chooser, files},
                                 {parts.printing, [this] { return project(); }})) {
    const FormParts form_parts = {record_,
                                  session(),
                                  captions(),
                                  [this](QWidget* input) { refused(input); },
                                  [this] { case_changed(); },
                                  look,
                                  [this] { show_modified(); },
                                  &messages()};
    general_ = new GeneralPage(
        form_parts, [this] { databases().open_fixed(); }, [this] { databases().save_in_fixed(); });
    conductor_ = new ConductorPage(
        form_parts, [this] { start_database(); }, [this] { take_over_conductor(); });
    const Text* caption = page_captions;
    for (AreaPage* page : std::initializer_list<AreaPage*>{general_, conductor_, result_})
        add_page(page, *caption++);
    add_print_button(result_->print_button());
    finish(*result_, record_);
    captions().computed([this](LangId lang) {
        if (shown_) result_->show_page(shown_->page, lang);
        show_picture();
    });
    dock_ = new SideDock(*this, pictures_dock, pictures_, captions());
    dock_->open_by_itself(true);
    dock_->belong_here(false);
    on(dock_, &QDockWidget::visibilityChanged,
       [this] { result_->show_picture_here(dock_->isHidden() || dock_->isFloating()); });
    add_view_menu(*this, captions(), {dock_});
}

KsForm1::~KsForm1() = default;

/// A change of one input may open, close and empty others.
void KsForm1::case_changed() {
    general_->load();
    conductor_->load();
    strip().setTabEnabled(short_circuit::conductor_page, form_.conductor_page_is_open());
    show_modified();
    messages().inputs_changed();
}

void KsForm1::load() {
    AreaFrame::load();
    case_changed();
    if (shown_) run();
}

bool KsForm1::may_be_left() { return conductors_->may_be_left() && AreaFrame::may_be_left(); }

void KsForm1::start_database() {
    if (!conductors_->start_database()) session().tell(conductor_database_not_started());
}

void KsForm1::take_over_conductor() {
    (void)commit();
    const auto conductor = conductors_->chosen_conductor();
    if (!conductor) return;
    const auto refused = form_.take_over(*conductor, session());
    case_changed();
    for (const auto& [box, refusal] : refused) {
        Box told = refusal.box;
        told.lines.insert(told.lines.begin(),
                          without_outer_blanks(field_of(box).label.in(session().lang)));
        session().tell(told);
    }
    if (!refused.empty()) conductor_->input(field_of(refused.front().box))->setFocus();
}

/// What is shown belongs to what was typed before.
void KsForm1::leave_page() {
    result_->clear();
    shown_.reset();
    allow_output(false);
    show_picture();
}

void KsForm1::turn_to(int page) {
    show_page(page);
    if (page == short_circuit::result_page) run();
    dock_->belong_here(this->page() == short_circuit::result_page);
}

void KsForm1::forget_results() { dock_->belong_here(false); }

void KsForm1::run() {
    const ShortCircuitRun run = [&] {
        const WaitCursor waiting;
        return RunShortCircuit(form_.content(), session().separator);
    }();
    if (run.refusal) {
        session().tell(run.refusal->box);
        messages().run_refused(run.refusal->box);
        const FieldInfo& field = field_of(run.refusal->focus);
        go_to(field);
        refused(focusWidget());  // once the keys that led here have moved the focus
        return;
    }
    messages().run_done({}, {});
    shown_ = run;
    result_->show_page(run.page, session().lang);
    allow_output(true);
    show_picture();
}

/// The picture stands in the page, unless it stands beside it.
void KsForm1::show_picture() {
    const LangId lang = session().lang;
    result_->show_picture(shown_ ? utilisation_picture(form_.content(), shown_->result, session())
                                 : std::nullopt);
    if (!shown_) return pictures_->show_entries({}, std::string(no_picture.in(lang)));
    pictures_->show_entries(
        {{std::string(utilisation_name.in(lang)), [this](const Session& session) {
              return utilisation_picture(form_.content(), shown_->result, session);
          }}});
}

ReportProject KsForm1::project() const {
    const ShortCircuitCase& c = form_.content();
    return {c.Projekt_ks, c.Datum_ks, c.Bearbeiter_ks, c.Abteilung_ks};
}

std::string KsForm1::text_to_copy() {
    return shown_ ? result_text(shown_->page, session().lang) : std::string();
}

std::string KsForm1::print_caption() const {
    return std::string(print_report_caption.in(session().lang));
}

std::optional<PrintOrder> KsForm1::report_of_page() {
    if (!shown_) return std::nullopt;
    return PrintOrder{
        ReportKind::ShortCircuit, "KS10_tab_print_Kurzschluss_1",
        [c = form_.content(), result = shown_->result, this](const ReportPrint& print) {
            return KS10_tab_print_Kurzschluss_1(
                c, result, print, [this](const std::function<void()>& work) {
                    (void)trap(errors(), report_module, "KS10_tab_print_Kurzschluss_2", work,
                               forms::short_circuit_failure);
                });
        },
        report_module};
}

/// In German whatever the language of reports is: there is no other of the verdict.
void KsForm1::print_order(const PrintOrder& order) {
    printing().print(*this, order, PrintLang::German);
}

}  // namespace zel::short_circuit
