#include "apps/browser/exporting/show_in_folder.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QDir>
#include <QUrl>

namespace browser
{

void showInFolder(const QDBusConnection &bus, const QString &folder, const QStringList &names, QObject *receiver,
                  const std::function<void()> &failed)
{
    const auto openFolder = [folder, failed] {
        if (!QDesktopServices::openUrl(QUrl::fromLocalFile(folder)))
            failed();
    };
    if (names.isEmpty() || !bus.isConnected()) {
        openFolder();
        return;
    }
    QStringList urls;
    for (const QString &name : names)
        urls += QString::fromLatin1(QUrl::fromLocalFile(QDir(folder).filePath(name)).toEncoded());
    const QString service = QStringLiteral("org.freedesktop.FileManager1");
    QDBusMessage call = QDBusMessage::createMethodCall(service, QStringLiteral("/org/freedesktop/FileManager1"),
                                                       service, QStringLiteral("ShowItems"));
    call.setArguments({urls, QString()});
    auto *const watcher = new QDBusPendingCallWatcher(bus.asyncCall(call), receiver);
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, receiver, [watcher, openFolder] {
        watcher->deleteLater();
        if (watcher->isError())
            openFolder();
    });
}

} // namespace browser
