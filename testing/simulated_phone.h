#ifndef TESTING_SIMULATED_PHONE_H
#define TESTING_SIMULATED_PHONE_H

#include <QByteArray>
#include <QList>
#include <QMap>
#include <QString>
#include <QTemporaryDir>

#include <mutex>

#include <sys/types.h>

namespace testkit
{

/// One phone of a SimulatedPhone. Settings that change later have commands, too.
struct SimulatedPhoneOptions {
    QString root;    ///< the media root, a local folder that exists; SimulatedPhone(root, options) fills it in
    QByteArray udid; ///< empty: one of its own
    QByteArray name = "Simulated phone";
    QByteArray productVersion = "16.7";
    bool tls = false;      ///< sessions and services are encrypted
    bool paired = true;    ///< computer and phone know each other
    bool locked = false;   ///< no service starts
    bool attached = true;  ///< the daemon lists it
    bool usb = true;       ///< it is connected with a cable
    bool network = false;  ///< it is connected over the network, at an address of its own of this computer
    int maxHandles = 256;  ///< open files a connection
    bool overPort = false; ///< of the first phone, for all: a port of 127.0.0.1 instead of a Unix socket
};

/// Phones behind a daemon of their own, in a process of their own: what a host reaches through usbmuxd, lockdown and
/// the file service, read only, with faults on command. testing/simulated_phone/README.md lists the commands.
///
/// The process is ready when the constructor returns, and ends with this object, or with the process that made it.
/// Every function throws std::runtime_error when the process does not answer or refuses. The functions may be called
/// from any thread; useHere() and the destructor only while no other thread reads the environment.
class SimulatedPhone
{
public:
    using Counters = QMap<QByteArray, qint64>;

    explicit SimulatedPhone(const QString &root, SimulatedPhoneOptions options = {});
    /// Several phones, with different UDIDs; commands go to the first one unless they begin with "@UDID ".
    explicit SimulatedPhone(const QList<SimulatedPhoneOptions> &phones);
    SimulatedPhone(const SimulatedPhone &) = delete;
    SimulatedPhone &operator=(const SimulatedPhone &) = delete;
    ~SimulatedPhone();

    static QByteArray defaultUdid();

    /// For the environment variable USBMUXD_SOCKET_ADDRESS of whoever is to reach the phones.
    QByteArray address() const { return reachedAt; }
    /// Sets the variable in this process, until this object goes.
    void useHere();

    /// Its process, for measuring.
    pid_t processId() const { return process; }

    /// Sends one command line, and returns what followed "ok".
    QByteArray command(const QByteArray &line) const;

    /// The connection is cut when so many more bytes have been sent over all connections to the file service.
    void cutAfterBytes(qint64 bytes) const;
    /// The n-th operation from now, counted from 1, is not answered: its connection is cut. Likewise below.
    void cutAtOperation(qint64 number) const;
    void stallAtOperation(qint64 number) const;
    void failOperation(qint64 number, int statusCode) const;
    /// Every operation on this path fails until clear().
    void failPath(const QByteArray &path, int statusCode) const;
    /// Ends stalls.
    void release() const { command("release"); }
    /// Ends faults, slowness and stalls.
    void clear() const { command("clear"); }

    /// bytes (sent by the file service), operations, connections (open), accepted, handles (open), refused (operations
    /// that would write, or that nobody knows), stalled (connections), and lockdown-bytes, -operations, -connections.
    Counters counters() const;
    /// Returns when the counter has this value; throws when it has not after a minute.
    void waitFor(const QByteArray &counter, qint64 value) const;

private:
    void start(const QList<SimulatedPhoneOptions> &phones);
    void stop();
    QByteArray readLine() const;

    QTemporaryDir folder;
    mutable std::mutex mutex;
    pid_t process = -1;
    int input = -1;
    int output = -1;
    mutable QByteArray received;
    QByteArray reachedAt;
    QByteArray earlierAddress;
    bool used = false;
};

/// A word of a command, whatever characters it holds.
QByteArray quotedWord(const QByteArray &word);

} // namespace testkit

#endif
