#ifndef TESTS_CLI_MEDIA_DEVICE_H
#define TESTS_CLI_MEDIA_DEVICE_H

#include "tests/cli/device_folder.h"

#include <QMap>

namespace clitest
{

/// A device folder whose photos have files, each with bytes of its own. Call write() when all rows are there.
class MediaDevice
{
public:
    MediaDevice() : builder(testkit::Era::Ios15, plain()) {}

    /// A photo with this name, dated 2020-01-01 12:00 UTC, and its file in DCIM/100APPLE. Answers its id.
    qint64 addPhoto(const QString &name, int size = 3000, testkit::AssetRow row = {});
    void addPhotos(int count, int size);
    /// A file of the device, by its path below the root.
    void addFile(const QString &relative, const QByteArray &content);
    void removeFile(const QString &relative);
    void write();

    QString path() const { return folder.path(); }
    QString path(const QString &relative) const { return folder.path() + QChar('/') + relative; }
    QByteArray content(const QString &relative) const;

    testkit::LibraryBuilder builder;

private:
    DeviceFolder folder;
    int photos = 0;
};

/// The bytes that addPhoto() gives to the n-th photo, counted from 1.
QByteArray bytesOfPhoto(int n, int size);

/// Every file below a folder with its time and content, by relative path; not those whose names begin with
/// ".photolib-export.sqlite".
QMap<QString, QByteArray> treeOf(const QString &folder);

QByteArray contentOfFile(const QString &path);

/// A JPEG of 8x6 pixels.
QByteArray tinyJpeg();

/// Whether a name is there, also one that only the dot in front hides.
QStringList namesIn(const QString &folder);

} // namespace clitest

#endif
