#include "testing/library_file.h"

#include <QFile>

namespace testkit
{

namespace
{

void removeFiles(const QString &path)
{
    for (const char *suffix : {"", "-wal", "-shm", "-journal"}) {
        QFile file(path + QLatin1String(suffix));
        if (file.exists() && !file.remove())
            throw LibraryError(file.errorString().toStdString() + ": " + file.fileName().toStdString());
    }
}

// The rollback journal and the flushes would only cost time: an interrupted file is written again.
void copyUnjournalled(SqlConnection &source, SqlConnection &file)
{
    file.exec(QStringLiteral("PRAGMA synchronous = OFF; PRAGMA journal_mode = OFF"));
    source.copyTo(file);
    file.exec(QStringLiteral("PRAGMA journal_mode = WAL"));
}

} // namespace

void writeCheckpointed(SqlConnection &content, const QString &path)
{
    removeFiles(path);
    SqlConnection file(path);
    copyUnjournalled(content, file);
}

void writeWithWal(SqlConnection &base, SqlConnection &content, const QString &path)
{
    removeFiles(path);
    SqlConnection file(path);
    copyUnjournalled(base, file);
    file.exec(QStringLiteral("PRAGMA wal_checkpoint(TRUNCATE); PRAGMA wal_autocheckpoint = 0"));
    file.keepWalOnClose();
    content.copyTo(file);
}

} // namespace testkit
