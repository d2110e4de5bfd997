#ifndef APPS_CLI_SAMPLE_FILE_STORE_H
#define APPS_CLI_SAMPLE_FILE_STORE_H

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <stdexcept>

namespace sample
{

/// A sentence that tells what happened to which file.
class FileError : public std::runtime_error
{
public:
    explicit FileError(const QString &message) : std::runtime_error(message.toUtf8().constData()) {}
};

/// Writes new files below one folder, counts them, and can take all of them back. Paths are relative to that folder,
/// which need not exist yet. One thread at a time.
class FileStore
{
public:
    explicit FileStore(const QString &root) : folder(root) {}

    /// Makes the folders on the way. Throws FileError, also when there is such a file already.
    void write(const QString &path, const QByteArray &bytes);

    /// Announces a file that something else is about to make: removeAll() will remove it, too. Makes the folders on the
    /// way. Throws FileError, also when there is such a file already.
    void expect(const QString &path);

    /// Counts a file that was announced and has been written by now.
    void count(const QString &path);

    /// Removes all files that were written or announced, and the folders that were made for them; whatever else is in
    /// these stays, and they with it. Answers whether nothing was left.
    bool removeAll();

    QString absolute(const QString &path) const { return folder + QLatin1Char('/') + path; }

    int files() const { return fileCount; }
    qint64 bytes() const { return byteCount; }

private:
    void makeFolder(const QString &path);

    QString folder;
    QStringList madeFiles;   ///< absolute
    QStringList madeFolders; ///< absolute, each after the one that it is in
    int fileCount = 0;
    qint64 byteCount = 0;
};

} // namespace sample

#endif
