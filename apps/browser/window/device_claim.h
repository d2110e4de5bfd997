#ifndef APPS_BROWSER_WINDOW_DEVICE_CLAIM_H
#define APPS_BROWSER_WINDOW_DEVICE_CLAIM_H

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

#include <memory>

namespace browser
{

/// That one window of this user shows a device: held while it does. User-interface thread.
class DeviceClaim : public QObject
{
    Q_OBJECT

public:
    /// Null when another window has the device, in this process or another one; that one is then asked to come to the
    /// front, on a thread of its own. `identity` is what deviceIdentity() says of the device.
    static std::unique_ptr<DeviceClaim> take(const QString &identity);

    const QString &identity() const { return name; }

Q_SIGNALS:
    /// Somebody else wants this device: the window is to come to the front.
    void raiseRequested();

private:
    DeviceClaim(const QString &identity, const QString &path);

    const QString name;
    QLockFile lock;
    QLocalServer server;
};

} // namespace browser

#endif
