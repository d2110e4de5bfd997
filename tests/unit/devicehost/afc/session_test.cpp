#include "memory_phone.h"
#include "phone_reading.h"
#include "socket_phone.h"

#include "devicehost/afc/errors.h"
#include "devicehost/afc/lane.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <thread>
#include <vector>

using namespace devicehost::afc;

TEST(AfcSession, AConnectionThatNobodyUsesServesTheNextOpening)
{
    MemoryPhone phone;
    phone.files["/a"] = "content";
    const std::shared_ptr<Session> session = phone.session();
    for (int round = 0; round < 10; ++round)
        EXPECT_EQ(readOverSession(session, "/a").content, "content");
    EXPECT_EQ(phone.connections, 1);
}

TEST(AfcSession, DevicesThatAreOpenAtOnceHaveConnectionsOfTheirOwn)
{
    MemoryPhone phone;
    phone.files["/a"] = "content";
    const std::shared_ptr<Session> session = phone.session();
    devicehost::VError error;
    {
        std::vector<std::unique_ptr<VDev>> devices;
        for (int i = 0; i < 7; ++i)
            devices.push_back(openDevice(session, &error));
        EXPECT_EQ(phone.openConnections, 7);
    }
    EXPECT_EQ(phone.openConnections, 4); // a few are kept
    const std::unique_ptr<VDev> next = openDevice(session, &error);
    EXPECT_EQ(phone.connections, 7);
}

TEST(AfcSession, AFileOutlivesItsDevice)
{
    MemoryPhone phone;
    phone.files["/a"] = "content";
    devicehost::VError error;
    std::unique_ptr<VDev> device = openDevice(phone.session(), &error);
    const std::unique_ptr<VFile> file = device->openFile("/a", 0, &error);
    device.reset();
    char buffer[10];
    EXPECT_EQ(file->read(buffer, 10, &error), 7);
}

TEST(AfcSession, ThreadsReadBesideOneAnother)
{
    MemoryPhone phone;
    const QByteArray content = patterned(100000);
    phone.files["/a"] = content;
    const std::shared_ptr<Session> session = phone.session();
    devicehost::VError error;
    const std::unique_ptr<VDev> shared = openDevice(session, &error);
    std::vector<std::thread> threads;
    std::atomic<int> right{0};
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&, i] {
            devicehost::VError mine;
            const std::unique_ptr<VDev> own = i % 2 == 0 ? openDevice(session, &mine) : nullptr;
            VDev *const device = own != nullptr ? own.get() : shared.get();
            for (int round = 0; round < 20; ++round) {
                const std::unique_ptr<VFile> file = device->openFile("/a", 0, &mine);
                QByteArray buffer(content.size(), '\0');
                if (file != nullptr && file->read(buffer.data(), buffer.size(), &mine) == buffer.size())
                    right += buffer == content ? 1 : 0;
            }
        });
    }
    for (std::thread &thread : threads)
        thread.join();
    EXPECT_EQ(right, 80);
}

TEST(AfcSession, ARequestToStopEndsEverythingBeforeItBegins)
{
    MemoryPhone phone;
    phone.files["/a"] = "content";
    const auto stop = std::make_shared<std::atomic<bool>>(false);
    const std::shared_ptr<Session> session = phone.session(stop);
    devicehost::VError error;
    std::unique_ptr<VDev> device = openDevice(session, &error);
    std::unique_ptr<VFile> file = device->openFile("/a", 0, &error);
    const int before = phone.operations.size();
    *stop = true;
    char buffer[10];
    EXPECT_EQ(file->read(buffer, 10, &error), -1);
    EXPECT_EQ(error.code, ECANCELED);
    EXPECT_EQ(device->openFile("/a", 0, &error), nullptr);
    EXPECT_EQ(openDevice(session, &error), nullptr);
    EXPECT_EQ(error.code, ECANCELED);
    file.reset();
    device.reset();
    EXPECT_EQ(phone.operations.size(), before);
    EXPECT_EQ(phone.connections, 1);
    EXPECT_EQ(phone.openConnections, 0);
}

