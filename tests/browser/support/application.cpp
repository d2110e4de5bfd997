// The main() of tests that need an application object: windows are drawn into memory unless QT_QPA_PLATFORM says
// otherwise, settings go into a folder of this run.

#include "devicehost/device_host.h"

#include <QApplication>
#include <QStandardPaths>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <memory>

#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

namespace
{

// Qt's platform without a screen never frees the screen that it makes up.
class ApplicationsOwnMemory
{
public:
#ifdef __SANITIZE_ADDRESS__
    ApplicationsOwnMemory()
    {
        __lsan_disable();
    }
    ~ApplicationsOwnMemory()
    {
        __lsan_enable();
    }
#endif
};

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME", "XDG_DATA_HOME", "XDG_RUNTIME_DIR"})
        qputenv(variable, QFile::encodeName(home.path()));
    devicehost::watchDatabaseErrors();
    testing::InitGoogleMock(&argc, argv);
    const auto application = [&] {
        [[maybe_unused]] const ApplicationsOwnMemory unchecked;
        return std::make_unique<QApplication>(argc, argv);
    }();
    QApplication::setApplicationName(QStringLiteral("photolib-browser-test"));
    return RUN_ALL_TESTS();
}
