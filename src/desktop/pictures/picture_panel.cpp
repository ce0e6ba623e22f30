#include "desktop/pictures/picture_panel.h"

#include <QComboBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "adapters/qt_canvas/drawing_file.h"
#include "desktop/frame/events.h"
#include "desktop/frame/sheet_saving.h"
#include "desktop/pictures/picture_view.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text all_pictures = {"Alle Bilder", "All pictures"};
constexpr Text list_name = {"Welches Bild", "Which picture"};
constexpr Text save_caption = {"Speichern unter ...", "Save as ..."};
constexpr Text save_title = {"Bild speichern", "Save picture"};
constexpr Text file_name = {"Bild", "picture"};
constexpr Text filters = {
    "SVG-Dateien (*.svg) (*.svg)\nPNG-Dateien (*.png) (*.png)\nPDF-Dateien (*.pdf) (*.pdf)",
    "SVG files (*.svg) (*.svg)\nPNG files (*.png) (*.png)\nPDF files (*.pdf) (*.pdf)"};
constexpr Text wrong_ending = {"{0}: ein Bild wird als .svg, .png oder .pdf gespeichert",
                               "{0}: a picture is saved as .svg, .png or .pdf"};
constexpr Text not_saved = {"Das Bild kann nicht gespeichert werden:\n{0}",
                            "The picture can not be saved:\n{0}"};

std::string file_of(const Picture& picture, const std::string& path) {
    for (const DrawingEnding& row : drawing_endings)
        if (has_ending(path, row.ending))
            return drawing_file(row.kind, picture_sheet, picture.title,
                                [&](Canvas& canvas) { draw(canvas, picture); });
    throw InputError(Reason(wrong_ending, {path}));
}

}  // namespace

PicturePanel::PicturePanel(const PanelParts& parts)
    : parts_(parts),
      list_(parts.captions.accessible_name(new QComboBox, list_name)),
      note_(new NoteLine(NoteLine::Sign::Note, "picture_note")),
      area_(new QScrollArea) {
    list_->setObjectName("picture_list");
    area_->setWidgetResizable(true);
    area_->setFrameShape(QFrame::NoFrame);
    area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area_->setFocusPolicy(Qt::NoFocus);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_);
    layout->addWidget(note_);
    layout->addWidget(area_, 1);
    note_->tell({});
    on(list_, &QComboBox::currentIndexChanged, [this] { show_chosen(); });
}

void PicturePanel::show_entries(std::vector<PictureEntry> entries, const std::string& note) {
    bool same = entries.size() == entries_.size();
    for (std::size_t i = 0; same && i < entries.size(); ++i)
        same = entries[i].name == entries_[i].name;
    entries_ = std::move(entries);
    note_->tell(note);
    if (!same) fill_list();
    show_chosen();
}

/// All of them, then each by its name.
void PicturePanel::fill_list() {
    const QSignalBlocker quiet(list_);
    const int kept = list_->currentIndex();
    const QString chosen = list_->currentText();
    list_->clear();
    list_->addItem(qt(all_pictures, parts_.session.lang));
    for (const PictureEntry& entry : entries_) list_->addItem(qt(entry.name));
    const int again = list_->findText(chosen);
    // In another language the names are others, and the places the same.
    list_->setCurrentIndex(again >= 0 ? again : kept < list_->count() ? std::max(0, kept) : 0);
    list_->setEnabled(!entries_.empty());
}

void PicturePanel::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    guarded(*this, [this] {
        if (!drawn_) show_chosen();
    });
}

void PicturePanel::show_chosen() {
    drawn_ = isVisible();
    if (!drawn_) return;
    const int scrolled = area_->verticalScrollBar()->value();
    auto* content = new QWidget;
    content->setLayout(new QVBoxLayout);
    content->layout()->setContentsMargins(0, 0, 0, 0);
    area_->setWidget(content);  // the former one goes
    const int chosen = list_->currentIndex() - 1;
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (chosen < 0 ? !entries_[i].shown_with_others : i != static_cast<std::size_t>(chosen))
            continue;
        if (const auto picture = entries_[i].make()) add(*picture);
    }
    static_cast<QVBoxLayout*>(content->layout())->addStretch(1);
    content->layout()->activate();
    area_->verticalScrollBar()->setValue(scrolled);
}

void PicturePanel::add(const Picture& picture) {
    auto* view = new PictureView(picture);
    auto* button = new QPushButton(qt(save_caption, parts_.session.lang));
    button->setObjectName("save_picture");
    button->setAccessibleDescription(qt(picture.title));
    on(button, &QPushButton::clicked, [this, view] { save(view->picture()); });
    auto* layout = static_cast<QVBoxLayout*>(area_->widget()->layout());
    layout->addWidget(view);
    layout->addWidget(button, 0, Qt::AlignRight);
    layout->addSpacing(10);
}

void PicturePanel::save(const Picture& picture) const {
    save_as(parts_.session, parts_.chooser, parts_.files, {save_title, filters, "svg", not_saved},
            {}, std::string(file_name.in(parts_.session.lang)),
            [&](const std::string& path) -> std::optional<Box> {
                parts_.files.write(path, file_of(picture, path));
                return std::nullopt;
            });
}

}  // namespace zel
