#include "desktop/frame/qt_launcher.h"

#include <QDesktopServices>
#include <QProcess>
#include <QUrl>

#include "desktop/frame/qt_text.h"

namespace zel {

bool QtLauncher::open_document(const std::string& path) {
    return QDesktopServices::openUrl(QUrl::fromLocalFile(qt(path)));
}

bool QtLauncher::start_program(const std::string& path) {
    return QProcess::startDetached(qt(path), {});
}

}  // namespace zel
