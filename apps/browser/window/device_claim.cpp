#include "apps/browser/window/device_claim.h"

#include "apps/browser/library/background.h"

#include <QCryptographicHash>
#include <QLocalSocket>
#include <QStandardPaths>

namespace browser
{

namespace
{

constexpr int patience = 1000; ///< milliseconds for a process of this computer to take a connection

// The place is this user's alone.
QString socketPath(const QString &identity)
{
    const QByteArray hash = QCryptographicHash::hash(identity.toUtf8(), QCryptographicHash::Sha256);
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation) + QStringLiteral("/photolib-browser-") +
           QString::fromLatin1(hash.toHex().left(16));
}

void askToRaise(const QString &path)
{
    startBackground([path] {
        QLocalSocket socket;
        socket.connectToServer(path);
        socket.waitForConnected(patience);
    });
}

} // namespace

DeviceClaim::DeviceClaim(const QString &identity, const QString &path)
    : name(identity), lock(path + QStringLiteral(".lock"))
{
    lock.setStaleLockTime(0); // held as long as the process lives
}

std::unique_ptr<DeviceClaim> DeviceClaim::take(const QString &identity)
{
    const QString path = socketPath(identity);
    std::unique_ptr<DeviceClaim> claim(new DeviceClaim(identity, path));
    if (!claim->lock.tryLock(0) && claim->lock.error() == QLockFile::LockFailedError) {
        askToRaise(path);
        return nullptr;
    }
    // A window that cannot be found by others is better than none.
    QLocalServer::removeServer(path);
    claim->server.setSocketOptions(QLocalServer::UserAccessOption);
    claim->server.listen(path);
    DeviceClaim *const made = claim.get();
    connect(&made->server, &QLocalServer::newConnection, made, [made] {
        while (QLocalSocket *const caller = made->server.nextPendingConnection())
            caller->deleteLater();
        Q_EMIT made->raiseRequested();
    });
    return claim;
}

} // namespace browser
