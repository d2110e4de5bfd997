#ifndef TESTS_UNIT_DEVICEHOST_AFC_MEMORY_PHONE_H
#define TESTS_UNIT_DEVICEHOST_AFC_MEMORY_PHONE_H

#include "devicehost/afc/packet.h"
#include "devicehost/afc/session.h"

#include <QByteArray>
#include <QList>
#include <QMap>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>

/// The file service of a phone within this process, without sockets and threads, so that a test can break it at every
/// byte. The settings are made before it is used.
class MemoryPhone
{
public:
    static constexpr qint64 never = -1;

    QMap<QByteArray, QByteArray> files; ///< content by absolute path
    QList<QByteArray> folders;
    QList<QByteArray> links;
    QByteArray modified = "1700000000000000000";

    /// The bytes that are sent before the first connection breaks; before each one with `cutAlways`.
    qint64 cutAfter = never;
    bool cutAlways = false;
    bool stallInsteadOfCut = false; ///< nothing comes any more, but the connection stays

    int connectionsAllowed = 1000000; ///< further ones are refused as if the phone was unplugged
    qint64 largestAnswer = never;     ///< reads give no more than this at once
    qint64 mostAtOnce = never;        ///< bytes that one receive() gives at most

    /// Changes the answer to the n-th operation, counted from 1 over all connections, before it is sent.
    std::function<void(int number, devicehost::afc::Operation operation, QByteArray *answer)> edit;

    /// Counted by the phone.
    int connections = 0;
    int openConnections = 0;
    int openHandles = 0;
    qint64 bytesSent = 0;
    QList<devicehost::afc::Operation> operations;

    /// A session with this phone, which must outlive it. `stop` may be null.
    std::shared_ptr<devicehost::afc::Session> session(std::shared_ptr<std::atomic<bool>> stop = nullptr);

    /// An answer as the phone sends it.
    static QByteArray answer(quint64 packetNumber, devicehost::afc::Operation operation, const QByteArray &parameters,
                             const QByteArray &payload = QByteArray());
    static QByteArray status(quint64 packetNumber, quint64 code);

private:
    friend class MemoryConnection;
    friend class MemoryConnector;

    std::mutex mutex; ///< connections may be used on several threads
};

#endif
