#ifndef TESTS_UNIT_DEVICEHOST_AFC_SILENT_DAEMON_H
#define TESTS_UNIT_DEVICEHOST_AFC_SILENT_DAEMON_H

#include "devicehost/vdev/unique_fd.h"

#include <QByteArray>
#include <QString>

#include <gtest/gtest.h>

#include <sys/socket.h>
#include <sys/un.h>

/// Stands in this process's environment in place of the daemon that finds devices: connections are made, and nothing
/// is ever answered. When it goes, they end.
class SilentDaemon
{
public:
    explicit SilentDaemon(const QString &folder)
        : listening(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)), path((folder + "/silent").toUtf8())
    {
        sockaddr_un name = {};
        name.sun_family = AF_UNIX;
        qstrncpy(name.sun_path, path.constData(), sizeof name.sun_path);
        EXPECT_EQ(::bind(listening.get(), reinterpret_cast<const sockaddr *>(&name), sizeof name), 0);
        EXPECT_EQ(::listen(listening.get(), 64), 0);
        qputenv("USBMUXD_SOCKET_ADDRESS", "UNIX:" + path);
    }
    ~SilentDaemon() { qunsetenv("USBMUXD_SOCKET_ADDRESS"); }
    SilentDaemon(const SilentDaemon &) = delete;
    SilentDaemon &operator=(const SilentDaemon &) = delete;

private:
    const devicehost::UniqueFd listening;
    const QByteArray path;
};

#endif
