#ifndef TESTING_OPERATION_H
#define TESTING_OPERATION_H

#include "photolib/host/vdev.h"

#include <QByteArray>
#include <QFlags>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace testkit
{

/// What the library can ask of its host.
enum class OperationKind : unsigned {
    OpenDevice = 1U << 0U,
    CloseDevice = 1U << 1U,
    CreateFolder = 1U << 2U,
    OpenFile = 1U << 3U,
    CloseFile = 1U << 4U,
    Read = 1U << 5U,
    Write = 1U << 6U,
    Seek = 1U << 7U,
    Tell = 1U << 8U,
    OpenSqlite = 1U << 9U,
    PrepareSqlite = 1U << 10U,
    CloseSqlite = 1U << 11U, ///< the library's own sqlite3_close(), noticed from inside the connection
    ShouldStop = 1U << 12U,
    DevicePath = 1U << 13U,
    IsAvailable = 1U << 14U,
    LocalDataFolder = 1U << 15U,
};
Q_DECLARE_FLAGS(OperationKinds, OperationKind)
Q_DECLARE_OPERATORS_FOR_FLAGS(OperationKinds)

/// vDevOpen() to vFileTell().
inline constexpr OperationKinds fileOperations =
    OperationKind::OpenDevice | OperationKind::CloseDevice | OperationKind::CreateFolder | OperationKind::OpenFile |
    OperationKind::CloseFile | OperationKind::Read | OperationKind::Write | OperationKind::Seek | OperationKind::Tell;

inline constexpr OperationKinds sqlOperations =
    OperationKind::OpenSqlite | OperationKind::PrepareSqlite | OperationKind::CloseSqlite;

/// The calls on the device object itself.
inline constexpr OperationKinds deviceCalls =
    OperationKind::ShouldStop | OperationKind::DevicePath | OperationKind::IsAvailable | OperationKind::LocalDataFolder;

inline constexpr OperationKinds allOperations = fileOperations | sqlOperations | deviceCalls;

/// What can be made to fail: everything with an answer that can tell of a failure.
inline constexpr OperationKinds faultableOperations = OperationKind::OpenDevice | OperationKind::CreateFolder |
                                                      OperationKind::OpenFile | OperationKind::Read |
                                                      OperationKind::Write | OperationKind::Seek | OperationKind::Tell |
                                                      OperationKind::OpenSqlite | OperationKind::PrepareSqlite;

/// One call of the library on its host. Which fields count depends on the kind; the others keep their defaults.
struct Operation {
    OperationKind kind = OperationKind::OpenDevice;
    VDevType fileSystem = VDevLocal; ///< of every file operation: which side it works on
    int device = 0;                  ///< number of the device handle (the 1 of "dev1"); 0 is the null handle
    int file = 0;                    ///< number of the file handle
    QByteArray path;                 ///< path, device name or SQL text, exactly as it was passed
    QByteArray shownPath;            ///< the same for text(): the temporary folder replaced by "<local>"
    int mode = 0;
    int size = 0;      ///< bytes to read or write; of PrepareSqlite the length argument
    qint64 offset = 0; ///< of Seek
    int origin = 0;    ///< of Seek
    void *destination = nullptr;
    const void *source = nullptr;
    sqlite3 *connection = nullptr;        ///< of PrepareSqlite
    sqlite3 **openedConnection = nullptr; ///< of OpenSqlite: where the answer goes
    sqlite3_stmt **statement = nullptr;   ///< of PrepareSqlite: where the answer goes
    const char **tail = nullptr;          ///< of PrepareSqlite; may be null

    /// The answer: for opens the number of the new handle or 0; for Read, Write, Seek, Tell and CreateFolder what the
    /// host answers; for SQL the SQLite result code; for ShouldStop and IsAvailable 0 or 1.
    qint64 result = 0;

    /// One line such as `vFileRead file1 4194304 = 12288`. Bytes that are not UTF-8 are shown as \xE4.
    QString text() const;

    /// Makes the operation fail without doing it: sets `result` to what a host answers on failure.
    void fail();
};

/// `bytes` as text: valid UTF-8 as it is, every other byte as \xE4.
QString readableText(const QByteArray &bytes);

} // namespace testkit

#endif
