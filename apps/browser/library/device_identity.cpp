#include "apps/browser/library/device_identity.h"

#include "apps/browser/library/device_title.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace browser
{

namespace
{

const char phoneScheme[] = "afc:";

// Of a phone that the desktop has mounted: its folder is named after it.
QString mountedPhone(const QString &path)
{
    static const QRegularExpression mount(QStringLiteral("/gvfs/afc:host=([^,/]+)$"));
    return mount.match(path).captured(1);
}

} // namespace

QString deviceIdentity(const QString &device)
{
    const QString path = localPathOf(device);
    if (path.isEmpty())
        return device.startsWith(QLatin1String(phoneScheme)) ? device.toLower() : device;
    const QString canonical = QFileInfo(path).canonicalFilePath();
    const QString phone = mountedPhone(canonical);
    if (!phone.isEmpty())
        return QLatin1String(phoneScheme) + phone.toLower();
    return canonical.isEmpty() ? device : canonical;
}

} // namespace browser
