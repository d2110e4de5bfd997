// The whole window: choosing, opening, what goes wrong, and what is remembered.

#include "tests/browser/window/window_fixture.h"

#include "apps/browser/device/recent_devices.h"
#include "apps/browser/library/opening_failure.h"
#include "apps/browser/page/library_page.h"
#include "apps/browser/viewer/viewer.h"
#include "testing/backup_builder.h"
#include "testing/library_builder.h"
#include "tests/cli/sample/sample_folder.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMimeData>
#include <QPushButton>
#include <QSettings>
#include <QTest>

namespace
{

using browser::FailureKind;
using browser::MainWindow;

TEST_F(WindowTest, BeginsWithThePageToChooseADevice)
{
    MainWindow *const window = openWindow();
    EXPECT_NE(shown<QWidget>(window, "startPage"), nullptr);
    EXPECT_FALSE(window->findChild<QAction *>(QStringLiteral("exportAction"))->isEnabled());
}

TEST_F(WindowTest, ShowsTheLibraryUnderTheNameOfTheDevice)
{
    MainWindow *const window = openSample();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("device"));
    EXPECT_TRUE(window->findChild<QAction *>(QStringLiteral("exportAction"))->isEnabled());
    EXPECT_EQ(shown<QWidget>(window, "noticeBar"), nullptr);
}

TEST_F(WindowTest, ListsWhatWasOpenedBeforeAndForgetsItWhenAsked)
{
    const QPointer<MainWindow> first = openSample();
    first->close();
    ASSERT_TRUE(comesTrueSoon([&] { return first.isNull(); })) << "it has the device until then";
    MainWindow *const window = openWindow();
    auto *const list = waitForShown<QListView>(window, "deviceList");
    ASSERT_NE(list, nullptr);
    const auto rowOfSample = [&]() -> QModelIndex {
        const auto found =
            list->model()->match(list->model()->index(0, 0), Qt::UserRole, QStringLiteral("folder:") + sample->root());
        return found.isEmpty() ? QModelIndex() : found.front();
    };
    ASSERT_TRUE(rowOfSample().isValid());
    list->setCurrentIndex(rowOfSample());
    QTest::keyClick(list, Qt::Key_Return);
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);

    window->findChild<QAction *>(QStringLiteral("chooseAction"))->trigger();
    ASSERT_NE(waitForShown<QWidget>(window, "startPage"), nullptr);
    list->setCurrentIndex(rowOfSample());
    ASSERT_TRUE(press(window, "forgetButton"));
    EXPECT_FALSE(rowOfSample().isValid());
    EXPECT_TRUE(browser::recent::devices().isEmpty());
}

TEST_F(WindowTest, ListsBackupsInTheUsualPlaces)
{
    testkit::BackupOptions options;
    options.deviceName = QStringLiteral("Ben's phone");
    const QString folder = QDir::homePath() + QStringLiteral("/Backups/ben");
    QDir().mkpath(folder);
    testkit::BackupBuilder(folder, options).write();
    MainWindow *const window = openWindow();
    auto *const list = waitForShown<QListView>(window, "deviceList");
    ASSERT_NE(list, nullptr);
    EXPECT_TRUE(comesTrueSoon([list] {
        return !list->model()
                    ->match(list->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("Ben's phone"))
                    .isEmpty();
    }));
    QDir(folder).removeRecursively();
}

TEST_F(WindowTest, SaysWhatIsWrongAndTriesAgain)
{
    MainWindow *const window = openWindow();
    const QString root = place.filePath(QStringLiteral("phone"));
    window->openDevice(root);
    ASSERT_NE(waitForShown<QWidget>(window, "failureTitle"), nullptr);
    EXPECT_EQ(textOf(window, "failureTitle"), browser::failureText(FailureKind::NotFound).title);
    EXPECT_EQ(shown<QWidget>(window, "pairButton"), nullptr);

    copyOfSample(QStringLiteral("phone"));
    ASSERT_TRUE(press(window, "retryButton"));
    EXPECT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
}

TEST_F(WindowTest, GoesBackFromAFailure)
{
    MainWindow *const window = openWindow();
    window->openDevice(place.path());
    ASSERT_NE(waitForShown<QWidget>(window, "failureTitle"), nullptr);
    EXPECT_EQ(textOf(window, "failureTitle"), browser::failureText(FailureKind::NoLibrary).title);
    ASSERT_TRUE(press(window, "failureBack"));
    EXPECT_NE(shown<QWidget>(window, "startPage"), nullptr);
}

