// What a window keeps: its library while another one is opened, the place of a person while a phone is read again, and
// what was arranged for the next time.

#include "tests/browser/window/window_fixture.h"

#include "apps/browser/exporting/export_window.h"
#include "apps/browser/library/background.h"
#include "apps/browser/page/library_page.h"
#include "apps/browser/page/side_bar.h"
#include "apps/browser/viewer/viewer.h"
#include "testing/backup_builder.h"
#include "tests/cli/sample/sample_folder.h"

#include <QAction>
#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QListView>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QScrollBar>
#include <QTest>

namespace
{

using browser::LibraryPage;
using browser::MainWindow;
using browser::SideBar;
using browser::Viewer;

class Keeping : public WindowTest
{
protected:
    static void trigger(MainWindow *window, const char *action)
    {
        window->findChild<QAction *>(QLatin1String(action))->trigger();
    }

    static LibraryPage *pageOf(MainWindow *window) { return window->findChild<LibraryPage *>(); }

    // The page of the phone once it is read again.
    static LibraryPage *readAgain(MainWindow *window)
    {
        const QPointer<LibraryPage> before = pageOf(window);
        trigger(window, "readAgainAction");
        EXPECT_TRUE(comesTrueSoon([&] { return before.isNull(); }));
        return pageOf(window);
    }

    // Another collection than all photos, and two photos in it that are selected.
    static void goSomewhere(LibraryPage *page)
    {
        auto *const sideBar = page->findChild<SideBar *>();
        const int everything = page->shownPhotos().size();
        for (int collection = 1; page->shownPhotos().size() < 5 || page->shownPhotos().size() == everything;
             ++collection)
            sideBar->choose(collection);
        page->setCurrentPhoto(page->shownPhotos().at(3));
        QTest::keyClick(page->findChild<QListView *>(QStringLiteral("photoGrid")), Qt::Key_Left, Qt::ShiftModifier);
    }
};

TEST_F(Keeping, TheLibraryStaysWhenAnotherDeviceCannotBeOpened)
{
    MainWindow *const window = openSample();
    const QPointer<LibraryPage> page = pageOf(window);
    ASSERT_TRUE(comesTrueSoon([&] { return !textOf(window, "statusText").isEmpty(); }));
    const QString status = textOf(window, "statusText");
    window->openDevice(place.filePath(QStringLiteral("nowhere")));
    ASSERT_NE(waitForShown<QWidget>(window, "failureTitle"), nullptr);
    EXPECT_FALSE(window->findChild<QAction *>(QStringLiteral("exportAction"))->isEnabled());
    ASSERT_TRUE(press(window, "failureBack"));
    EXPECT_NE(shown<QWidget>(window, "libraryRoom"), nullptr);
    EXPECT_EQ(pageOf(window), page.data());
    EXPECT_EQ(window->windowTitle(), QStringLiteral("device"));
    EXPECT_EQ(textOf(window, "statusText"), status);

    window->openDevice(copyOfSample(QStringLiteral("other")));
    EXPECT_TRUE(comesTrueSoon([&] { return page.isNull(); }));
    EXPECT_EQ(window->windowTitle(), QStringLiteral("other"));
    MainWindow *const second = openWindow();
    second->openDevice(sample->root());
    EXPECT_NE(waitForShown<QWidget>(second, "libraryRoom"), nullptr) << "the window that had it has another one now";
}

TEST_F(Keeping, TheLibraryStaysWhenAFileIsDropped)
{
    MainWindow *const window = openSample();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(sample->path(QStringLiteral("PhotoData/Photos.sqlite")))});
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &drop);
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    QCoreApplication::processEvents();
    EXPECT_NE(shown<QWidget>(window, "libraryRoom"), nullptr);
}

TEST_F(Keeping, ThePlaceWhenThePhoneIsReadAgain)
{
    MainWindow *const window = openSample();
    LibraryPage *page = pageOf(window);
    goSomewhere(page);
    const browser::PagePlace before = page->place();
    ASSERT_EQ(before.selected.size(), 2);
    page->findChild<QLineEdit *>(QStringLiteral("searchField"))->setText(QStringLiteral("IMG"));
    const QVector<qint64> photos = page->shownPhotos();

    page = readAgain(window);
    ASSERT_NE(page, nullptr);
    ASSERT_TRUE(comesTrueSoon([page] { return !page->isSearching(); }));
    const browser::PagePlace after = page->place();
    EXPECT_EQ(after.collection, before.collection);
    EXPECT_EQ(after.text, QStringLiteral("IMG"));
    EXPECT_EQ(after.selected, before.selected);
    EXPECT_EQ(after.current, before.current);
    EXPECT_EQ(page->shownPhotos(), photos);
    EXPECT_NE(shown<QWidget>(window, "libraryPage"), nullptr);
}

TEST_F(Keeping, WhatIsOnTheScreenWhenThePhoneIsReadAgain)
{
    MainWindow *const window = openSample();
    window->resize(800, 500);
    QCoreApplication::processEvents();
    auto *const grid = pageOf(window)->findChild<QListView *>(QStringLiteral("photoGrid"));
    grid->verticalScrollBar()->setValue(grid->verticalScrollBar()->maximum() / 2 + 7);
    const browser::PagePlace before = pageOf(window)->place();
    ASSERT_NE(before.first, pageOf(window)->shownPhotos().value(0));
    LibraryPage *const page = readAgain(window);
    EXPECT_TRUE(comesTrueSoon([&] { return page->place().first == before.first; }));
    EXPECT_EQ(page->place().above, before.above);
}

