#include "fuzz/device_folder.h"

#include "fuzz/require.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace fuzz
{

namespace
{

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    require(file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && file.write(content) == content.size(),
            "the place for temporary files can be written to");
}

} // namespace

DeviceFolder::DeviceFolder() : folder(QDir::tempPath() + QStringLiteral("/fuzz-device-XXXXXX"))
{
    require(folder.isValid(), "a folder for the device can be made");
    write(folder.filePath(QStringLiteral("secret")), forbiddenContent());
    put(QStringLiteral("/DCIM/100APPLE/IMG_0001.JPG"), "a photo");
    put(QStringLiteral("/PhotoData/Thumbnails/V2/DCIM/100APPLE/IMG_0002.JPG/5005.JPG"), "a thumbnail");
    // The ways out that a hostile library tries: "..", and a link that some host may have made.
    QFile::link(QStringLiteral("../secret"), folder.filePath(QStringLiteral("device/DCIM/100APPLE/LINK.JPG")));
}

QString DeviceFolder::name() const
{
    return QStringLiteral("folder:") + folder.filePath(QStringLiteral("device"));
}

void DeviceFolder::put(const QString &path, const QByteArray &content)
{
    const QString target = folder.filePath(QStringLiteral("device")) + path;
    QDir().mkpath(QFileInfo(target).path());
    write(target, content);
}

void DeviceFolder::remove(const QString &path)
{
    QFile::remove(folder.filePath(QStringLiteral("device")) + path);
}

QByteArray DeviceFolder::forbiddenContent()
{
    return "this lies outside of the device";
}

} // namespace fuzz