TEST_F(WindowTest, SaysThatTheListOfPhotosIsDamaged)
{
    const QString root = copyOfSample(QStringLiteral("phone"));
    QDir(root).remove(QStringLiteral("PhotoData/Photos.sqlite-wal"));
    QFile file(root + QStringLiteral("/PhotoData/Photos.sqlite"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    file.write(QByteArray("no database at all ").repeated(500));
    file.close();
    MainWindow *const window = openWindow();
    window->openDevice(root);
    ASSERT_NE(waitForShown<QWidget>(window, "failureTitle"), nullptr);
    EXPECT_EQ(textOf(window, "failureTitle"), browser::failureText(FailureKind::Damaged).title);
    EXPECT_EQ(shown<QWidget>(window, "detailsText"), nullptr);
    ASSERT_TRUE(press(window, "detailsButton"));
    EXPECT_TRUE(textOf(window, "detailsText").contains(QStringLiteral("Photos.sqlite")));
}

TEST_F(WindowTest, SaysThatThereAreNoPhotos)
{
    testkit::LibraryBuilder builder(testkit::Era::Ios15);
    const QString root = place.filePath(QStringLiteral("new"));
    QDir().mkpath(root + QStringLiteral("/PhotoData"));
    builder.write(root + QStringLiteral("/PhotoData/Photos.sqlite"));
    MainWindow *const window = openWindow();
    window->openDevice(root);
    ASSERT_NE(waitForShown<QWidget>(window, "noticeBar"), nullptr);
    EXPECT_TRUE(textOf(window, "noticeText").startsWith(QStringLiteral("There are no photos")));
}

TEST_F(WindowTest, AsksForThePasswordOfABackup)
{
    testkit::BackupOptions options;
    options.password = "sea and sand";
    testkit::BackupBuilder backup(place.filePath(QStringLiteral("backup")), options);
    backup.addTree(sample->root());
    backup.write();
    MainWindow *const window = openWindow();
    window->openDevice(backup.path());
    auto *const edit = waitForShown<QLineEdit>(window, "passwordEdit");
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->echoMode(), QLineEdit::Password);
    const QString question = textOf(window, "passwordHint");
    QTest::keyClicks(edit, QStringLiteral("1234"));
    QTest::keyClick(edit, Qt::Key_Return);
    ASSERT_TRUE(comesTrueSoon([&] { return edit->isVisible() && textOf(window, "passwordHint") != question; }));
    EXPECT_EQ(edit->text(), QString());
    QTest::keyClicks(edit, QStringLiteral("sea and sand"));
    ASSERT_TRUE(press(window, "unlockButton"));
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Anna's phone"));
}

TEST_F(WindowTest, ListsTheBackupsOfAFolderThatHoldsSeveral)
{
    for (const char *name : {"one", "two"})
        testkit::BackupBuilder(place.filePath(QStringLiteral("backups/") + QLatin1String(name))).write();
    MainWindow *const window = openWindow();
    window->openDevice(place.filePath(QStringLiteral("backups")));
    EXPECT_TRUE(comesTrueSoon([&] {
        auto *const now = shown<QListView>(window, "deviceList");
        return now != nullptr &&
               now->model()
                       ->match(now->model()->index(0, 0), Qt::DisplayRole, QStringLiteral("Anna's phone"), -1)
                       .size() == 2;
    }));
    EXPECT_FALSE(textOf(window, "statusText").isEmpty());
}

TEST_F(WindowTest, StaysUsableWhenTheDeviceGoesAndOpensItAgain)
{
    const QString root = copyOfSample(QStringLiteral("phone"));
    MainWindow *const window = openWindow();
    window->openDevice(root);
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    ASSERT_TRUE(QDir().rename(root, root + QStringLiteral(".away")));
    Q_EMIT window->findChild<browser::LibraryPage *>()->readsFailing();
    ASSERT_NE(waitForShown<QWidget>(window, "noticeBar"), nullptr);
    EXPECT_TRUE(textOf(window, "noticeText").startsWith(QStringLiteral("The phone is no longer connected.")));

    ASSERT_TRUE(press(window, "noticeButton")); // too early: it is still away
    const QString stillAway = browser::failureText(FailureKind::NotFound).title;
    ASSERT_TRUE(comesTrueSoon([&] { return textOf(window, "noticeText").startsWith(stillAway); }));
    EXPECT_NE(shown<QWidget>(window, "libraryRoom"), nullptr);

    ASSERT_TRUE(QDir().rename(root + QStringLiteral(".away"), root));
    ASSERT_TRUE(press(window, "noticeButton"));
    EXPECT_TRUE(comesTrueSoon([&] { return shown<QWidget>(window, "noticeBar") == nullptr; }));
}

TEST_F(WindowTest, NoticesByItselfThatAMountIsEmptyNow)
{
    const QString root = copyOfSample(QStringLiteral("phone"));
    MainWindow *const window = openWindow();
    window->openDevice(root);
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    ASSERT_TRUE(QDir(root).removeRecursively() && QDir().mkdir(root));
    ASSERT_NE(waitForShown<QWidget>(window, "noticeBar"), nullptr);
    EXPECT_TRUE(textOf(window, "noticeText").startsWith(QStringLiteral("The phone is no longer connected.")));
}

TEST_F(WindowTest, SaysThatABackupWasInterrupted)
{
    testkit::BackupOptions options;
    options.snapshotState = "new";
    testkit::BackupBuilder backup(place.filePath(QStringLiteral("backup")), options);
    backup.addTree(sample->root());
    backup.write();
    MainWindow *const window = openWindow();
    window->openDevice(backup.path());
    ASSERT_NE(waitForShown<QWidget>(window, "noticeBar"), nullptr);
    EXPECT_TRUE(textOf(window, "noticeText").startsWith(QStringLiteral("This backup was interrupted")));
}

TEST_F(WindowTest, SaysNothingWhenOnlyAPhotoCannotBeRead)
{
    MainWindow *const window = openSample();
    Q_EMIT window->findChild<browser::Viewer *>()->readFailed();
    EXPECT_FALSE(QTest::qWaitFor([&] { return shown<QWidget>(window, "noticeBar") != nullptr; }, 300));
}

TEST_F(WindowTest, OpensAFolderThatIsDroppedOnIt)
{
    MainWindow *const window = openWindow();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(sample->root())});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window, &drop);
    EXPECT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
}

