#include "apps/browser/window/program.h"

#include "apps/browser/library/background.h"
#include "apps/browser/library/opened_library.h"
#include "apps/browser/window/command_line.h"
#include "apps/browser/window/main_window.h"
#include "apps/browser/window/roomy_style.h"
#include "apps/browser/window/translations.h"
#include "apps/browser/window/window_keeper.h"
#include "devicehost/usb_devices.h"

#include <QApplication>
#include <QIcon>
#include <QStyle>

#include <chrono>
#include <cstdio>
#include <cstdlib>

// Resources of an archive are linked only when somebody asks for them; the macro wants no namespace round it.
static void initResources()
{
    Q_INIT_RESOURCE(desktop);
    Q_INIT_RESOURCE(i18n);
}

namespace browser
{

namespace
{

enum ExitCode { ExitOk = 0, ExitUsage = 2 };

constexpr std::chrono::seconds patienceAtTheEnd{3}; ///< at the end, with calls that hang on a device

void setNames()
{
    QCoreApplication::setOrganizationName(QStringLiteral("photolib"));
    QCoreApplication::setApplicationName(QStringLiteral("photolib-browser"));
    QCoreApplication::setApplicationVersion(QStringLiteral(PHOTOLIB_VERSION));
}

void print(FILE *stream, const QString &text)
{
    std::fputs(text.toLocal8Bit().constData(), stream);
}

int failUsage(const QString &message)
{
    print(stderr, QStringLiteral("photolib-browser: %1\n").arg(message));
    return ExitUsage;
}

// What still runs hangs on a device: the end of the program would take libraries down under it. The local copies that
// it leaves are removed by the next program that makes one.
int finish(int status)
{
    const bool isDone = waitForBackground(patienceAtTheEnd);
    if (isDone)
        waitForRetired();
    if (!isDone || devicehost::usbCallWasLeftBehind())
        std::_Exit(status);
    return status;
}

int showWindows(const CommandLine &wanted, const QByteArray &password)
{
    int status = ExitOk;
    {
        WindowKeeper keeper;
        MainWindow *const window = keeper.open();
        if (!wanted.device.isEmpty()) {
            window->setPassword(password);
            window->closeWhenTaken();
            window->openDevice(wanted.device);
        }
        status = QApplication::exec();
    }
    return finish(status);
}

} // namespace

void setUpApplication(QApplication &application)
{
    initResources();
    setNames();
    QGuiApplication::setDesktopFileName(QStringLiteral("photolib-browser"));
    const QIcon own(QStringLiteral(":/desktop/photolib-browser.png"));
    QApplication::setWindowIcon(QIcon::fromTheme(QStringLiteral("photolib-browser"), own));
    installTranslations(application);
    QApplication::setStyle(new RoomyStyle(QApplication::style()->objectName()));
}

bool printedHelp(int argc, char **argv)
{
    bool asked = false;
    for (int number = 1; number < argc; ++number)
        for (const char *const name : {"-h", "--help", "--version"})
            asked = asked || qstrcmp(argv[number], name) == 0;
    if (!asked)
        return false;
    initResources();
    setNames();
    QCoreApplication application(argc, argv);
    installTranslations(application);
    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (line.wish == CommandLine::Wish::Help)
        print(stdout, line.message);
    else if (line.wish == CommandLine::Wish::Version)
        print(stdout, QStringLiteral("photolib-browser %1\n").arg(QCoreApplication::applicationVersion()));
    return line.wish == CommandLine::Wish::Help || line.wish == CommandLine::Wish::Version;
}

int runProgram(QApplication &)
{
    const CommandLine line = parseCommandLine(QCoreApplication::arguments());
    if (line.wish == CommandLine::Wish::Wrong)
        return failUsage(line.message);
    QByteArray password;
    QString error;
    if (!line.passwordFile.isEmpty() && !readPasswordFile(line.passwordFile, &password, &error))
        return failUsage(error);
    return showWindows(line, password);
}

} // namespace browser
