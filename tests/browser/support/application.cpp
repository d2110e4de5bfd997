// The main() of tests that need an application object: windows are drawn into memory unless QT_QPA_PLATFORM says
// otherwise, settings go into a folder of this run.

#include "apps/browser/library/background.h"
#include "apps/browser/library/opened_library.h"
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
    const int status = RUN_ALL_TESTS();
    const bool isDone = browser::waitForBackground(std::chrono::minutes(1)); // threads that hold made-up devices
    browser::waitForRetired();
    return isDone ? status : 1;
}
