// Whether a phone can be opened, and what people are told when it cannot.

#include "silent_daemon.h"
#include "usb_phone_test.h"

#include "devicehost/device_host.h"
#include "devicehost/resolve_device.h"
#include "tests/unit/devicehost/support.h"

#include <gmock/gmock.h>

#include <thread>

using devicehost::DeviceHost;
using devicehost::DeviceStatus;
using devicehost::UsbDevice;
using testing::HasSubstr;
using testkit::SimulatedPhone;
using testkit::SimulatedPhoneOptions;

namespace
{

class UsbOpening : public UsbPhoneTest
{
protected:
    /// Why the phone cannot be opened; empty when it can.
    static std::string failure()
    {
        DeviceHost host(name());
        const bool available = host.isAvailable();
        EXPECT_EQ(available, host.failure().isEmpty());
        EXPECT_FALSE(host.failure().contains(QLatin1Char('\n')));
        return host.failure().toStdString();
    }

    UsbDevice listed() const
    {
        const devicehost::UsbDevices found = devicehost::listUsbDevices();
        EXPECT_EQ(found.failure, QString());
        EXPECT_EQ(found.devices.size(), 1);
        return found.devices.value(0);
    }
};

SimulatedPhoneOptions encrypted()
{
    SimulatedPhoneOptions options;
    options.tls = true;
    return options;
}

SimulatedPhoneOptions strange()
{
    SimulatedPhoneOptions options;
    options.paired = false;
    return options;
}

} // namespace

TEST_F(UsbOpening, APhoneThatTrustsThisComputerOpens)
{
    startPhone();
    EXPECT_EQ(failure(), "");
    const UsbDevice device = listed();
    EXPECT_EQ(device.udid.toUtf8(), udid());
    EXPECT_EQ(device.name, "Simulated phone");
    EXPECT_EQ(device.systemVersion, "16.7");
    EXPECT_FALSE(device.model.isEmpty());
    EXPECT_EQ(device.trust, UsbDevice::Trust::Trusted);
    EXPECT_EQ(device.lock, UsbDevice::Lock::Unlocked);
}

TEST_F(UsbOpening, AnEncryptedPhoneOpens)
{
    startPhone(encrypted());
    EXPECT_EQ(failure(), "");
    EXPECT_EQ(listed().trust, UsbDevice::Trust::Trusted);
}

TEST_F(UsbOpening, ALockedPhoneHasToBeUnlocked)
{
    startPhone();
    for (const char *command : {"lock", "lock sessions"}) {
        phone->command(command);
        EXPECT_THAT(failure(), HasSubstr("the device is locked; unlock it and try again")) << command;
        EXPECT_EQ(listed().lock, UsbDevice::Lock::Locked) << command;
        EXPECT_EQ(listed().trust, UsbDevice::Trust::Trusted) << command;
    }
    phone->command("unlock");
    EXPECT_EQ(failure(), "");
}

TEST_F(UsbOpening, AStrangePhoneIsPairedWithWhenItsOwnerAgrees)
{
    startPhone(strange());
    phone->command("trust pending");
    EXPECT_EQ(listed().trust, UsbDevice::Trust::NotYet); // looking asks nothing
    EXPECT_THAT(failure(), HasSubstr("asks on its screen whether to trust this computer; unlock it, tap Trust"));
    phone->command("trust granted");
    EXPECT_EQ(failure(), "");
    EXPECT_EQ(listed().trust, UsbDevice::Trust::Trusted);
}

TEST_F(UsbOpening, ARefusalOfTrustIsSaid)
{
    startPhone(strange());
    phone->command("trust refused");
    EXPECT_THAT(failure(), HasSubstr("trust in this computer was refused on the device; unplug the device"));
}

TEST_F(UsbOpening, APhoneThatForgotThisComputerIsPairedWithAnew)
{
    startPhone();
    phone->command("forget");
    for (int round = 0; round < 2; ++round)
        EXPECT_THAT(failure(), HasSubstr("does not know this computer any more; pair with it again (option --pair)"));
    EXPECT_EQ(listed().trust, UsbDevice::Trust::Forgotten);
    phone->command("trust pending");
    EXPECT_THAT(devicehost::pairUsbDevice(QString::fromUtf8(udid())).toStdString(), HasSubstr("tap Trust"));
    phone->command("trust refused");
    EXPECT_THAT(devicehost::pairUsbDevice(QString::fromUtf8(udid())).toStdString(), HasSubstr("refused"));
    phone->command("trust granted");
    EXPECT_EQ(devicehost::pairUsbDevice(QString::fromUtf8(udid())), QString());
    EXPECT_EQ(failure(), "");
}

