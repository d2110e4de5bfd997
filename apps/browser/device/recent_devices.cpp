#include "apps/browser/device/recent_devices.h"

#include "apps/browser/library/device_title.h"

#include <QDir>
#include <QSettings>

#include <algorithm>

namespace browser::recent
{

namespace
{

const char listKey[] = "recent/devices";
const char foldersKey[] = "recent/folders";

void store(const QVector<FoundDevice> &list)
{
    QSettings settings;
    settings.remove(QLatin1String(listKey));
    settings.beginWriteArray(QLatin1String(listKey), list.size());
    for (int row = 0; row < list.size(); ++row) {
        settings.setArrayIndex(row);
        settings.setValue(QStringLiteral("device"), list[row].device);
        settings.setValue(QStringLiteral("title"), list[row].title);
    }
    settings.endArray();
}

void removeFrom(QVector<FoundDevice> *list, const QString &device)
{
    list->erase(
        std::remove_if(list->begin(), list->end(), [&device](const FoundDevice &one) { return one.device == device; }),
        list->end());
}

} // namespace

QVector<FoundDevice> devices()
{
    QVector<FoundDevice> list;
    QSettings settings;
    const int count = std::min(settings.beginReadArray(QLatin1String(listKey)), most);
    for (int row = 0; row < count; ++row) {
        settings.setArrayIndex(row);
        const QString device = settings.value(QStringLiteral("device")).toString();
        if (!device.isEmpty())
            list.append({kindOfDevice(device), device, settings.value(QStringLiteral("title")).toString(),
                         QDir::toNativeSeparators(localPathOf(device))});
    }
    settings.endArray();
    return list;
}

void add(const QString &device, const QString &title)
{
    QVector<FoundDevice> list = devices();
    removeFrom(&list, device);
    list.prepend({kindOfDevice(device), device, title, {}});
    store(list.mid(0, most));
}

void forget(const QString &device)
{
    QVector<FoundDevice> list = devices();
    removeFrom(&list, device);
    store(list);
}

QStringList folders()
{
    return QSettings().value(QLatin1String(foldersKey)).toStringList();
}

void addFolder(const QString &path)
{
    QStringList list = folders();
    list.removeAll(path);
    list.prepend(path);
    QSettings().setValue(QLatin1String(foldersKey), QStringList(list.mid(0, most)));
}

} // namespace browser::recent
