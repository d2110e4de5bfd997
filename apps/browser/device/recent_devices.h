#ifndef APPS_BROWSER_DEVICE_RECENT_DEVICES_H
#define APPS_BROWSER_DEVICE_RECENT_DEVICES_H

#include "apps/browser/device/found_device.h"

#include <QStringList>

namespace browser
{

/// What was opened before, newest first, kept in the settings of the application. User-interface thread.
namespace recent
{

constexpr int most = 12;

QVector<FoundDevice> devices();
void add(const QString &device, const QString &title);
void forget(const QString &device);

/// Folders that people chose and that turned out to hold several backups: these are listed, too.
QStringList folders();
void addFolder(const QString &path);

} // namespace recent
} // namespace browser

#endif
