#include "devicehost/backup/manifest.h"

#include "devicehost/database_errors.h"
#include "devicehost/sql_connection.h"
#include "devicehost/sql_limits.h"
#include "devicehost/sql_schema.h"

#include <sqlite3.h>

#include <cerrno>
#include <cstring>
#include <vector>

namespace devicehost
{

namespace
{

constexpr const char *entriesSql =
    "SELECT rowid, fileID, relativePath, flags FROM Files WHERE domain = 'CameraRollDomain'";
constexpr const char *recordSql = "SELECT file FROM Files WHERE rowid = ?";

/// The device's media root within the domain.
constexpr char mediaRoot[] = "Media/";
constexpr int mediaRootLength = sizeof mediaRoot - 1;

/// Of one entry's notes: some hundred bytes, and the extended attributes of the file.
constexpr int largestRecord = 1 << 20;

constexpr std::size_t largestPage = 65536;

/// For one look at one record. The tree of a sound table is a few pages deep.
constexpr Allowance recordAllowance = {100'000, 4LL << 20, 2LL * largestRecord};

/// Which of 40 lower-case hexadecimal digits, exactly, the bytes are made.
bool readId(const QByteArray &digits, std::array<unsigned char, 20> *id)
{
    constexpr char alphabet[] = "0123456789abcdef";
    if (digits.size() != 40)
        return false;
    for (std::size_t i = 0; i < id->size(); ++i) {
        unsigned value = 0;
        for (std::size_t half = 0; half < 2; ++half) {
            const char digit = digits[static_cast<int>(2 * i + half)];
            const char *const place = digit == '\0' ? nullptr : std::strchr(alphabet, digit);
            if (place == nullptr)
                return false;
            value = value << 4 | static_cast<unsigned>(place - alphabet);
        }
        (*id)[i] = static_cast<unsigned char>(value);
    }
    return true;
}

QByteArray textOf(sqlite3_stmt *row, int column)
{
    if (sqlite3_column_type(row, column) != SQLITE_TEXT)
        return {};
    const auto *const text = reinterpret_cast<const char *>(sqlite3_column_text(row, column));
    return QByteArray(text, sqlite3_column_bytes(row, column));
}

Manifest::Kind kindOf(sqlite3_int64 flags)
{
    switch (flags) {
    case 1:
        return Manifest::Kind::File;
    case 2:
        return Manifest::Kind::Folder;
    case 4:
        return Manifest::Kind::Link;
    default:
        return Manifest::Kind::Other;
    }
}

/// As the header of the database tells it; 0 when it is damaged.
std::size_t pageSizeOf(const SecretBytes &database)
{
    const std::size_t size = static_cast<std::size_t>(database.data()[16]) << 8 | database.data()[17];
    if (size == 1)
        return largestPage;
    return size >= 512 && (size & (size - 1)) == 0 ? size : 0;
}

VError manifestError(int code)
{
    return {EBADMSG, QStringLiteral("the backup's Manifest.db is damaged (%1)").arg(databaseErrorText(code))};
}

} // namespace

std::unique_ptr<Manifest> Manifest::open(SecretBytes bytes, VError *error)
{
    constexpr std::size_t headerBytes = 100;
    constexpr char magic[] = "SQLite format 3";
    if (bytes.size() < headerBytes || std::memcmp(bytes.data(), magic, sizeof magic) != 0) {
        *error = manifestError(SQLITE_NOTADB);
        return nullptr;
    }
    const std::size_t page = pageSizeOf(bytes);
    if (page == 0) {
        *error = manifestError(SQLITE_CORRUPT);
        return nullptr;
    }
    bytes.truncate(bytes.size() / page * page); // what encryption padded it with
    // A database whose changes go through a log cannot lie in memory; without the log it is like any other.
    for (const std::size_t place : {18U, 19U})
        if (bytes.data()[place] == 2)
            bytes.data()[place] = 1;
    std::unique_ptr<Manifest> manifest(new Manifest(std::move(bytes)));
    manifest->pageBytes = static_cast<qint64>(page);
    int result = manifest->attach();
    if (result == SQLITE_OK)
        result = manifest->readEntries();
    if (result == SQLITE_OK)
        return manifest;
    *error = manifestError(result);
    return nullptr;
}

Manifest::~Manifest()
{
    sqlite3_finalize(recordStatement);
    sqlite3_close(db);
}

int Manifest::attach()
{
    int result = sqlite3_open_v2(":memory:", &db, SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr);
    const auto size = static_cast<sqlite3_int64>(database.size());
    if (result == SQLITE_OK)
        result = sqlite3_deserialize(db, "main", database.data(), size, size, SQLITE_DESERIALIZE_READONLY);
    if (result == SQLITE_OK)
        result = harden(db);
    if (result == SQLITE_OK)
        result = disarmSchema(db);
    if (result != SQLITE_OK)
        return result;
    connection = SqlConnection::attach(db, nullptr, QString(), &result);
    if (connection == nullptr)
        return result;
    connection->meter.allow(schemaAllowance, pageBytes);
    result = sqlite3_exec(db, "SELECT count(*) FROM sqlite_master", nullptr, nullptr, nullptr);
    if (result != SQLITE_OK)
        return result;
    connection->meter.allow(readingAllowance(size), pageBytes);
    allowStatements(db);
    std::vector<QByteArray> computedTables;
    result = inspectSchema(db, &computedTables);
    connection->open(std::move(computedTables));
    return result;
}

int Manifest::readEntries()
{
    sqlite3_stmt *rows = nullptr;
    int result = sqlite3_prepare_v2(db, entriesSql, -1, &rows, nullptr);
    const std::unique_ptr<sqlite3_stmt, int (*)(sqlite3_stmt *)> owner(rows, &sqlite3_finalize);
    while (result == SQLITE_OK || result == SQLITE_ROW) {
        result = sqlite3_step(rows);
        if (result == SQLITE_ROW)
            take(rows);
    }
    if (result != SQLITE_DONE)
        return result;
    return sqlite3_prepare_v3(db, recordSql, -1, SQLITE_PREPARE_PERSISTENT, &recordStatement, nullptr);
}

void Manifest::take(sqlite3_stmt *row)
{
    const QByteArray path = textOf(row, 2);
    Entry entry;
    entry.row = sqlite3_column_int64(row, 0);
    entry.kind = kindOf(sqlite3_column_int64(row, 3));
    if (!path.startsWith(mediaRoot) || !readId(textOf(row, 1), &entry.id))
        return;
    const QByteArray name = path.mid(mediaRootLength);
    if (!entries.contains(name)) // a second one is no device's work
        entries.insert(name, entry);
}

const Manifest::Entry *Manifest::find(const QByteArray &path) const
{
    const auto found = entries.constFind(path);
    return found == entries.constEnd() ? nullptr : &*found;
}

std::optional<FileRecord> Manifest::record(const Entry &entry) const
{
    const std::lock_guard<std::mutex> lock(mutex);
    connection->meter.allow(recordAllowance, pageBytes);
    QByteArray archive;
    sqlite3_bind_int64(recordStatement, 1, entry.row);
    if (sqlite3_step(recordStatement) == SQLITE_ROW && sqlite3_column_type(recordStatement, 0) == SQLITE_BLOB) {
        const void *const blob = sqlite3_column_blob(recordStatement, 0);
        const int size = sqlite3_column_bytes(recordStatement, 0);
        if (blob != nullptr && size <= largestRecord)
            archive = QByteArray(static_cast<const char *>(blob), size);
    }
    sqlite3_reset(recordStatement);
    return FileRecord::parse(archive);
}

} // namespace devicehost
