#include "desktop/frame/qt_language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

namespace zel {
namespace {

constexpr const char* german_texts = "qtbase_de";

}  // namespace

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
