#include "desktop/frame/language_menu.h"

#include <QMenu>
#include <QMenuBar>

#include "desktop/frame/qt_text.h"

namespace zel {
namespace {

// Both names stand in both languages: who meets the wrong one has to find the menu.
constexpr Text menu_caption = {"&Sprache / Language", "&Language / Sprache"};
constexpr Text german_caption = {"&Deutsch", "&German"};
constexpr Text english_caption = {"&Englisch", "&English"};

QAction* add_language(QMenu& menu, const char* name) {
    QAction* action = menu.addAction(QString());
    action->setObjectName(name);
    action->setCheckable(true);
    return action;
}

}  // namespace

LanguageMenu::LanguageMenu(QMenuBar& bar, const std::function<void(LangId)>& switch_to)
    : menu_(bar.addMenu(QString())),
      german_(add_language(*menu_, "m_userinterface_german")),
      english_(add_language(*menu_, "m_userinterface_english")) {
    QObject::connect(german_, &QAction::triggered, [switch_to] { switch_to(LangId::German); });
    QObject::connect(english_, &QAction::triggered, [switch_to] { switch_to(LangId::English); });
}

void LanguageMenu::recaption(LangId lang) {
    menu_->setTitle(qt(menu_caption, lang));
    german_->setText(qt(german_caption, lang));
    english_->setText(qt(english_caption, lang));
    german_->setChecked(lang == LangId::German);
    english_->setChecked(lang == LangId::English);
}

}  // namespace zel
