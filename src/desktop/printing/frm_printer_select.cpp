#include "desktop/printing/frm_printer_select.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/frame/events.h"
#include "desktop/frame/widgets.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text title = {"Druckerauswahl", "Printer selection"};
constexpr Text list_caption = {"Installierte Drucker:", "Installed printers:"};
constexpr Text hint = {
    "Der ausgewaehlte Drucker wird in der vorhandenen INI-Datei im Abschnitt Printer gespeichert.",
    "The selected printer is stored in the section Printer of the existing INI file."};
constexpr Text keep_caption = {"Auswahl &speichern", "&Store the selection"};
constexpr Text ok_caption = {"OK", "OK"};
constexpr Text cancel_caption = {"Abbrechen", "Cancel"};
constexpr Text none_installed = {"Es ist kein Drucker installiert.",
                                 "There is no printer installed."};

constexpr BoxText nothing_selected = {
    Icon::None,
    title,
    {"Bitte zuerst einen Drucker auswaehlen.", "Please select a printer first."}};
constexpr BoxText not_installed = {
    Icon::Warning,
    title,
    {"Der ausgewaehlte Drucker ist nicht installiert.", "The selected printer is not installed."}};
/// {0} is the reason
constexpr BoxText not_activated = {Icon::Stop,
                                   title,
                                   {"Der Drucker konnte nicht aktiviert werden.\n{0}",
                                    "The printer could not be activated.\n{0}"}};
constexpr BoxText not_stored = {
    Icon::Stop,
    title,
    {"Fehler beim Schreiben der INI-Datei.\n{0}", "Error writing the INI file.\n{0}"}};

constexpr int list_width = 360;  // pixels at least

}  // namespace

FrmPrinterSelect::FrmPrinterSelect(QWidget* parent, const Session& session, LiveSettings& settings,
                                   Printers& printers)
    : QDialog(parent),
      session_(session),
      settings_(settings),
      printers_(printers),
      list_(new QComboBox),
      keep_(new QCheckBox(qt(keep_caption, session.lang))) {
    const LangId lang = session.lang;
    setObjectName("frm_printer_select");
    setWindowTitle(qt(title, lang));
    list_->setObjectName("cboPrinter");
    list_->setAccessibleName(qt(list_caption, lang));
    list_->setMinimumWidth(list_width);
    keep_->setObjectName("keep_printer");
    keep_->setChecked(true);
    const std::vector<std::string> installed = printers.installed();
    for (const std::string& name : installed) list_->addItem(qt(name));
    list_->setCurrentIndex(list_->findText(qt(printers.current())));
    list_->setPlaceholderText(installed.empty() ? qt(none_installed, lang) : QString());
    auto* hint_label = plain_label(qt(hint, lang));
    hint_label->setWordWrap(true);
    auto* buttons = new QDialogButtonBox;
    const auto add = [&](const char* name, const Text& caption, QDialogButtonBox::ButtonRole role) {
        QPushButton* button = buttons->addButton(qt(caption, lang), role);
        button->setObjectName(name);
        return button;
    };
    on(add("cmdOK", ok_caption, QDialogButtonBox::AcceptRole), &QPushButton::clicked,
       [this] { take(); });
    on(add("cmdCancel", cancel_caption, QDialogButtonBox::RejectRole), &QPushButton::clicked,
       [this] { reject(); });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(plain_label(qt(list_caption, lang)));
    layout->addWidget(list_);
    layout->addWidget(keep_);
    layout->addWidget(hint_label);
    layout->addWidget(buttons);
    list_->setFocus();
}

/// A printer that was there when the window opened may be gone by now.
void FrmPrinterSelect::take() {
    if (list_->currentIndex() < 0) return session_.tell(box_in(session_.lang, nothing_selected));
    const std::string name = list_->currentText().toStdString();
    const std::vector<std::string> installed = printers_.installed();
    if (std::find(installed.begin(), installed.end(), name) == installed.end())
        return session_.tell(box_in(session_.lang, not_installed));
    if (activate(name) && (!keep_->isChecked() || store(name))) accept();
}

bool FrmPrinterSelect::activate(const std::string& name) {
    try {
        const WaitCursor waiting;
        printers_.make_current(name);
        return true;
    } catch (const PlatformError& error) {
        session_.tell(box_in(session_.lang, not_activated, {error.told(session_.lang)}));
        return false;
    }
}

bool FrmPrinterSelect::store(const std::string& name) {
    try {
        settings_.store.write(*find_setting("DeviceName"), name);
        return true;
    } catch (const OutputError& error) {
        session_.tell(box_in(session_.lang, not_stored, {error.told(session_.lang)}));
        return false;
    }
}

}  // namespace zel
