// The window with phones, as a simulated one answers.

#include "tests/browser/window/window_fixture.h"

#include "apps/browser/device/device_list_model.h"
#include "apps/browser/exporting/export_window.h"
#include "apps/browser/library/background.h"
#include "apps/browser/library/opening_failure.h"
#include "apps/browser/page/library_page.h"
#include "devicehost/usb_devices.h"
#include "testing/simulated_phone.h"
#include "tests/cli/sample/sample_folder.h"

#include <QAction>
#include <QComboBox>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTest>

namespace
{

using browser::DeviceListModel;
using browser::FailureKind;
using browser::MainWindow;

class PhoneWindow : public WindowTest
{
protected:
    PhoneWindow() { phone.useHere(); }
    ~PhoneWindow() override
    {
        // The threads that look for phones read the environment, which the phone changes when it ends.
        keeper.reset();
        EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    }

    // Opens the phone in the list as people do.
    MainWindow *openPhone()
    {
        MainWindow *const window = openWindow();
        auto *const list = waitForShown<QListView>(window, "deviceList");
        const auto row = [list] { return qobject_cast<DeviceListModel *>(list->model())->indexOf(deviceName()); };
        EXPECT_TRUE(comesTrueSoon([&] { return row().isValid(); }));
        list->setCurrentIndex(row());
        EXPECT_TRUE(press(window, "openButton"));
        return window;
    }

    static QString deviceName()
    {
        return QStringLiteral("afc:") + QString::fromLatin1(testkit::SimulatedPhone::defaultUdid());
    }

    void expectFailure(MainWindow *window, FailureKind kind)
    {
        ASSERT_NE(waitForShown<QWidget>(window, "failureTitle"), nullptr);
        EXPECT_EQ(textOf(window, "failureTitle"), browser::failureText(kind).title);
    }

    testkit::SimulatedPhone phone{sample->root()};
};

TEST_F(PhoneWindow, ListsThePhoneAndShowsItsLibraryUnderItsName)
{
    MainWindow *const window = openPhone();
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    EXPECT_EQ(window->windowTitle(), QStringLiteral("Simulated phone"));
}

TEST_F(PhoneWindow, GoesBackAtOnceWhenAnOpeningIsCancelled)
{
    phone.command("fault stall operation=FileRefRead reply-bytes=700 path=/PhotoData/Photos.sqlite");
    MainWindow *const window = openPhone();
    ASSERT_TRUE(comesTrueSoon([this] { return phone.counters().value("stalled") == 1; }));
    ASSERT_NE(shown<QWidget>(window, "openingBar"), nullptr);
    ASSERT_TRUE(press(window, "cancelButton"));
    EXPECT_NE(shown<QWidget>(window, "startPage"), nullptr);
}

TEST_F(PhoneWindow, AsksToUnlockAPhoneAndOpensItThen)
{
    phone.command("lock");
    MainWindow *const window = openPhone();
    expectFailure(window, FailureKind::Locked);
    phone.command("unlock");
    ASSERT_TRUE(press(window, "retryButton"));
    EXPECT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
}

TEST_F(PhoneWindow, PairsAgainWithAPhoneThatHasForgottenThisComputer)
{
    phone.command("forget");
    phone.command("trust pending");
    MainWindow *const window = openPhone();
    expectFailure(window, FailureKind::Forgotten);
    ASSERT_TRUE(press(window, "pairButton"));
    ASSERT_TRUE(comesTrueSoon(
        [&] { return textOf(window, "failureTitle") == browser::failureText(FailureKind::TrustPending).title; }));
    phone.command("trust granted");
    ASSERT_TRUE(press(window, "retryButton"));
    EXPECT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
}

// The answer of a pairing that nobody waits for any more comes while another failure is shown.
TEST_F(PhoneWindow, ForgetsAPairingThatWasCancelled)
{
    phone.command("forget");
    MainWindow *const window = openPhone();
    expectFailure(window, FailureKind::Forgotten);
    phone.command("trust refused");
    phone.command("fault stall service=lockdown operation=Pair");
    ASSERT_TRUE(press(window, "pairButton"));
    phone.waitFor("stalled", 1);
    ASSERT_TRUE(press(window, "cancelButton"));
    window->openDevice(place.path());
    expectFailure(window, FailureKind::NoLibrary);
    phone.release();
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    QCoreApplication::processEvents();
    expectFailure(window, FailureKind::NoLibrary);
}

TEST_F(PhoneWindow, IsTheOnlyOneOfAPhoneThatTheDesktopHasMountedToo)
{
    MainWindow *const window = openPhone();
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    MainWindow *const second = openWindow();
    second->openDevice(
        copyOfSample(QStringLiteral("gvfs/afc:host=") + QString::fromLatin1(testkit::SimulatedPhone::defaultUdid())));
    EXPECT_TRUE(comesTrueSoon([&] { return !textOf(second, "statusText").isEmpty(); }));
    EXPECT_NE(shown<QWidget>(second, "startPage"), nullptr);
}

// What hangs on a silent phone is ended, not waited for: the phone would have ten minutes to answer.
class SilentPhone : public PhoneWindow
{
protected:
    SilentPhone() { devicehost::setUsbTimeout(std::chrono::minutes(10)); }
    ~SilentPhone() override { devicehost::setUsbTimeout(std::chrono::seconds(30)); }

