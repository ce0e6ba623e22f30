#include <gtest/gtest.h>

#include <QtGlobal>

#include "desktop/frame/application.h"

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleTest(&argc, argv);
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
    const zel::Application application(argc, argv);
    return RUN_ALL_TESTS();
}