// Were it forgotten first, its owner would have to agree, who refuses here.
TEST_F(UsbOpening, APairingThatWorksIsLeftAsItIs)
{
    for (const bool tls : {false, true}) {
        startPhone(tls ? encrypted() : SimulatedPhoneOptions());
        phone->command("trust refused");
        bool wasPaired = false;
        EXPECT_EQ(devicehost::pairUsbDevice(QString::fromUtf8(udid()), &wasPaired), QString());
        EXPECT_TRUE(wasPaired);
        EXPECT_EQ(failure(), "");
    }
}

TEST_F(UsbOpening, APairingOfWhichNothingIsKnownIsLeftAsItIs)
{
    startPhone();
    phone->command("trust refused");
    bool wasPaired = true;
    phone->command("lock sessions");
    EXPECT_THAT(devicehost::pairUsbDevice(QString::fromUtf8(udid()), &wasPaired).toStdString(),
                HasSubstr("the device is locked; unlock it"));
    EXPECT_FALSE(wasPaired);
    phone->command("unlock");
    phone->command("fault cut service=lockdown operation=StartSession");
    EXPECT_NE(devicehost::pairUsbDevice(QString::fromUtf8(udid()), &wasPaired), QString());
    EXPECT_FALSE(wasPaired);
    EXPECT_EQ(failure(), "");
}

TEST_F(UsbOpening, ANewPairingIsNoneThatWasThere)
{
    startPhone();
    phone->command("forget");
    bool wasPaired = true;
    EXPECT_EQ(devicehost::pairUsbDevice(QString::fromUtf8(udid()), &wasPaired), QString());
    EXPECT_FALSE(wasPaired);
}

TEST_F(UsbOpening, AnEncryptedPhoneThatForgotIsPairedWithAnew)
{
    startPhone(encrypted());
    phone->command("forget");
    EXPECT_THAT(failure(), HasSubstr("does not know this computer any more"));
    EXPECT_EQ(devicehost::pairUsbDevice(QString::fromUtf8(udid())), QString());
    EXPECT_EQ(failure(), "");
}

TEST_F(UsbOpening, AServiceThatIsRefusedIsSaid)
{
    startPhone();
    for (const char *error : {"InvalidService", "ServiceProhibited"}) {
        phone->command(QByteArray("refuse com.apple.afc ") + error);
        EXPECT_THAT(failure(), HasSubstr("the device does not give its media files away; unlock it and")) << error;
    }
}

TEST_F(UsbOpening, APhoneThatIsNotThereIsNotThere)
{
    startPhone();
    phone->command("detach");
    EXPECT_THAT(failure(), HasSubstr("the device is not connected; connect it with a cable"));
    EXPECT_TRUE(devicehost::listUsbDevices().devices.isEmpty());
    EXPECT_EQ(devicehost::listUsbDevices().failure, QString());
    EXPECT_THAT(devicehost::pairUsbDevice(QString::fromUtf8(udid())).toStdString(), HasSubstr("not connected"));
    phone->command("attach");
    EXPECT_EQ(failure(), "");
}

TEST_F(UsbOpening, WithoutADaemonNobodyCanBeAsked)
{
    startPhone();
    phone.reset();
    qputenv("USBMUXD_SOCKET_ADDRESS", "UNIX:/nonexistent/usbmuxd");
    EXPECT_THAT(failure(), HasSubstr("not connected"));
    EXPECT_THAT(devicehost::listUsbDevices().failure.toStdString(), HasSubstr("usbmuxd"));
    EXPECT_THAT(devicehost::resolveDevice(QStringLiteral("usb")).message.toStdString(), HasSubstr("usbmuxd"));
}

TEST_F(UsbOpening, ADaemonThatDoesNotAnswerIsGivenUp)
{
    // The first exchange of a process writes its name down within libusbmuxd, which does not guard that: here it is
    // over before two threads talk to daemons at a time.
    startPhone();
    ASSERT_EQ(failure(), "");
    SilentDaemon daemon(media.path());
    devicehost::setUsbTimeout(std::chrono::milliseconds(50));
    EXPECT_THAT(devicehost::listUsbDevices().failure.toStdString(),
                HasSubstr("usbmuxd, which finds devices, does not"));
    const devicehost::ResolvedDevice device = devicehost::resolveDevice(QStringLiteral("usb"));
    EXPECT_EQ(device.status, DeviceStatus::Unreachable);
    EXPECT_THAT(device.message.toStdString(), HasSubstr("does not answer; try again"));
    EXPECT_THAT(failure(), HasSubstr("does not answer"));
    EXPECT_TRUE(devicehost::usbCallWasLeftBehind());
}

