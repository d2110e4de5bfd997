#ifndef APPS_BROWSER_WINDOW_PRESENCE_WATCH_H
#define APPS_BROWSER_WINDOW_PRESENCE_WATCH_H

#include <QObject>
#include <QTimer>

namespace browser
{

/// Looks every few seconds, on threads of its own, whether a device is still there: a phone that nobody reads from says
/// nothing when its cable is pulled. Backups on this computer are not looked for.
class PresenceWatch : public QObject
{
    Q_OBJECT

public:
    explicit PresenceWatch(QObject *parent = nullptr);

    /// Begins anew with this device, a name with a scheme.
    void watch(const QString &device);

Q_SIGNALS:
    /// Once; watch() begins anew.
    void gone();

private:
    void look();

    QTimer timer;
    QString watched;
    int number = 0; ///< of the watch that counts
    bool looking = false;
};

} // namespace browser

#endif
