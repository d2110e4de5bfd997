#include "testing/simulated_phone.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

#include <stdexcept>

#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{

using testkit::SimulatedPhone;
using testkit::SimulatedPhoneOptions;

/// True when something listens at the phone's address, a Unix socket.
bool canConnect(const QByteArray &address)
{
    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    qstrncpy(name.sun_path, address.mid(5).constData(), sizeof name.sun_path);
    const bool connected = ::connect(connection, reinterpret_cast<const sockaddr *>(&name), sizeof name) == 0;
    ::close(connection);
    return connected;
}

TEST(SimulatedPhone, ListensWhenItIsMadeAndNoLongerWhenItIsGone)
{
    const QTemporaryDir root;
    QByteArray address;
    {
        const SimulatedPhone phone(root.path());
        address = phone.address();
        EXPECT_TRUE(address.startsWith("UNIX:/")) << address.constData();
        EXPECT_TRUE(canConnect(address));
    }
    EXPECT_FALSE(canConnect(address));
}

TEST(SimulatedPhone, ListensOnAPortWhenAsked)
{
    const QTemporaryDir root;
    SimulatedPhoneOptions options;
    options.overPort = true;
    const SimulatedPhone phone(root.path(), options);
    EXPECT_TRUE(phone.address().startsWith("127.0.0.1:")) << phone.address().constData();
}

TEST(SimulatedPhone, IsNamedInTheEnvironmentAsLongAsItLives)
{
    const QTemporaryDir root;
    qputenv("USBMUXD_SOCKET_ADDRESS", "earlier");
    {
        SimulatedPhone phone(root.path());
        phone.useHere();
        EXPECT_EQ(qgetenv("USBMUXD_SOCKET_ADDRESS"), phone.address());
    }
    EXPECT_EQ(qgetenv("USBMUXD_SOCKET_ADDRESS"), QByteArray("earlier"));
}

TEST(SimulatedPhone, ThrowsWhatACommandIsRefusedFor)
{
    const QTemporaryDir root;
    const SimulatedPhone phone(root.path());
    for (const char *wrong : {"nonsense", "fault", "fault explode", "fault cut when=now", "fault cut at=soon",
                              "fault status at=1", "slow down=1", "wait nothing 0", "@nobody counters", "two\nlines"})
        EXPECT_THROW(phone.command(wrong), std::runtime_error) << wrong;
    EXPECT_EQ(phone.command("unlock"), QByteArray());
}

TEST(SimulatedPhone, ThrowsWithoutItsFolder)
{
    EXPECT_THROW(SimulatedPhone(QStringLiteral("/nowhere/at/all")), std::runtime_error);
}

TEST(SimulatedPhone, CountsNothingWhereNothingWasDone)
{
    const QTemporaryDir root;
    const SimulatedPhone phone(root.path());
    const SimulatedPhone::Counters counters = phone.counters();
    EXPECT_EQ(counters.size(), 10);
    for (const qint64 value : counters)
        EXPECT_EQ(value, 0);
    phone.waitFor("operations", 0);
}

TEST(SimulatedPhone, EndsWithAProcessThatDies)
{
    const QTemporaryDir root;
    int channel[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, channel), 0);
    const pid_t child = ::fork();
    if (child == 0) {
        ::close(channel[0]);
        const SimulatedPhone phone(root.path());
        const QByteArray address = phone.address();
        const bool written = ::write(channel[1], address.constData(), static_cast<size_t>(address.size())) > 0;
        char byte = 0;
        // The test ends the child here, without its destructors, when it has seen the phone at work.
        ::_exit(written && ::read(channel[1], &byte, 1) == 1 ? 0 : 1);
    }
    ::close(channel[1]);
    char text[256];
    const ssize_t count = ::read(channel[0], text, sizeof text);
    ASSERT_GT(count, 0);
    const QByteArray address(text, static_cast<int>(count));

    const int connection = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un name{};
    name.sun_family = AF_UNIX;
    qstrncpy(name.sun_path, address.mid(5).constData(), sizeof name.sun_path);
    EXPECT_EQ(::connect(connection, reinterpret_cast<const sockaddr *>(&name), sizeof name), 0);
    ::close(channel[0]);
    int status = -1;
    ::waitpid(child, &status, 0);
    EXPECT_EQ(status, 1 << 8);
    // Returns when the phone's process is gone.
    char byte = 0;
    EXPECT_LE(::read(connection, &byte, 1), 0);
    ::close(connection);
    EXPECT_FALSE(canConnect(address));
}

} // namespace
