// Draws the main states of the browser on a made-up phone, for the documentation and for people who change its looks.
// Usage: make_browser_pictures FOLDER [--dark]     (QT_SCALE_FACTOR as for any program, LANGUAGE such as de)

#include "apps/browser/device/device_list_model.h"
#include "apps/browser/device/start_page.h"
#include "apps/browser/exporting/export_window.h"
#include "apps/browser/library/background.h"
#include "apps/browser/library/opening_failure.h"
#include "apps/browser/page/library_page.h"
#include "apps/browser/viewer/viewer.h"
#include "apps/browser/window/main_window.h"
#include "apps/browser/window/notice_bar.h"
#include "apps/browser/window/opening_page.h"
#include "apps/browser/window/program.h"
#include "apps/browser/window/roomy_style.h"
#include "apps/browser/window/window_keeper.h"
#include "devicehost/device_host.h"
#include "tests/browser/support/opened_folder.h"
#include "tests/browser/support/opening.h"
#include "tests/cli/sample/sample_folder.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QListView>
#include <QPushButton>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

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
        const QVector<qint64> ids = originalsIn(sample, *page);
        if (ids.size() < 5)
            return false;
        selection(window, page, ids[2]);
        Q_EMIT page->photosActivated(ids, 2);
        QTest::qWait(1500); // for the picture
        save(window, "viewer");
        QTest::keyClick(window->findChild<Viewer *>(), Qt::Key_Escape);
        const bool done = exporting(window, page);
        devicePulled(window, page, sample.root());
        window->close();
        return done;
    }

    // Photos whose original is there: many of a made-up phone are in the cloud only.
    static QVector<qint64> originalsIn(const SampleFolder &sample, const LibraryPage &page)
    {
        const std::shared_ptr<OpenedLibrary> opened = openFolder(sample.root());
        QVector<qint64> found;
        for (const qint64 id : page.shownPhotos())
            if (const QString path = opened->devicePath(id);
                path.endsWith(QStringLiteral(".JPG")) && QFile::exists(sample.path(path)))
                found += id;
        return found;
    }

    void selection(MainWindow *window, LibraryPage *page, qint64 first) const
    {
        page->setCurrentPhoto(first);
        auto *const grid = page->findChild<QWidget *>(QStringLiteral("photoGrid"));
        for (int further = 0; further < 2; ++further)
            QTest::keyClick(grid, Qt::Key_Right, Qt::ShiftModifier);
        page->findChild<QToolButton *>(QStringLiteral("factsButton"))->setChecked(true);
        QTest::qWait(1000); // for thumbnails of another size
        save(window, "selection");
    }

    bool exporting(MainWindow *window, LibraryPage *page) const
    {
        Q_EMIT page->exportRequested(page->shownPhotos());
        auto *const dialog = window->findChild<ExportWindow *>();
        const auto button = [dialog](const char *name) {
            return dialog->findChild<QPushButton *>(QLatin1String(name));
        };
        const QTemporaryDir target;
        dialog->findChild<QComboBox *>(QStringLiteral("destinationBox"))
            ->setEditText(target.filePath(QStringLiteral("Photos")));
        if (!comesTrueSoon([&] { return button("nextButton")->isEnabled(); }))
            return false;
        save(dialog, "export-choices");
        button("nextButton")->click();
        if (!comesTrueSoon([&] { return button("backButton")->isVisible(); }))
            return false;
        save(dialog, "export-summary");
        button("nextButton")->click();
        QTest::qWait(200);
        save(dialog, "export-progress");
        if (!comesTrueSoon([&] { return button("folderButton")->isVisible(); }))
            return false;
        save(dialog, "export-result");
        dialog->close();
        return true;
    }

    void devicePulled(MainWindow *window, LibraryPage *page, const QString &root) const
    {
        QDir().rename(root, root + QStringLiteral(".away"));
        Q_EMIT page->readsFailing();
        auto *const bar = window->findChild<NoticeBar *>();
        comesTrueSoon([bar] { return bar->isVisible(); });
        save(window, "notice");
        QDir().rename(root + QStringLiteral(".away"), root);
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
    QApplication::setStyle(new RoomyStyle(QStringLiteral("Fusion")));
    if (arguments.contains(QStringLiteral("--dark")))
        QApplication::setPalette(darkPalette());
    const bool done = Photographer(arguments[1]).run();
    waitForBackground(std::chrono::seconds(30));
    waitForRetired();
    return done ? 0 : 1;
}
