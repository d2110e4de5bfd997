#ifndef TESTING_LIBRARY_FILE_H
#define TESTING_LIBRARY_FILE_H

#include "testing/sql_connection.h"

#include <QByteArray>
#include <QString>

namespace testkit
{

/// How a device leaves a finished library on its disk.
enum class WalMode {
    None,        ///< everything is in the database file, whose header says WAL; no file beside it
    WithContent, ///< the last changes are in a "-wal" file only, with its "-shm" beside it
};

/// The three files as bytes; `wal` and `shm` are empty for WalMode::None.
struct LibraryBytes {
    QByteArray database;
    QByteArray wal;
    QByteArray shm;
};

/// Writes `content` to `path`, replacing what is there. Throws LibraryError.
void writeCheckpointed(SqlConnection &content, const QString &path);

/// Writes `base` to `path`, and the pages of `content` to "path-wal" without a checkpoint. Throws LibraryError.
void writeWithWal(SqlConnection &base, SqlConnection &content, const QString &path);

} // namespace testkit

#endif
