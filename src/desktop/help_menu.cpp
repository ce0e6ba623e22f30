#include "desktop/help_menu.h"

#include <QAction>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <filesystem>

#include "desktop/about_box.h"
#include "desktop/frame/events.h"
#include "shell/program_texts.h"

namespace zel {
namespace {

constexpr Text menu_caption = {"&Hilfe", "&Help"};

constexpr Text about_caption = {"&Info zum Programm ...", "&About the program ..."};

constexpr HelpDocument documents[] = {
    {"mKurzanleitung",
     {"&Kurzanleitung", "&Quick tutorial"},
     {"vor_kurzanleitung.pdf", "zel_quicktutorial.pdf"}},
    {"mKurzbeschreibung",
     {"Kurz&beschreibung", "&Short description"},
     {"vor_kurzbeschreibung.pdf", "zel_shortdescription.pdf"}},
    {"mBenutzerhandbuch",
     {"Benutzer&handbuch", "&User manual"},
     {"vor_benutzerhandbuch.pdf", "zel_usermanual.pdf"}},
    {"mKS_Benutzerhandbuch",
     {"Benutzerhandbuch K&urzschlußfestigkeit", "User manual short-&circuit strength (German)"},
     {"quv_benutzerhandbuch.pdf"}},
    {"mKS_Kurzbeschreibung",
     {"Kurzbeschreibung Ku&rzschlußfestigkeit",
      "Short description short-ci&rcuit strength (German)"},
     {"quv_kurzbeschreibung.pdf"}},
    {"mEingabedatenblatt", {"&Eingabedatenblatt", "&Input data sheet"}, {"vor_eingabedaten1.pdf"}},
    {"mLeiterdatenblatt",
     {"&Leiterdatenblatt", "Conductor &data sheet"},
     {"vor_leiterdaten1_2.pdf"}},
};

constexpr BoxText not_found = {Icon::Warning,
                               short_name,
                               {"Das Dokument <{0}> wurde in keinem dieser Ordner gefunden :\n{1}",
                                "The document <{0}> was not found in any of these folders :\n{1}"}};
constexpr BoxText not_opened = {
    Icon::Warning,
    short_name,
    {"Für das Dokument\n{0}\nist kein Programm zum Anzeigen eingerichtet.",
     "There is no program to show the document\n{0}"}};

}  // namespace

std::span<const HelpDocument> help_documents() { return documents; }

void HelpMenu::add_to(QMenuBar& bar, Captions& captions, std::string_view first_help) {
    QMenu* menu = captions.title(bar.addMenu(QString()), menu_caption);
    for (const HelpDocument& document : documents) {
        QAction* action = captions.text(menu->addAction(QString()), document.caption);
        action->setObjectName(document.menu_entry);
        if (document.menu_entry == first_help) action->setShortcut(QKeySequence::HelpContents);
        on(action, &QAction::triggered, [this, &document] { open(document); });
    }
    menu->addSeparator();
    QAction* about = captions.text(menu->addAction(QString()), about_caption);
    about->setObjectName("about");
    on(about, &QAction::triggered, [this, &bar] { show_about(bar.window(), session_.lang); });
}

void HelpMenu::open(const HelpDocument& document) {
    const LangId lang = session_.lang;
    const std::string name(document.file.in(lang));
    for (const std::string& folder : folders_) {
        const std::string path = (std::filesystem::path(folder) / name).string();
        if (!QFileInfo(qt(path)).isFile()) continue;
        if (!launcher_.open_document(path)) session_.tell(box_in(lang, not_opened, {path}));
        return;
    }
    session_.tell(box_in(lang, not_found, {name, joined(folders_, "\n")}));
}

}  // namespace zel
