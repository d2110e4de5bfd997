#ifndef APPS_BROWSER_DEVICE_FOUND_DEVICE_H
#define APPS_BROWSER_DEVICE_FOUND_DEVICE_H

#include <QDateTime>
#include <QString>
#include <QVector>

namespace browser
{

/// Something that can be opened. A plain value.
struct FoundDevice {
    enum class Kind {
        Phone,  ///< connected now
        Folder, ///< a phone that another program has mounted, or a copy of one
        Backup,
    };
    Kind kind = Kind::Folder;
    QString device; ///< for an Opener
    QString title;  ///< what people call it
    QString detail; ///< one line, may be empty

    bool operator==(const FoundDevice &other) const
    {
        return kind == other.kind && device == other.device && title == other.title && detail == other.detail;
    }
};

/// What kind of device a name with a scheme is of.
FoundDevice::Kind kindOfDevice(const QString &device);

} // namespace browser

#endif
