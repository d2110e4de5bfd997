#include "tests/cli/media_device.h"

#include <QDateTime>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace clitest
{

qint64 MediaDevice::addPhoto(const QString &name, int size, testkit::AssetRow row)
{
    ++photos;
    row.fileName = name;
    if (row.directory.isNull())
        row.directory = QStringLiteral("DCIM/100APPLE");
    if (!row.dateCreated)
        row.dateCreated = newYearNoon(2020) + photos;
    addFile(row.directory + QChar('/') + name, bytesOfPhoto(photos, size));
    return builder.addAsset(row);
}

void MediaDevice::addPhotos(int count, int size)
{
    for (int n = 1; n <= count; ++n)
        addPhoto(QStringLiteral("IMG_%1.JPG").arg(n, 4, 10, QChar('0')), size);
}

void MediaDevice::addFile(const QString &relative, const QByteArray &content)
{
    const QString name = path(relative);
    QDir().mkpath(QFileInfo(name).path());
    QFile file(name);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate) || file.write(content) != content.size())
        qFatal("a file of the test device cannot be written");
}

void MediaDevice::removeFile(const QString &relative)
{
    if (!QFile::remove(path(relative)))
        qFatal("a file of the test device cannot be removed");
}

void MediaDevice::write()
{
    QFile::remove(folder.database());
    builder.write(folder.database());
}

QByteArray MediaDevice::content(const QString &relative) const
{
    return contentOfFile(path(relative));
}

QByteArray bytesOfPhoto(int n, int size)
{
    QByteArray bytes(size, '\0');
    auto state = static_cast<unsigned>(n) * 2654435761U + 1;
    for (char &byte : bytes) {
        state = state * 1664525U + 1013904223U;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

QMap<QString, QByteArray> treeOf(const QString &folder)
{
    QMap<QString, QByteArray> tree;
    QDirIterator files(folder, QDir::Files | QDir::Hidden | QDir::System, QDirIterator::Subdirectories);
    while (files.hasNext()) {
        const QString name = files.next();
        if (files.fileName().startsWith(QStringLiteral(".photolib-export.sqlite")))
            continue;
        const QByteArray time = files.fileInfo().lastModified().toUTC().toString(Qt::ISODateWithMs).toLatin1();
        tree.insert(QDir(folder).relativeFilePath(name), time + ' ' + contentOfFile(name));
    }
    return tree;
}

QByteArray contentOfFile(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QByteArray tinyJpeg()
{
    return QByteArray::fromBase64(
        "/9j/4AAQSkZJRgABAQEAZABkAAD/2wBDABsSFBcUERsXFhceHBsgKEIrKCUlKFE6PTBCYFVlZF9VXVtqeJmBanGQc1tdhbWGkJ6j"
        "q62rZ4C8ybqmx5moq6T/2wBDARweHigjKE4rK06kbl1upKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSkpKSk"
        "pKSkpKSkpKT/wAARCAAGAAgDASIAAhEBAxEB/8QAHwAAAQUBAQEBAQEAAAAAAAAAAAECAwQFBgcICQoL/8QAtRAAAgEDAwIEAwUF"
        "BAQAAAF9AQIDAAQRBRIhMUEGE1FhByJxFDKBkaEII0KxwRVS0fAkM2JyggkKFhcYGRolJicoKSo0NTY3ODk6Q0RFRkdISUpTVFVW"
        "V1hZWmNkZWZnaGlqc3R1dnd4eXqDhIWGh4iJipKTlJWWl5iZmqKjpKWmp6ipqrKztLW2t7i5usLDxMXGx8jJytLT1NXW19jZ2uHi"
        "4+Tl5ufo6erx8vP09fb3+Pn6/8QAHwEAAwEBAQEBAQEBAQAAAAAAAAECAwQFBgcICQoL/8QAtREAAgECBAQDBAcFBAQAAQJ3AAEC"
        "AxEEBSExBhJBUQdhcRMiMoEIFEKRobHBCSMzUvAVYnLRChYkNOEl8RcYGRomJygpKjU2Nzg5OkNERUZHSElKU1RVVldYWVpjZGVm"
        "Z2hpanN0dXZ3eHl6goOEhYaHiImKkpOUlZaXmJmaoqOkpaanqKmqsrO0tba3uLm6wsPExcbHyMnK0tPU1dbX2Nna4uPk5ebn6Onq"
        "8vP09fb3+Pn6/9oADAMBAAIRAxEAPwCtRRRXonKf/9k=");
}

QStringList namesIn(const QString &folder)
{
    return QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot);
}

} // namespace clitest
