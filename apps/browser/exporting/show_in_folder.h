#ifndef APPS_BROWSER_EXPORTING_SHOW_IN_FOLDER_H
#define APPS_BROWSER_EXPORTING_SHOW_IN_FOLDER_H

#include <QStringList>

#include <functional>

class QDBusConnection;
class QObject;

namespace browser
{

/// Has the desktop's file manager show `folder` with the files or folders `names` in it selected. Where no program on
/// `bus` offers that, the folder is just opened; where that cannot be done either, `failed` is called, unless
/// `receiver` is gone by then. Returns at once. User-interface thread.
void showInFolder(const QDBusConnection &bus, const QString &folder, const QStringList &names, QObject *receiver,
                  const std::function<void()> &failed);

} // namespace browser

#endif
