// The window with phones, as a simulated one answers.

#include "tests/browser/window/window_fixture.h"

#include "apps/browser/device/device_list_model.h"
#include "apps/browser/library/background.h"
#include "apps/browser/library/opening_failure.h"
#include "testing/simulated_phone.h"
#include "tests/cli/sample/sample_folder.h"

#include <QAction>
#include <QListView>
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
