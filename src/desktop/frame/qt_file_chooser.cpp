#include "desktop/frame/qt_file_chooser.h"

#include <QApplication>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QTreeView>

#include "desktop/frame/widgets.h"

namespace zel {
namespace {

constexpr Text open_title = {"Fall öffnen", "Open case"};
constexpr Text save_title = {"Fall speichern unter", "Save case as"};
constexpr Text filters = {"Falldateien (*.json)\nAlle Dateien (*)",
                          "Case files (*.json)\nAll files (*)"};

struct Caption {
    QFileDialog::DialogLabel label;
    Text text;
};
constexpr Caption captions[] = {
    {QFileDialog::LookIn, {"Ordner :", "Folder :"}},
    {QFileDialog::FileName, {"Dateiname :", "File name :"}},
    {QFileDialog::FileType, {"Dateityp :", "File type :"}},
    {QFileDialog::Reject, {"Abbrechen", "Cancel"}},
};
constexpr Text open_caption = {"Öffnen", "Open"};
constexpr Text select_caption = {"Auswählen", "Select"};
constexpr Text save_caption = {"Speichern", "Save"};

constexpr QSize window_size(860, 500);

/// Names and dates can be read whole.
void widen(QFileDialog& window) {
    window.resize(window_size);
    if (auto* files = window.findChild<QTreeView*>("treeView"))
        files->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
}

}  // namespace

void QtFileChooser::recaption(QFileDialog& window) const {
    const LangId lang = lang_ != nullptr ? *lang_ : LangId::English;
    const bool saves = window.acceptMode() == QFileDialog::AcceptSave;
    for (const auto& [label, text] : captions) window.setLabelText(label, qt(text, lang));
    window.setLabelText(QFileDialog::Accept, qt(saves ? save_caption : open_caption, lang));
}

std::optional<std::string> QtFileChooser::ask(QFileDialog& window, const std::string& present) {
    const LangId lang = lang_ != nullptr ? *lang_ : LangId::English;
    const bool saves = window.acceptMode() == QFileDialog::AcceptSave;
    window.setWindowTitle(qt(saves ? save_title : open_title, lang));
    window.setNameFilters(qt(filters, lang).split('\n'));
    recaption(window);
    widen(window);
    if (!present.empty()) {
        const QFileInfo file(qt(present));
        window.setDirectory(file.absolutePath());
        window.selectFile(file.fileName());
    }
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty()) return std::nullopt;
    return window.selectedFiles().constFirst().toStdString();
}

std::optional<std::string> QtFileChooser::file_to_open(const std::string& present) {
    QFileDialog window(QApplication::activeWindow());
    window.setFileMode(QFileDialog::ExistingFile);
    return ask(window, present);
}

std::optional<std::string> QtFileChooser::file_to_save(const std::string& present) {
    QFileDialog window(QApplication::activeWindow());
    window.setAcceptMode(QFileDialog::AcceptSave);
    window.setDefaultSuffix("json");
    window.setOption(QFileDialog::DontConfirmOverwrite);  // the document asks, in its language
    return ask(window, present);
}

std::optional<std::string> QtFileChooser::path_to_select(const PathQuestion& question) {
    QFileDialog window(QApplication::activeWindow());
    window.setWindowTitle(qt(question.title));
    if (question.existing)
        window.setFileMode(QFileDialog::ExistingFile);
    else
        window.setAcceptMode(QFileDialog::AcceptSave);
    window.setOption(QFileDialog::DontConfirmOverwrite);  // the file is named, not written
    window.setOption(QFileDialog::HideNameFilterDetails);
    window.setNameFilters(qt(question.filters).split('\n'));
    window.setDefaultSuffix(qt(question.suffix));
    if (!question.folder.empty()) window.setDirectory(qt(question.folder));
    if (!question.name.empty()) window.selectFile(qt(question.name));
    recaption(window);
    widen(window);
    const LangId lang = lang_ != nullptr ? *lang_ : LangId::English;
    window.setLabelText(QFileDialog::Accept, qt(select_caption, lang));
    if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty()) return std::nullopt;
    return window.selectedFiles().constFirst().toStdString();
}

}  // namespace zel
