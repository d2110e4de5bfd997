#include "apps/cli/sample/file_store.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace sample
{

// One level after the other, so that it is known which of them were not there before.
void FileStore::makeFolder(const QString &path)
{
    if (QFileInfo(path).isDir())
        return;
    const QString above = QFileInfo(path).path();
    if (above != path)
        makeFolder(above);
    if (!QDir().mkdir(path))
        throw FileError(QStringLiteral("cannot create the folder %1: %2").arg(path, qt_error_string()));
    madeFolders.append(path);
}

void FileStore::write(const QString &path, const QByteArray &bytes)
{
    const QString target = absolute(path);
    makeFolder(QFileInfo(target).path());
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly | QIODevice::Unbuffered))
        throw FileError(QStringLiteral("cannot create %1: %2").arg(target, file.errorString()));
    madeFiles.append(target);
    // A full disk takes a part first; only the next attempt tells why no more was taken.
    for (qint64 done = 0; done < bytes.size();) {
        const qint64 taken = file.write(bytes.constData() + done, bytes.size() - done);
        if (taken <= 0)
            throw FileError(QStringLiteral("cannot write %1: %2").arg(target, file.errorString()));
        done += taken;
    }
    ++fileCount;
    byteCount += bytes.size();
}

void FileStore::expect(const QString &path)
{
    const QFileInfo target(absolute(path));
    if (target.exists() || target.isSymLink())
        throw FileError(QStringLiteral("cannot create %1: it exists already").arg(target.filePath()));
    makeFolder(target.path());
    madeFiles.append(target.filePath());
}

void FileStore::count(const QString &path)
{
    ++fileCount;
    byteCount += QFileInfo(absolute(path)).size();
}

bool FileStore::removeAll()
{
    for (const QString &file : madeFiles)
        QFile::remove(file);
    std::for_each(madeFolders.crbegin(), madeFolders.crend(), [](const QString &made) { QDir().rmdir(made); });
    const auto isLeft = [](const QString &path) { return QFileInfo::exists(path); };
    return std::none_of(madeFiles.cbegin(), madeFiles.cend(), isLeft) &&
           std::none_of(madeFolders.cbegin(), madeFolders.cend(), isLeft);
}

} // namespace sample
