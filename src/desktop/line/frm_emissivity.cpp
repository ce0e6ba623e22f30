#include "desktop/line/frm_emissivity.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/frame/events.h"
#include "desktop/frame/inputs.h"
#include "desktop/frame/widgets.h"
#include "workflow/rules/derived.h"
#include "workflow/rules/entry_rules.h"

namespace zel {
namespace {

constexpr Text title = {"Emissionsverhältnis aus dem Seilalter",
                        "Emissivity from the conductor's age"};
constexpr Text age_label = {"Seilalter :", "Conductor age :"};
constexpr Text years = {"Jahre", "years"};
constexpr Text compute_caption = {"E-Verhältnis &berechnen", "&Calculate emissivity"};
constexpr Text take_over_caption = {"E-Verhältnis über&nehmen", "&Take over emissivity"};
constexpr Text cancel_caption = {"&Abbrechen", "Ca&ncel"};
constexpr Text result_label = {"Emissionsverhältnis :", "Emissivity :"};
constexpr Text formula = {" E-Verhältnis =0.3 + (0.6 * Seilalter) / (1 + Seilalter)    ",
                          " Emissivity =0.3 + (0.6 * age) / (1 + age)    "};
constexpr Text note = {
    "Das nach obiger Formel aus dem Seilalter errechnete Emissionsverhältnis ist für beschichtete Seile nicht gültig. Es muß hier direkt ein Emissionsverhältnis (evtl. aus Datenblatt des Herstellers) angegeben werden. ",
    "The emissivity calculated from the conductor's age by the formula above is not valid for coated conductors. For these an emissivity must be given directly (e.g. from the manufacturer's data sheet)."};
constexpr BoxText negative_age = {
    Icon::Warning,
    {"Fehlerhafte Eingabe", "Incorrect input data"},
    {"Das Seilalter muß 0 oder größer sein.", "The conductor's age must be 0 or more."}};

}  // namespace

FrmEmissivity::FrmEmissivity(QWidget* parent, const Session& session)
    : QDialog(parent),
      session_(session),
      age_(new QLineEdit),
      result_(new QLabel),
      take_over_(new QPushButton(qt(take_over_caption, session.lang))) {
    const LangId lang = session.lang;
    setObjectName("frm_emissivity");
    setWindowTitle(qt(title, lang));
    age_->setObjectName("Seilalter");
    age_->setAlignment(Qt::AlignRight);
    understand_pasted_numbers(*age_, session);
    result_->setObjectName("E_Verhaeltnis");
    result_->setAlignment(Qt::AlignRight);
    auto* compute = new QPushButton(qt(compute_caption, lang));
    compute->setObjectName("E_Verhaeltnis_berechnen");
    compute->setDefault(true);
    take_over_->setObjectName("E_Verhaeltnis_uebernehmen");
    take_over_->setEnabled(false);

    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(8);
    auto* label = new QLabel(qt(age_label, lang));
    label->setBuddy(age_);
    age_->setAccessibleDescription(qt(years, lang));
    grid->addWidget(label, 0, 0);
    grid->addWidget(age_, 0, 1);
    grid->addWidget(new QLabel(qt(years, lang)), 0, 2);
    grid->addWidget(compute, 0, 3);
    grid->addWidget(new QLabel(qt(result_label, lang)), 1, 0);
    grid->addWidget(result_, 1, 1);
    grid->addWidget(take_over_, 1, 3);
    auto* note_label = new QLabel(qt(note, lang));
    note_label->setWordWrap(true);
    auto* buttons = new QDialogButtonBox;
    buttons->addButton(qt(cancel_caption, lang), QDialogButtonBox::RejectRole);
    auto* layout = new QVBoxLayout(this);
    layout->setSpacing(12);
    layout->addLayout(grid);
    layout->addWidget(new QLabel(qt(formula, lang)));
    layout->addWidget(note_label);
    layout->addWidget(buttons);
    on(compute, &QPushButton::clicked, [this] { this->compute(); });
    on(age_, &QLineEdit::textEdited, [this] {
        result_->clear();
        take_over_->setEnabled(false);
    });
    on(take_over_, &QPushButton::clicked, [this] { accept(); });
    on(buttons, &QDialogButtonBox::rejected, [this] { reject(); });
    size_window(*this, {520, 0});
}

void FrmEmissivity::compute() {
    Entry age;
    const auto refusal = enter(age, nullptr, age_->text().toStdString(), session_);
    if (refusal) {
        session_.tell(*refusal);
        age_->clear();
    }
    age_->setFocus();
    if (!age.given()) return;
    const auto emissivity = emissivity_from_age(age.value);
    if (!emissivity) {
        session_.tell(box_in(session_.lang, negative_age));
        return;
    }
    // The field takes what is shown, as if it had been typed.
    enter(emissivity_, &CalcCase::Emissionsverhaeltnis_db,
          masked(*emissivity, "#0.0####", session_.separator), session_);
    result_->setText(qt(emissivity_.text));
    take_over_->setEnabled(true);
    take_over_->setFocus();
}

}  // namespace zel
