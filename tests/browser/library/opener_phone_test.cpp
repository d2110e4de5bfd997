// Opening phones, as a simulated one answers.

#include "apps/browser/library/background.h"
#include "apps/browser/library/device_title.h"
#include "devicehost/usb_devices.h"
#include "testing/simulated_phone.h"
#include "tests/browser/support/opening.h"
#include "tests/cli/sample/sample_folder.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace
{

using browser::FailureKind;
using testkit::SimulatedPhone;

class PhoneOpener : public testing::Test
{
protected:
    PhoneOpener()
    {
        phone.useHere();
        qputenv("TMPDIR", QFile::encodeName(local.path()));
    }
    ~PhoneOpener() override
    {
        EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
        qunsetenv("TMPDIR");
    }

    static FailureKind failureOf(const QString &argument = QStringLiteral("usb"))
    {
        Opening opening(argument);
        EXPECT_TRUE(opening.ends());
        return opening.failure ? opening.failure->kind : FailureKind::Other;
    }

    SampleFolder folder{{}, SampleParts::DatabaseOnly};
    SimulatedPhone phone{folder.root()};
    QTemporaryDir local;
};

TEST_F(PhoneOpener, OpensThePhoneThatIsConnected)
{
    Opening opening(QStringLiteral("usb"));
    ASSERT_TRUE(opening.ends());
    ASSERT_TRUE(opening.opened.has_value());
    EXPECT_EQ(opening.opened->title, QStringLiteral("Simulated phone"));
    EXPECT_EQ(opening.opener.deviceName(), opening.opened->library->deviceName());
}

TEST_F(PhoneOpener, SaysWhatIsWrongWithAPhone)
{
    phone.command("lock");
    EXPECT_EQ(failureOf(), FailureKind::Locked);
    phone.command("unlock");
    phone.command("refuse com.apple.afc InvalidService");
    EXPECT_EQ(failureOf(), FailureKind::NotAllowed);
    phone.command("allow com.apple.afc");
    phone.command("forget");
    EXPECT_EQ(failureOf(), FailureKind::Forgotten);
    phone.command("detach");
    EXPECT_EQ(failureOf(), FailureKind::NotFound);
}

TEST_F(PhoneOpener, OpensAPhoneThatHadForgottenThisComputerOnceTheyArePairedAgain)
{
    phone.command("forget");
    EXPECT_EQ(failureOf(), FailureKind::Forgotten);
    phone.command("trust refused");
    const QString udid = QString::fromLatin1(SimulatedPhone::defaultUdid());
    EXPECT_EQ(browser::kindOfHostFailure(devicehost::pairUsbDevice(udid)), FailureKind::Refused);
    phone.command("trust pending");
    EXPECT_EQ(browser::kindOfHostFailure(devicehost::pairUsbDevice(udid)), FailureKind::TrustPending);
    phone.command("trust granted");
    EXPECT_EQ(devicehost::pairUsbDevice(udid), QString());
    Opening opening(QStringLiteral("usb"));
    ASSERT_TRUE(opening.ends());
    EXPECT_TRUE(opening.opened.has_value());
}

TEST_F(PhoneOpener, IsGivenUpWhileThePhoneIsSilent)
{
    phone.command("fault stall operation=FileRefRead reply-bytes=700 path=/PhotoData/Photos.sqlite");
    Opening opening(QStringLiteral("usb"));
    opening.opener.start();
    ASSERT_TRUE(comesTrueSoon([this] { return phone.counters().value("stalled") == 1; }));
    opening.opener.cancel();
    EXPECT_TRUE(opening.wasCancelled);
    // Nobody lets the phone go on: the thread ends by itself.
    EXPECT_TRUE(browser::waitForBackground(std::chrono::minutes(1)));
    EXPECT_EQ(QDir(local.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList());
}

TEST_F(PhoneOpener, SaysThatThePhoneIsGoneWhenTheCableIsPulled)
{
    phone.command("fault stall operation=FileRefRead reply-bytes=700 path=/PhotoData/Photos.sqlite");
    Opening opening(QStringLiteral("usb"));
    opening.opener.start();
    ASSERT_TRUE(comesTrueSoon([this] { return phone.counters().value("stalled") == 1; }));
    phone.command("detach");
    ASSERT_TRUE(comesTrueSoon([&opening] { return opening.hasEnded(); }));
    ASSERT_TRUE(opening.failure.has_value());
    EXPECT_EQ(opening.failure->kind, FailureKind::Disconnected) << opening.failure->technical.toStdString();
}

} // namespace
