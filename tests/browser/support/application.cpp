// The main() of tests that need an application object: windows are drawn into memory unless QT_QPA_PLATFORM says
// otherwise, settings go into a folder of this run.

#include "devicehost/device_host.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, QFile::encodeName(home.path()));
    devicehost::watchDatabaseErrors();
    testing::InitGoogleMock(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("photolib-browser-test"));
    return RUN_ALL_TESTS();
}
