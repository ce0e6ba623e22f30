#include "desktop/frame/language_menu.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QMenu>
#include <QMenuBar>
#include <QTranslator>
#include <memory>

#include "desktop/frame/events.h"

namespace zel {
namespace {

constexpr const char* german_texts = "qtbase_de";

// Both names stand in both languages: who meets the wrong one has to find the menu.
constexpr Text menu_caption = {"&Sprache / Language", "Lan&guage / Sprache"};

constexpr struct {
    const char* name;
    Text caption;
    LangId lang;
} languages[] = {
    {"m_userinterface_german", {"&Deutsch", "&German"}, LangId::German},
    {"m_userinterface_english", {"&Englisch", "&English"}, LangId::English},
};

}  // namespace

QMenu* add_language_menu(QMenuBar& bar, Captions& captions,
                         const std::function<void(LangId)>& switch_to) {
    QMenu* menu = captions.title(bar.addMenu(QString()), menu_caption);
    for (const auto& [name, caption, lang] : languages) {
        QAction* action = captions.text(menu->addAction(QString()), caption);
        action->setObjectName(name);
        action->setCheckable(true);
        on(action, &QAction::triggered, [switch_to, chosen = lang] { switch_to(chosen); });
        captions.computed(
            [action, own = lang](LangId present) { action->setChecked(own == present); });
    }
    return menu;
}

void set_qt_language(LangId lang) {
    QCoreApplication* application = QCoreApplication::instance();
    auto* present = application->findChild<QTranslator*>(german_texts);
    if ((present != nullptr) == (lang == LangId::German)) return;
    if (present != nullptr) {
        delete present;  // which takes it from the application
        return;
    }
    auto german = std::make_unique<QTranslator>();
    if (!german->load(german_texts, QLibraryInfo::path(QLibraryInfo::TranslationsPath))) return;
    german->setObjectName(german_texts);
    german->setParent(application);
    QCoreApplication::installTranslator(german.release());
}

}  // namespace zel
