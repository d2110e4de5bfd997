#include "devicehost/afc/device_path.h"

#include <QList>

namespace devicehost::afc
{

QByteArray devicePath(const char *name)
{
    const QList<QByteArray> parts = QByteArray(name).split('/');
    QByteArray path;
    for (const QByteArray &part : parts) {
        if (part == "..")
            return {};
        if (!part.isEmpty() && part != ".")
            path += '/' + part;
    }
    // A slash at the end asks for a folder: the device answers for that.
    const bool wantsFolder = !parts.isEmpty() && (parts.last().isEmpty() || parts.last() == ".");
    return wantsFolder ? path + '/' : path;
}

} // namespace devicehost::afc
