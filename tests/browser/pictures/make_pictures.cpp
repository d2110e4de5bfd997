// Draws the main states of the browser on a made-up phone, for the documentation and for people who change its looks.
// Usage: make_browser_pictures FOLDER [--dark]     (QT_SCALE_FACTOR as for any program, LANGUAGE such as de)

#include "apps/browser/device/device_list_model.h"
#include "apps/browser/device/start_page.h"
#include "apps/browser/library/background.h"
#include "apps/browser/library/opening_failure.h"
#include "apps/browser/page/library_page.h"
#include "apps/browser/window/main_window.h"
#include "apps/browser/window/opening_page.h"
#include "apps/browser/window/program.h"
#include "apps/browser/window/window_keeper.h"
#include "devicehost/device_host.h"
#include "tests/browser/support/opening.h"
#include "tests/cli/sample/sample_folder.h"

#include <QApplication>
#include <QDir>
#include <QListView>
#include <QStandardPaths>
#include <QStyleFactory>
#include <QTemporaryDir>
#include <QTest>

#include <cstdio>

namespace
{

using namespace browser;

QPalette darkPalette()
{
    QPalette palette(QColor(0x31, 0x36, 0x3b), QColor(0x2a, 0x2e, 0x32));
    for (const QPalette::ColorRole role :
         {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText}) {
        palette.setColor(role, QColor(0xee, 0xee, 0xee));
        palette.setColor(QPalette::Disabled, role, QColor(0x8a, 0x8d, 0x90));
    }
    palette.setColor(QPalette::Base, QColor(0x1d, 0x20, 0x23));
    palette.setColor(QPalette::AlternateBase, QColor(0x25, 0x29, 0x2c));
    palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
    palette.setColor(QPalette::HighlightedText, QColor(0xff, 0xff, 0xff));
    palette.setColor(QPalette::Link, QColor(0x5c, 0xb8, 0xf0));
    return palette;
}

class Photographer
{
public:
    explicit Photographer(const QString &target) : folder(target) {}

    bool run()
    {
        MainWindow *const window = keeper.open();
        window->resize(1180, 760);
        start(window);
        opening(window);
        return library(window);
    }

private:
    void save(QWidget *widget, const char *name) const
    {
        QCoreApplication::processEvents();
        widget->grab().save(folder + QLatin1Char('/') + QLatin1String(name) + QStringLiteral(".png"));
    }

    // Never shown, so that it does not look for real devices.
    void start(const MainWindow *window) const
    {
        StartPage page;
        page.resize(window->size());
        auto *const list = page.findChild<QListView *>(QStringLiteral("deviceList"));
        auto *const model = qobject_cast<DeviceListModel *>(list->model());
        FoundPhones phones;
        phones.phones = {{FoundDevice::Kind::Phone, QStringLiteral("afc:1"), QStringLiteral("Anna's phone"),
                          QStringLiteral("iOS 17.5.1")}};
        model->setPhones(phones);
        model->setFolders({{FoundDevice::Kind::Backup, QStringLiteral("backup:/b"), QStringLiteral("Ben's phone"),
                            QLocale().toString(QDate(2024, 3, 1), QLocale::LongFormat)}});
        model->setRecent({{FoundDevice::Kind::Folder, QStringLiteral("folder:/media/anna/phone"),
                           QStringLiteral("phone"), QStringLiteral("/media/anna/phone")}});
        list->setCurrentIndex(model->firstDevice());
        save(&page, "start");
    }

    void opening(const MainWindow *window) const
    {
        OpeningPage page;
        page.resize(window->size());
        page.showProgress({OpeningProgress::Stage::Reading, 12'400'000, 80'100'000});
        save(&page, "opening");
        page.askForPassword(true);
        save(&page, "password");
        page.showFailure({FailureKind::Locked, {}, QStringLiteral("the device is locked; unlock it and try again")});
        save(&page, "failure");
    }

    bool library(MainWindow *window)
    {
        const SampleFolder sample;
        window->openDevice(sample.root());
        if (!comesTrueSoon([&] { return window->findChild<LibraryPage *>() != nullptr; }))
            return false;
        auto *const page = window->findChild<LibraryPage *>();
        QTest::qWait(3000); // for the thumbnails
        save(window, "library");
        const QVector<qint64> ids = page->shownPhotos();
        if (!ids.isEmpty()) {
            Q_EMIT page->photosActivated(ids, ids.size() / 2);
            QTest::qWait(1500);
            save(window, "viewer");
        }
        window->close();
        return true;
    }

    const QString folder;
    WindowKeeper keeper;
};

} // namespace

int main(int argc, char **argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QTemporaryDir home;
    for (const char *variable : {"HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "XDG_DATA_HOME"})
        qputenv(variable, QFile::encodeName(home.path()));
    devicehost::watchDatabaseErrors();
    QApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
    QLocale::setDefault(QLocale(qEnvironmentVariable("LANGUAGE", QStringLiteral("en"))));
    QApplication application(argc, argv);
    setUpApplication(application);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() < 2 || !QDir().mkpath(arguments[1])) {
        std::fputs("usage: make_browser_pictures FOLDER [--dark]\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    if (arguments.contains(QStringLiteral("--dark")))
        QApplication::setPalette(darkPalette());
    const bool done = Photographer(arguments[1]).run();
    waitForBackground(std::chrono::seconds(30));
    waitForRetired();
    return done ? 0 : 1;
}
