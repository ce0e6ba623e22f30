#include "desktop/pictures/picture_panel.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QVBoxLayout>

#include "adapters/qt_canvas/drawing_file.h"
#include "desktop/frame/events.h"
#include "desktop/frame/sheet_saving.h"
#include "desktop/pictures/picture_view.h"
#include "pictures/picture_report.h"
#include "platform/errors.h"

namespace zel {
namespace {

constexpr Text all_pictures = {"Alle Bilder", "All pictures"};
constexpr Text list_name = {"Welches Bild", "Which picture"};
constexpr Text save_caption = {"Speichern unter ...", "Save as ..."};
constexpr Text print_caption = {"Drucken ...", "Print ..."};
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

PicturePanel::PicturePanel(const PanelParts& parts, PicturePrinting printing)
    : parts_(parts),
      printing_(std::move(printing)),
      list_(parts.captions.accessible_name(new QComboBox, list_name)),
      note_(new NoteLine(NoteLine::Sign::Note, "picture_note")),
      area_(new QScrollArea) {
    list_->setObjectName("picture_list");
    list_->installEventFilter(this);
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

void PicturePanel::put_below(QWidget& choices) {
    below_ = &choices;
    layout()->addWidget(below_);
    below_->hide();
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
    print_with_.clear();
    auto* content = new QWidget;
    content->setLayout(new QVBoxLayout);
    content->layout()->setContentsMargins(0, 0, 0, 0);
    area_->setWidget(content);  // the former one goes
    const int chosen = list_->currentIndex() - 1;
    if (below_ != nullptr)
        below_->setVisible(chosen >= 0 && entries_[static_cast<std::size_t>(chosen)].has_choices);
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        if (chosen < 0 ? !entries_[i].shown_with_others : i != static_cast<std::size_t>(chosen))
            continue;
        if (const auto picture = entries_[i].make(parts_.session)) add(*picture, entries_[i]);
    }
    static_cast<QVBoxLayout*>(content->layout())->addStretch(1);
    content->layout()->activate();
    area_->verticalScrollBar()->setValue(scrolled);
}

void PicturePanel::add(const Picture& picture, const PictureEntry& entry) {
    auto* view = new PictureView(picture);
    auto* buttons = new QHBoxLayout;
    buttons->addStretch(1);
    const auto print_it = [this, entry] { print(entry); };
    print_with_.push_back(add_button(*buttons, "print_picture", print_caption, picture, print_it));
    add_button(*buttons, "save_picture", save_caption, picture,
               [this, view] { save(view->picture()); });
    auto* layout = static_cast<QVBoxLayout*>(area_->widget()->layout());
    layout->addWidget(view);
    layout->addLayout(buttons);
    layout->addSpacing(10);
}

QPushButton* PicturePanel::add_button(QLayout& line, const char* name, const Text& caption,
                                      const Picture& picture, std::function<void()> act) {
    auto* button = new QPushButton(qt(caption, parts_.session.lang));
    button->setObjectName(name);
    button->setAccessibleDescription(qt(picture.title));
    button->setAutoDefault(true);
    button->installEventFilter(this);
    on(button, &QPushButton::clicked, std::move(act));
    line.addWidget(button);
    return button;
}

/// The window of the panel has the key for its report.
bool PicturePanel::eventFilter(QObject* of, QEvent* event) {
    if (auto* button = qobject_cast<QPushButton*>(of); event->type() == QEvent::FocusIn && button)
        area_->ensureWidgetVisible(button);
    const bool asked = event->type() == QEvent::ShortcutOverride;
    if (!asked && event->type() != QEvent::KeyPress) return QWidget::eventFilter(of, event);
    if (!static_cast<QKeyEvent*>(event)->matches(QKeySequence::Print)) return false;
    event->accept();
    if (!asked) guarded(*this, [this] { print_in_sight(); });
    return true;
}

void PicturePanel::print_in_sight() {
    const QWidget* focus = focusWidget();
    QPushButton* chosen = nullptr;
    for (QPushButton* button : print_with_) {
        const bool has_focus =
            focus != nullptr && focus->accessibleDescription() == button->accessibleDescription();
        if (has_focus || (chosen == nullptr && !button->visibleRegion().isEmpty())) chosen = button;
    }
    if (chosen != nullptr) chosen->click();
}

/// In the language of reports, which may not be that of the window.
void PicturePanel::print(const PictureEntry& entry) {
    printing_.source.print(
        *window(), {ReportKind::Picture, "print_picture",
                    [this, make = entry.make](const ReportPrint& print) -> std::optional<Report> {
                        Session session = silent(parts_.session);
                        session.lang = language_of(print.lang);
                        session.separator = print.separator;
                        auto picture = make(session);
                        if (!picture) return std::nullopt;
                        return picture_report(*std::move(picture), printing_.project(), print);
                    }});
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