TEST_F(UsbOpening, ACutAtAnyStepOfTheWayIsAnErrorOrMended)
{
    startPhone();
    ASSERT_EQ(failure(), "");
    const qint64 steps = phone->counters().value("lockdown-operations");
    ASSERT_GT(steps, 3);
    int failures = 0;
    for (qint64 step = 1; step <= steps; ++step) {
        phone->command("fault cut service=lockdown at=" + QByteArray::number(step));
        const std::string text = failure();
        failures += text.empty() ? 0 : 1;
        if (!text.empty()) {
            EXPECT_THAT(text, HasSubstr("; ")) << step;
        }
        phone->clear();
        EXPECT_EQ(failure(), "") << step;
    }
    EXPECT_GT(failures, 2);
}

TEST_F(UsbOpening, ACutWhileEncryptionIsAgreedUponIsAnError)
{
    startPhone(encrypted());
    for (const char *number : {"1", "2"}) { // of the session, and of the file service
        phone->command(QByteArray("fault cut service=tls at=") + number);
        EXPECT_NE(failure(), "") << number;
        phone->clear();
    }
    EXPECT_EQ(failure(), "");
}

TEST_F(UsbOpening, SilenceAtAnyStepOfTheWayEndsInTime)
{
    startPhone();
    ASSERT_EQ(failure(), "");
    const qint64 steps = phone->counters().value("lockdown-operations");
    devicehost::setUsbTimeout(std::chrono::milliseconds(50));
    int silences = 0;
    for (qint64 step = 1; step <= steps; ++step) {
        phone->command("fault stall service=lockdown at=" + QByteArray::number(step));
        const std::string text = failure();
        silences += text.find("the device does not answer; ") != std::string::npos ? 1 : 0;
        phone->clear();
    }
    EXPECT_GT(silences, 2);
}

TEST_F(UsbOpening, ASilentPhoneIsListedAllTheSame)
{
    startPhone();
    phone->command("fault stall service=lockdown times=always");
    devicehost::setUsbTimeout(std::chrono::seconds(1)); // which bounds the list of usbmuxd, too
    const UsbDevice device = listed();
    EXPECT_EQ(device.udid.toUtf8(), udid());
    EXPECT_EQ(device.trust, UsbDevice::Trust::Unknown);
    EXPECT_THAT(devicehost::pairUsbDevice(QString::fromUtf8(udid())).toStdString(), HasSubstr("does not answer"));
}

TEST_F(UsbOpening, AnOpeningThatWaitsEndsWhenTheUserStops)
{
    startPhone();
    phone->command("fault stall service=lockdown at=2");
    DeviceHost host(name());
    std::thread user([&] {
        phone->waitFor("stalled", 1);
        host.requestStop();
    });
    EXPECT_FALSE(host.isAvailable()); // were it not ended, this would take half a minute, and fail for another reason
    user.join();
    EXPECT_EQ(host.failure(), QString());
}

TEST_F(UsbOpening, TheOnlyPhoneNeedsNoName)
{
    startPhone();
    for (const QString &argument : {QStringLiteral("usb"), QStringLiteral("afc:"), name()}) {
        const devicehost::ResolvedDevice device = devicehost::resolveDevice(argument);
        EXPECT_EQ(device.status, DeviceStatus::Found);
        EXPECT_EQ(device.devicePath, name());
    }
    EXPECT_EQ(readFrom(Device(vDevOpen(VDevDevice, "afc:")).get(), "/a"), content);
    const devicehost::ResolvedDevice other = devicehost::resolveDevice(QStringLiteral("afc:0000"));
    EXPECT_EQ(other.status, DeviceStatus::Unreachable);
    EXPECT_EQ(other.message, "afc:0000: no such device is connected; connect it with a cable and unlock it, or name "
                             "one of those that are: " +
                                 name() + " (Simulated phone)");
    phone->command("detach");
    EXPECT_THAT(devicehost::resolveDevice(QStringLiteral("usb")).message.toStdString(),
                HasSubstr("usb: no device is connected; connect it with a cable"));
}

TEST_F(UsbOpening, OfSeveralPhonesOneHasToBeNamed)
{
    SimulatedPhoneOptions first;
    first.root = media.path();
    SimulatedPhoneOptions second = first;
    second.udid = "0000000000000000000000000000000000000002";
    second.name = "Other phone";
    phone = std::make_unique<SimulatedPhone>(QList<SimulatedPhoneOptions>{first, second});
    phone->useHere();
    const devicehost::ResolvedDevice device = devicehost::resolveDevice(QStringLiteral("usb"));
    EXPECT_EQ(device.status, DeviceStatus::Unreachable);
    for (const char *part : {"several devices are connected", "(Simulated phone)", "(Other phone)", "afc:0000000"})
        EXPECT_THAT(device.message.toStdString(), HasSubstr(part));
    EXPECT_EQ(vDevOpen(VDevDevice, "afc:"), nullptr);
    EXPECT_NE(Device(vDevOpen(VDevDevice, ("afc:" + second.udid).constData())), nullptr);
    EXPECT_EQ(devicehost::listUsbDevices().devices.size(), 2);
}