    void expectToLeave(MainWindow *window)
    {
        window->findChild<QAction *>(QStringLiteral("chooseAction"))->trigger();
        EXPECT_NE(shown<QWidget>(window, "startPage"), nullptr);
        keeper.reset();
        EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    }
};

TEST_F(SilentPhone, IsLeftWhileItIsReadAgain)
{
    MainWindow *const window = openPhone();
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    auto *const page = window->findChild<browser::LibraryPage *>();
    phone.command("fault stall operation=FileRefRead path=/PhotoData/Photos.sqlite");
    phone.command("fault stall path=/DCIM/* times=always");
    window->findChild<QAction *>(QStringLiteral("readAgainAction"))->trigger();
    ASSERT_TRUE(comesTrueSoon([this] { return phone.counters().value("stalled") == 1; }));
    Q_EMIT page->photosActivated(page->shownPhotos(), 0); // is read from the phone that is being opened
    ASSERT_TRUE(comesTrueSoon([this] { return phone.counters().value("stalled") == 2; }));
    expectToLeave(window);
}

TEST_F(SilentPhone, IsLeftWhileAnExportReadsWhatWasShownBefore)
{
    MainWindow *const window = openPhone();
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    phone.command("fault stall path=/DCIM/*");
    window->findChild<QAction *>(QStringLiteral("exportShownAction"))->trigger();
    auto *const exporting = window->findChild<browser::ExportWindow *>();
    exporting->findChild<QComboBox *>(QStringLiteral("destinationBox"))
        ->setEditText(place.filePath(QStringLiteral("target")));
    auto *const next = exporting->findChild<QPushButton *>(QStringLiteral("nextButton"));
    ASSERT_TRUE(comesTrueSoon([next] { return next->isEnabled(); }));
    next->click();
    ASSERT_TRUE(comesTrueSoon([this] { return phone.counters().value("stalled") == 1; }));
    const QPointer<QWidget> before = window->findChild<browser::LibraryPage *>();
    window->findChild<QAction *>(QStringLiteral("readAgainAction"))->trigger();
    ASSERT_TRUE(comesTrueSoon([&] { return !isSeen(before); }));
    expectToLeave(window);
}

TEST_F(PhoneWindow, NoticesByItselfThatTheCableWasPulled)
{
    MainWindow *const window = openPhone();
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    const auto *const page = window->findChild<browser::LibraryPage *>();
    QObject::disconnect(page, &browser::LibraryPage::readsFailing, nullptr, nullptr); // nobody reads
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    QCoreApplication::processEvents();
    ASSERT_EQ(shown<QWidget>(window, "noticeBar"), nullptr);
    phone.command("detach");
    ASSERT_NE(waitForShown<QWidget>(window, "noticeBar"), nullptr);
    EXPECT_TRUE(textOf(window, "noticeText").startsWith(QStringLiteral("The phone is no longer connected.")));
}

TEST_F(PhoneWindow, TellsCalmlyThatTheCableWasPulled)
{
    MainWindow *const window = openPhone();
    ASSERT_NE(waitForShown<QWidget>(window, "libraryRoom"), nullptr);
    phone.command("detach");
    window->findChild<QAction *>(QStringLiteral("readAgainAction"))->trigger();
    EXPECT_TRUE(comesTrueSoon([&] { return shown<QWidget>(window, "noticeButton") != nullptr; }));
    EXPECT_NE(shown<QWidget>(window, "libraryRoom"), nullptr);
    phone.command("attach");
    ASSERT_TRUE(press(window, "noticeButton"));
    EXPECT_TRUE(comesTrueSoon([&] { return shown<QWidget>(window, "noticeBar") == nullptr; }));
}

} // namespace
