#include "desktop/help_menu.h"

#include <QAction>
#include <QMenu>
#include <QMenuBar>
#include <QWidget>

#include "desktop/about_box.h"
#include "desktop/frame/events.h"

namespace zel {
namespace {

constexpr Text menu_caption = {"&Hilfe", "&Help"};

constexpr Text here_caption = {"Hilfe &zu diesem Fenster", "&Help on this window"};
constexpr Text about_caption = {"&Info zum Programm ...", "&About the program ..."};

constexpr HelpDocument documents[] = {
    {"mKurzanleitung",
     {"&Kurzanleitung", "&Quick tutorial"},
     {"vor_kurzanleitung.pdf", "zel_quicktutorial.pdf"},
     "first-steps"},
    {"mKurzbeschreibung",
     {"Kurz&beschreibung", "&Short description"},
     {"vor_kurzbeschreibung.pdf", "zel_shortdescription.pdf"},
     "about"},
    {"mBenutzerhandbuch",
     {"Benutzer&handbuch", "&User manual"},
     {"vor_benutzerhandbuch.pdf", "zel_usermanual.pdf"},
     "how-to"},
    {"mKS_Benutzerhandbuch",
     {"Benutzerhandbuch K&urzschlußfestigkeit", "User manual short-&circuit strength (German)"},
     {"quv_benutzerhandbuch.pdf"},
     "short-circuit"},
    {"mKS_Kurzbeschreibung",
     {"Kurzbeschreibung Ku&rzschlußfestigkeit",
      "Short description short-ci&rcuit strength (German)"},
     {"quv_kurzbeschreibung.pdf"},
     "short-circuit"},
    {"mEingabedatenblatt",
     {"&Eingabedatenblatt", "&Input data sheet"},
     {"vor_eingabedaten1.pdf"},
     "names"},
    {"mLeiterdatenblatt",
     {"&Leiterdatenblatt", "Conductor &data sheet"},
     {"vor_leiterdaten1_2.pdf"},
     "choose-conductor"},
};

}  // namespace

std::span<const HelpDocument> help_documents() { return documents; }

void add_help_menu(QMenuBar& bar, Captions& captions, const Help& help) {
    QMenu* menu = captions.title(bar.addMenu(QString()), menu_caption);
    const auto add = [&](const char* name, const Text& caption) {
        QAction* action = captions.text(menu->addAction(QString()), caption);
        action->setObjectName(name);
        return action;
    };
    QAction* here = add("help_here", here_caption);
    here->setShortcut(QKeySequence::HelpContents);
    on(here, &QAction::triggered, [&help, &bar] {
        const QWidget* focus = bar.window()->focusWidget();
        help.open(help_topic(focus != nullptr ? *focus : *bar.window()));
    });
    menu->addSeparator();
    for (const HelpDocument& document : documents)
        on(add(document.menu_entry, document.caption), &QAction::triggered,
           [&help, &document] { help.open(document); });
    menu->addSeparator();
    on(add("about", about_caption), &QAction::triggered,
       [&help, &bar] { show_about(bar.window(), help.session().lang); });
}

}  // namespace zel