TEST_F(WindowTest, RemembersItsSize)
{
    MainWindow *const first = openWindow();
    first->resize(777, 555);
    first->close();
    EXPECT_EQ(openWindow()->size(), QSize(777, 555));
}

TEST_F(WindowTest, ComesToTheFrontInsteadOfOpeningADeviceTwice)
{
    const QPointer<MainWindow> first = openSample();
    first->showMinimized();
    MainWindow *const second = openWindow();
    second->openDevice(sample->root() + QStringLiteral("/."));
    EXPECT_TRUE(comesTrueSoon([first] { return !first->isMinimized(); }));
    EXPECT_TRUE(comesTrueSoon([&] { return shown<QWidget>(second, "startPage") != nullptr; }));
    EXPECT_EQ(shown<QWidget>(second, "libraryRoom"), nullptr);
    EXPECT_FALSE(textOf(second, "statusText").isEmpty());

    first->close();
    ASSERT_TRUE(comesTrueSoon([&] { return first.isNull(); })) << "it has the device until then";
    second->openDevice(sample->root());
    EXPECT_NE(waitForShown<QWidget>(second, "libraryRoom"), nullptr);
}

TEST_F(WindowTest, GivesADeviceThatIsTakenToTheWindowThatHasIt)
{
    openSample();
    MainWindow *const second = openWindow();
    const QPointer<MainWindow> watched = second;
    second->closeWhenTaken();
    second->openDevice(sample->root());
    EXPECT_TRUE(comesTrueSoon([&] { return watched.isNull(); }));
}

TEST_F(WindowTest, CanBeClosedWhileItOpens)
{
    for (int pass = 0; pass < 10; ++pass) {
        MainWindow *const window = openWindow();
        const QPointer<MainWindow> watched = window;
        window->openDevice(sample->root());
        QTest::qWait(pass);
        window->close();
        ASSERT_TRUE(comesTrueSoon([&] { return watched.isNull(); }));
    }
}

TEST_F(WindowTest, EveryActionIsInAMenuAndThoseOfUseOftenHaveAShortcut)
{
    MainWindow *const window = openSample();
    QStringList inMenus;
    for (const QMenu *const menu : window->findChildren<QMenu *>())
        for (const QAction *const action : menu->actions())
            inMenus += action->objectName();
    QSet<QKeySequence> shortcuts;
    for (QAction *const action : window->findChildren<QAction *>(QRegularExpression(QStringLiteral("Action$")))) {
        const bool isOfThePage = action->parent() != window; // in a menu that is made when it is opened
        EXPECT_TRUE(isOfThePage || inMenus.contains(action->objectName())) << action->objectName().toStdString();
        if (action->shortcut().isEmpty())
            continue;
        EXPECT_FALSE(shortcuts.contains(action->shortcut())) << action->objectName().toStdString();
        shortcuts += action->shortcut();
    }
    EXPECT_GE(shortcuts.size(), 9);
}

// What a screen reader says of a widget that people use.
QString nameOf(const QWidget *widget)
{
    if (!widget->accessibleName().isEmpty())
        return widget->accessibleName();
    const auto *const button = qobject_cast<const QAbstractButton *>(widget);
    return button != nullptr ? button->text() : QString();
}

TEST_F(WindowTest, EveryWidgetThatTakesTheFocusHasAName)
{
    MainWindow *const window = openSample();
    for (const QWidget *const widget : window->findChildren<QWidget *>()) {
        const bool isOwn = qobject_cast<const QAbstractButton *>(widget) != nullptr ||
                           qobject_cast<const QLineEdit *>(widget) != nullptr ||
                           qobject_cast<const QAbstractItemView *>(widget) != nullptr;
        const bool isInner = widget->objectName().startsWith(QStringLiteral("qt_"));
        if (!isOwn || isInner || widget->isHidden() || (widget->focusPolicy() & Qt::TabFocus) == 0)
            continue;
        EXPECT_FALSE(nameOf(widget).isEmpty())
            << widget->metaObject()->className() << ' ' << widget->objectName().toStdString();
    }
}

} // namespace