namespace
{

/// A phone to which no connection can be made.
class NoPhone final : public Connector
{
public:
    NoPhone(ErrorSource reasonSource, qint64 reasonCode, int *counter)
        : source(reasonSource), code(reasonCode), attempts(counter)
    {
    }

    std::unique_ptr<Transport> connect(std::chrono::milliseconds, const std::function<bool()> &,
                                       devicehost::VError *error) override
    {
        ++*attempts;
        *error = explain(source, code);
        return nullptr;
    }

private:
    const ErrorSource source;
    const qint64 code;
    int *const attempts;
};

/// How often a connection is tried when the device is opened a hundred times.
int attemptsOfAHundred(ErrorSource source, qint64 code, std::chrono::milliseconds rest)
{
    int attempts = 0;
    const auto session = std::make_shared<Session>(
        std::make_unique<NoPhone>(source, code, &attempts), std::chrono::hours(1), [] { return false; }, rest);
    for (int round = 0; round < 100; ++round) {
        devicehost::VError error;
        EXPECT_EQ(openDevice(session, &error), nullptr);
        EXPECT_EQ(error.text, explain(source, code).text);
        EXPECT_EQ(error.advice, explain(source, code).advice);
    }
    return attempts;
}

} // namespace

TEST(AfcSession, ASilentDeviceCostsOneTimeOutAndIsThenLeftAloneForAWhile)
{
    EXPECT_EQ(attemptsOfAHundred(ErrorSource::Client, TimedOut, std::chrono::hours(1)), 1);
    EXPECT_EQ(attemptsOfAHundred(ErrorSource::Link, -7, std::chrono::hours(1)), 1);
}

TEST(AfcSession, ADeviceIsTriedAgainWhenItsRestIsOver)
{
    EXPECT_EQ(attemptsOfAHundred(ErrorSource::Client, TimedOut, std::chrono::milliseconds(0)), 100);
}

TEST(AfcSession, AfterOtherFailuresADeviceIsTriedAgainAtOnce)
{
    EXPECT_EQ(attemptsOfAHundred(ErrorSource::Link, -3, std::chrono::hours(1)), 100);
    EXPECT_EQ(attemptsOfAHundred(ErrorSource::Lockdown, -17, std::chrono::hours(1)), 100);
}

// Were a waiting operation not ended, the following tests would not end either.

TEST(AfcSocket, ASilentDeviceIsGivenUpInTime)
{
    SocketPhone phone;
    const auto session = phone.session(std::chrono::milliseconds(30), [] { return false; });
    const Reading reading = readOverSession(session, "/a");
    EXPECT_FALSE(reading.opened);
    EXPECT_EQ(reading.error.code, ETIMEDOUT);
}

TEST(AfcSocket, AnAnswerThatTricklesIsGivenUpInTime)
{
    SocketPhone phone;
    const auto session = phone.session(std::chrono::milliseconds(30), [] { return false; });
    phone.trickle();
    const Reading reading = readOverSession(session, "/a");
    EXPECT_FALSE(reading.opened);
    EXPECT_EQ(reading.error.code, ETIMEDOUT);
}

TEST(AfcSocket, AWaitingReadEndsWhenTheUserStops)
{
    SocketPhone phone;
    std::atomic<bool> stop{false};
    const auto session = phone.session(std::chrono::hours(1), [&stop] { return stop.load(); });
    std::thread user([&] {
        phone.awaitRequest();
        stop = true;
    });
    const Reading reading = readOverSession(session, "/a");
    user.join();
    EXPECT_EQ(reading.error.code, ECANCELED);
}

TEST(AfcSocket, AnIdleConnectionThatHasEndedIsNotUsed)
{
    SocketPhone phone;
    const auto session = phone.session(std::chrono::hours(1), [] { return false; });
    devicehost::VError error;
    EXPECT_NE(openDevice(session, &error), nullptr);
    EXPECT_NE(openDevice(session, &error), nullptr);
    EXPECT_EQ(phone.connections(), 1);
    phone.hangUp();
    EXPECT_NE(openDevice(session, &error), nullptr);
    EXPECT_EQ(phone.connections(), 2);
}
