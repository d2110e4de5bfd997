// Phones on the network, alone and beside a cable.

#include "usb_phone_test.h"

#include "devicehost/device_host.h"
#include "devicehost/open_error.h"
#include "devicehost/resolve_device.h"
#include "tests/unit/devicehost/support.h"

#include <gmock/gmock.h>

using devicehost::DeviceHost;
using devicehost::DeviceStatus;
using devicehost::UsbDevice;
using testing::HasSubstr;
using testkit::SimulatedPhone;
using testkit::SimulatedPhoneOptions;

namespace
{

SimulatedPhoneOptions onNetwork(bool usb = false, bool tls = false)
{
    SimulatedPhoneOptions options;
    options.usb = usb;
    options.network = true;
    options.tls = tls;
    return options;
}

class NetworkPhone : public UsbPhoneTest
{
protected:
    static constexpr const char *secondUdid = "0000000000000000000000000000000000000002";

    void startPhones(SimulatedPhoneOptions first, SimulatedPhoneOptions second)
    {
        first.root = second.root = media.path();
        second.udid = secondUdid;
        second.name = "Other phone";
        phone = std::make_unique<SimulatedPhone>(QList<SimulatedPhoneOptions>{first, second});
        phone->useHere();
    }

    static Device open(const QString &name) { return Device(vDevOpen(VDevDevice, name.toUtf8().constData())); }
};

class NetworkPhoneBothWays : public NetworkPhone, public testing::WithParamInterface<bool>
{
};

} // namespace

TEST_P(NetworkPhoneBothWays, IsReadLikeOneOnUsb)
{
    startPhone(onNetwork(false, GetParam()));
    {
        DeviceHost host(name());
        EXPECT_EQ(readFrom(open(name()).get(), "/a"), content);
        EXPECT_EQ(host.failure(), QString());
    }
    phone->waitFor("connections", 0);
    const devicehost::UsbDevices found = devicehost::listUsbDevices();
    ASSERT_EQ(found.devices.size(), 1);
    EXPECT_EQ(found.devices[0].connection, UsbDevice::Connection::Network);
    EXPECT_EQ(found.devices[0].name, "Simulated phone");
    EXPECT_EQ(found.devices[0].trust, UsbDevice::Trust::Trusted);
    EXPECT_EQ(found.devices[0].lock, UsbDevice::Lock::Unlocked);
}

TEST_P(NetworkPhoneBothWays, IsReadOnWhenItsConnectionIsCut)
{
    startPhone(onNetwork(false, GetParam()));
    DeviceHost host(name());
    ASSERT_TRUE(host.isAvailable());
    phone->cutAfterBytes(70000);
    EXPECT_TRUE(readFrom(open(name()).get(), "/a") == content);
    EXPECT_EQ(phone->counters().value("accepted"), 2);
}

INSTANTIATE_TEST_SUITE_P(Phones, NetworkPhoneBothWays, testing::Bool(),
                         [](const auto &instance) { return instance.param ? "encrypted" : "clear"; });

TEST_F(NetworkPhone, IsFoundByItsNameAndAsTheOnlyDevice)
{
    startPhone(onNetwork());
    for (const QString &argument : {QStringLiteral("usb"), QStringLiteral("afc:"), name()}) {
        const devicehost::ResolvedDevice device = devicehost::resolveDevice(argument);
        EXPECT_EQ(device.status, DeviceStatus::Found) << argument.toStdString();
        EXPECT_EQ(device.devicePath, name());
    }
    EXPECT_NE(open(QStringLiteral("afc:")), nullptr);
}

TEST_F(NetworkPhone, ThatLeavesIsSaidToBeGone)
{
    startPhone(onNetwork());
    DeviceHost host(name());
    const Device device = open(name());
    phone->command("detach");
    EXPECT_EQ(vFileOpen(device.get(), "/a", 0), nullptr);
    EXPECT_EQ(devicehost::lastOpenError().text, "the device is not connected");
    EXPECT_THAT(devicehost::lastOpenError().advice.toStdString(), HasSubstr("over the network"));
    phone->command("attach");
    EXPECT_EQ(readFrom(device.get(), "/a"), content);
}

TEST_F(NetworkPhone, WithACableIsListedOnceAndReadOverTheCable)
{
    startPhone(onNetwork(true));
    const devicehost::UsbDevices found = devicehost::listUsbDevices();
    ASSERT_EQ(found.devices.size(), 1);
    EXPECT_EQ(found.devices[0].connection, UsbDevice::Connection::Usb);
    DeviceHost host(name());
    ASSERT_TRUE(host.isAvailable());
    phone->command("detach network"); // would cut a connection over the network
    EXPECT_EQ(readFrom(open(name()).get(), "/a"), content);
    EXPECT_EQ(phone->counters().value("accepted"), 1);
}

TEST_F(NetworkPhone, GoesOnOverTheNetworkWhenTheCableIsPulled)
{
    startPhone(onNetwork(true));
    DeviceHost host(name());
    const Device device = open(name());
    const File file(vFileOpen(device.get(), "/a", 0));
    ASSERT_NE(file, nullptr);
    char buffer[1000];
    ASSERT_EQ(vFileRead(file.get(), buffer, 1000), 1000);
    phone->command("detach usb");
    EXPECT_EQ(vFileRead(file.get(), buffer, 1000), 1000);
    EXPECT_EQ(QByteArray(buffer, 1000), content.mid(1000, 1000));
    ASSERT_EQ(devicehost::listUsbDevices().devices.size(), 1);
    EXPECT_EQ(devicehost::listUsbDevices().devices[0].connection, UsbDevice::Connection::Network);
}

TEST_F(NetworkPhone, IsNotMeantByUsbWhereAnotherOneIsOnUsb)
{
    startPhones(onNetwork(), SimulatedPhoneOptions());
    EXPECT_EQ(devicehost::resolveDevice(QStringLiteral("usb")).devicePath, QStringLiteral("afc:") + secondUdid);
    EXPECT_EQ(devicehost::resolveDevice(name()).devicePath, name());
    EXPECT_NE(open(QStringLiteral("afc:")), nullptr);
    phone->command(QByteArray("@") + secondUdid + " wait accepted 1");
    EXPECT_EQ(phone->counters().value("accepted"), 0);
}

TEST_F(NetworkPhone, OfSeveralOnesOneHasToBeNamed)
{
    startPhones(onNetwork(), onNetwork());
    const devicehost::ResolvedDevice device = devicehost::resolveDevice(QStringLiteral("usb"));
    EXPECT_EQ(device.status, DeviceStatus::Unreachable);
    for (const char *part : {"several devices are connected", "(Simulated phone, over the network)", "(Other phone, "})
        EXPECT_THAT(device.message.toStdString(), HasSubstr(part));
    EXPECT_EQ(open(QStringLiteral("afc:")), nullptr);
    EXPECT_NE(open(QStringLiteral("afc:") + secondUdid), nullptr);
}
