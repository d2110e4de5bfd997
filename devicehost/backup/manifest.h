#ifndef DEVICEHOST_BACKUP_MANIFEST_H
#define DEVICEHOST_BACKUP_MANIFEST_H

#include "devicehost/backup/file_record.h"
#include "devicehost/backup/secret_bytes.h"
#include "devicehost/vdev/verror.h"

#include <QByteArray>
#include <QHash>

#include <array>
#include <memory>
#include <mutex>

struct sqlite3;
struct sqlite3_stmt;

namespace devicehost
{

class SqlConnection;

/// Bytes of a backup's manifest, which is held in memory. That of 200,000 files takes some 100 MB.
constexpr qint64 largestManifest = 1LL << 30;

/// The list of a backup's media files, from the database that every backup has. It may be hostile: what reading costs
/// is counted, as for the photo library (sql_limits.h).
///
/// Several threads may use one object at once.
class Manifest
{
public:
    enum class Kind : std::uint8_t { File, Folder, Link, Other };

    /// What a name stands for.
    struct Entry {
        qint64 row = 0;
        std::array<unsigned char, 20> id{}; ///< the name of the file in the backup, in bytes
        Kind kind = Kind::Other;
    };

    /// `database` is what the file holds, decrypted. Null, with `*error` filled, when it is no manifest that can be
    /// read to its end.
    static std::unique_ptr<Manifest> open(SecretBytes database, VError *error);

    Manifest(const Manifest &) = delete;
    Manifest &operator=(const Manifest &) = delete;
    ~Manifest();

    /// By the path below the device's media root, without a slash in front: "DCIM/100APPLE/IMG_0001.JPG". Null when the
    /// backup knows nothing of that name.
    const Entry *find(const QByteArray &path) const;

    int entryCount() const { return entries.size(); }

    /// What is noted of an entry. Nothing when it is damaged.
    std::optional<FileRecord> record(const Entry &entry) const;

private:
    explicit Manifest(SecretBytes bytes) : database(std::move(bytes)) {}
    int attach();
    int readEntries();
    void take(sqlite3_stmt *row);

    SecretBytes database; ///< the memory that SQLite reads
    sqlite3 *db = nullptr;
    sqlite3_stmt *recordStatement = nullptr;
    SqlConnection *connection = nullptr; ///< SQLite's
    qint64 pageBytes = 0;
    mutable std::mutex mutex; ///< guards the connection and its statement
    QHash<QByteArray, Entry> entries;
};

} // namespace devicehost

#endif
