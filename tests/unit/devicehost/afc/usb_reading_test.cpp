// Reading from a phone that breaks off, falls silent or leaves.

#include "usb_phone_test.h"

#include "devicehost/device_host.h"
#include "devicehost/open_error.h"
#include "tests/unit/devicehost/support.h"

#include <thread>

using devicehost::DeviceHost;

namespace
{

class UsbReading : public UsbPhoneTest
{
protected:
    /// Whether what is reported as the whole file is the whole file, cut after `bytes` on the way. A connection that
    /// was made before is used.
    void readWithCut(DeviceHost &host, qint64 bytes)
    {
        SCOPED_TRACE(bytes);
        ASSERT_TRUE(host.isAvailable());
        phone->cutAfterBytes(bytes);
        const Device device(vDevOpen(VDevDevice, name().toUtf8().constData()));
        ASSERT_NE(device, nullptr);
        EXPECT_TRUE(readFrom(device.get(), "/a") == content);
        phone->clear();
    }

    void expectNothingLeftOnThePhone() const
    {
        phone->waitFor("handles", 0);
        phone->waitFor("connections", 0);
    }

    static testkit::SimulatedPhoneOptions encryptedIf(bool tls)
    {
        testkit::SimulatedPhoneOptions options;
        options.tls = tls;
        return options;
    }
};

class UsbReadingBothWays : public UsbReading, public testing::WithParamInterface<bool>
{
};

} // namespace

// The protocol is cut at every byte within the process, in broken_connection_test.cpp. Here it is seen that cuts show
// as such through libimobiledevice, so that a few places in every answer are enough.
TEST_P(UsbReadingBothWays, AReadingThatIsCutGoesOnOverANewConnection)
{
    content = patterned(3000);
    startPhone(encryptedIf(GetParam()));
    {
        DeviceHost host(name());
        for (qint64 bytes = 0; bytes < 3400; bytes += GetParam() ? 850 : 97)
            readWithCut(host, bytes);
    }
    expectNothingLeftOnThePhone();
}

TEST_P(UsbReadingBothWays, APhoneThatLeavesWhileItIsReadIsSaidToBeGone)
{
    content = patterned(10000);
    startPhone(encryptedIf(GetParam()));
    DeviceHost host(name());
    const Device device(vDevOpen(VDevDevice, name().toUtf8().constData()));
    const File file(vFileOpen(device.get(), "/a", 0));
    ASSERT_NE(file, nullptr);
    char buffer[1000];
    EXPECT_EQ(vFileRead(file.get(), buffer, 1000), 1000);
    phone->command("detach");
    EXPECT_LT(vFileRead(file.get(), buffer, 1000), 0);
    EXPECT_EQ(vFileOpen(device.get(), "/a", 0), nullptr);
    EXPECT_EQ(devicehost::lastOpenError().text, "the device is not connected");
    EXPECT_EQ(devicehost::lastOpenError().advice,
              "connect it with a cable or over the network, unlock it and try again");
    EXPECT_FALSE(host.isAvailable());
    phone->command("attach");
    EXPECT_TRUE(host.isAvailable());
    EXPECT_EQ(readFrom(device.get(), "/a"), content);
}

// Were the read not ended, it would take half a minute, and the requests to stop would not be its reason.
TEST_P(UsbReadingBothWays, AReadThatWaitsEndsWhenTheUserStops)
{
    startPhone(encryptedIf(GetParam()));
    DeviceHost host(name());
    const Device device(vDevOpen(VDevDevice, name().toUtf8().constData()));
    const File file(vFileOpen(device.get(), "/a", 0));
    ASSERT_NE(file, nullptr);
    phone->command("fault stall reply-bytes=70000");
    std::thread user([&] {
        phone->waitFor("stalled", 1);
        host.requestStop();
    });
    QByteArray buffer(content.size(), '\0');
    EXPECT_LT(vFileRead(file.get(), buffer.data(), buffer.size()), 0);
    EXPECT_EQ(vFileOpen(device.get(), "/a", 0), nullptr);
    EXPECT_EQ(devicehost::lastOpenError().text, "it was stopped");
    user.join();
}

TEST_P(UsbReadingBothWays, AReadThatTakesTooLongFails)
{
    startPhone(encryptedIf(GetParam()));
    devicehost::setUsbTimeout(std::chrono::milliseconds(600));
    DeviceHost host(name());
    const Device device(vDevOpen(VDevDevice, name().toUtf8().constData()));
    phone->command("fault stall times=always reply-bytes=20");
    EXPECT_EQ(vFileOpen(device.get(), "/a", 0), nullptr);
    if (device != nullptr) { // else the opening already took too long
        EXPECT_EQ(devicehost::lastOpenError().text, "the device does not answer");
    }
}

TEST_P(UsbReadingBothWays, OneConnectionServesManyOpeningsAndGoesWithTheHost)
{
    startPhone(encryptedIf(GetParam()));
    {
        DeviceHost host(name());
        for (int round = 0; round < 10; ++round)
            EXPECT_EQ(readFrom(Device(vDevOpen(VDevDevice, name().toUtf8().constData())).get(), "/a"), content);
        EXPECT_EQ(phone->counters().value("accepted"), 1);
        EXPECT_EQ(phone->counters().value("handles"), 0);
        EXPECT_EQ(phone->counters().value("refused"), 0);
    }
    expectNothingLeftOnThePhone();
}

INSTANTIATE_TEST_SUITE_P(Phones, UsbReadingBothWays, testing::Bool(),
                         [](const auto &instance) { return instance.param ? "encrypted" : "clear"; });

TEST_F(UsbReading, ThreadsHaveConnectionsOfTheirOwn)
{
    startPhone();
    DeviceHost host(name());
    const Device first(vDevOpen(VDevDevice, name().toUtf8().constData()));
    std::thread([this] {
        const Device second(vDevOpen(VDevDevice, name().toUtf8().constData()));
        EXPECT_EQ(readFrom(second.get(), "/a"), content);
    }).join();
    EXPECT_EQ(phone->counters().value("accepted"), 2);
    EXPECT_EQ(readFrom(first.get(), "/a"), content);
}

TEST_F(UsbReading, NothingOutsideOfTheMediaFolderIsAskedFor)
{
    startPhone();
    const Device device(vDevOpen(VDevDevice, name().toUtf8().constData()));
    for (const char *path : {"/../a", "../../etc/hostname", "/x/../../a"}) {
        EXPECT_EQ(vFileOpen(device.get(), path, 0), nullptr) << path;
        EXPECT_EQ(devicehost::lastOpenError().text, "the name leads out of the device's media folder");
    }
    EXPECT_EQ(phone->counters().value("operations"), 0);
}
