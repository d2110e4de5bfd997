#ifndef APPS_BROWSER_DEVICE_DEVICE_WATCHER_H
#define APPS_BROWSER_DEVICE_DEVICE_WATCHER_H

#include "apps/browser/device/search.h"

#include <QObject>
#include <QTimer>

namespace browser
{

/// Looks for devices again and again, on threads of its own. One question is on its way at a time, however long its
/// answer takes. User-interface thread.
class DeviceWatcher : public QObject
{
    Q_OBJECT

public:
    explicit DeviceWatcher(QObject *parent = nullptr);

    /// Besides usualPlaces().
    void setBackupFolders(const QStringList &folders);

    /// Looks now, and then every few seconds.
    void start();
    void stop();

Q_SIGNALS:
    void phonesFound(const browser::FoundPhones &phones);
    /// Mounted phones and backups.
    void foldersFound(const QVector<browser::FoundDevice> &devices);

private:
    void lookForPhones();
    void lookForFolders();

    QTimer phoneTimer;
    QTimer folderTimer;
    QStringList backupFolders;
    bool asksPhones = false;
    bool looksAtFolders = false;
};

} // namespace browser

#endif