TEST_F(Keeping, ThePhotoInTheViewerWhenThePhoneIsReadAgain)
{
    MainWindow *const window = openSample();
    const QVector<qint64> ids = pageOf(window)->shownPhotos().mid(0, 5);
    Q_EMIT pageOf(window)->photosActivated(ids, 3);
    ASSERT_NE(shown<QWidget>(window, "viewer"), nullptr);
    readAgain(window);
    auto *const viewer = shown<Viewer>(window, "viewer");
    ASSERT_NE(viewer, nullptr);
    qint64 last = 0;
    QObject::connect(viewer, &Viewer::closed, viewer, [&last](qint64 id) { last = id; });
    QTest::keyClick(viewer, Qt::Key_Escape);
    EXPECT_EQ(last, ids[3]);
    EXPECT_NE(shown<QWidget>(window, "libraryPage"), nullptr);
}

TEST_F(Keeping, ThePlaceWhenABackupIsReadAgainWithItsPassword)
{
    testkit::BackupOptions options;
    options.password = "sea and sand";
    testkit::BackupBuilder backup(place.filePath(QStringLiteral("backup")), options);
    backup.addTree(sample->root());
    backup.write();
    MainWindow *const window = openWindow();
    window->setPassword("sea and sand");
    window->openDevice(backup.path());
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    goSomewhere(pageOf(window));
    const browser::PagePlace before = pageOf(window)->place();

    trigger(window, "readAgainAction");
    auto *const edit = waitForShown<QLineEdit>(window, "passwordEdit");
    ASSERT_NE(edit, nullptr);
    QTest::keyClicks(edit, QStringLiteral("sea and sand"));
    QTest::keyClick(edit, Qt::Key_Return);
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    ASSERT_TRUE(comesTrueSoon([&] { return !pageOf(window)->isSearching(); }));
    const browser::PagePlace after = pageOf(window)->place();
    EXPECT_EQ(after.collection, before.collection);
    EXPECT_EQ(after.selected, before.selected);
}

TEST_F(Keeping, TheAlbumAndTheFoldedSectionsForTheNextTime)
{
    {
        MainWindow *const window = openSample();
        goSomewhere(pageOf(window));
        auto *const sideBar = window->findChild<SideBar *>();
        sideBar->collapse(sideBar->model()->index(sideBar->model()->rowCount() - 1, 0));
        window->close();
        const QPointer<MainWindow> watched = window;
        ASSERT_TRUE(comesTrueSoon([&] { return watched.isNull(); }));
    }
    MainWindow *const window = openSample();
    auto *const sideBar = window->findChild<SideBar *>();
    EXPECT_NE(sideBar->chosen(), 0);
    EXPECT_FALSE(sideBar->isExpanded(sideBar->model()->index(sideBar->model()->rowCount() - 1, 0)));
    EXPECT_TRUE(sideBar->isExpanded(sideBar->model()->index(0, 0)));
}

TEST_F(Keeping, TheSizesOfTheOtherWindows)
{
    MainWindow *const window = openSample();
    for (int pass = 0; pass < 2; ++pass) {
        trigger(window, "logAction");
        trigger(window, "exportShownAction");
        const QPointer<QWidget> log = window->findChild<QWidget *>(QStringLiteral("logWindow"));
        const QPointer<QWidget> exporting = window->findChild<browser::ExportWindow *>();
        if (pass == 1) {
            EXPECT_EQ(log->size(), QSize(611, 433));
            EXPECT_EQ(exporting->size(), QSize(1111, 888));
        }
        log->resize(611, 433);
        exporting->resize(1111, 888);
        log->close();
        exporting->close();
        ASSERT_TRUE(comesTrueSoon([&] { return log.isNull() && exporting.isNull(); }));
    }
}

TEST_F(Keeping, TheMenuBarButNotWhileAPhotoFillsTheScreen)
{
    MainWindow *const window = openSample();
    window->setWindowState(Qt::WindowFullScreen);
    EXPECT_FALSE(window->menuBar()->isHidden());
    Q_EMIT pageOf(window)->photosActivated(pageOf(window)->shownPhotos(), 0);
    EXPECT_TRUE(window->menuBar()->isHidden());
    window->setWindowState(Qt::WindowNoState);
    EXPECT_FALSE(window->menuBar()->isHidden());
    auto *const fullScreen = window->findChild<QAction *>(QStringLiteral("fullScreenAction"));
    fullScreen->trigger();
    EXPECT_TRUE(window->menuBar()->isHidden());
    EXPECT_TRUE(fullScreen->associatedWidgets().contains(window)) << "its keys work without the menu bar, too";
    QTest::keyClick(shown<Viewer>(window, "viewer"), Qt::Key_Escape); // no full screen
    QTest::keyClick(shown<Viewer>(window, "viewer"), Qt::Key_Escape); // no viewer
    EXPECT_NE(shown<QWidget>(window, "libraryPage"), nullptr);
    EXPECT_FALSE(window->menuBar()->isHidden());
}

} // namespace
