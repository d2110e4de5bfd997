#ifndef EXPORTER_RECORD_H
#define EXPORTER_RECORD_H

#include "exporter/destination.h"
#include "exporter/outcome.h"
#include "exporter/sql.h"

#include <QTemporaryDir>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace exporter
{

/// One exported file, as the record knows it.
struct StoredFile {
    qint64 id = 0;
    qint64 set = 0;
    Role role = Role::Original;
    QString devicePath;
    qint64 size = 0;                ///< bytes
    QByteArray sha256;              ///< 32 bytes
    std::optional<qint64> modified; ///< the photo's modification date, milliseconds since 1970 UTC
    QString path;                   ///< below the destination
    qint64 mtimeNs = 0;             ///< of the exported file
    QByteArray uuid;                ///< of the photo
};

/// The files of one photo that were exported together under one name.
struct StoredSet {
    qint64 id = 0;
    QString stemPath; ///< folders and stem below the destination
    std::vector<StoredFile> files;
};

/// One exported file of a set that a newer one of the same photo has replaced.
struct EarlierFile {
    qint64 id = 0;
    qint64 set = 0;
    QString path;     ///< below the destination
    QString stemPath; ///< of its set
};

struct StoredAlbum {
    qint64 id = 0;
    QString folder; ///< below the destination
    QString title;
};

/// A link (or copy) in an album folder.
struct StoredEntry {
    qint64 id = 0;
    qint64 album = 0;
    qint64 file = 0; ///< what it shows
    QString path;
    qint64 size = 0;
    qint64 mtimeNs = 0;
    bool done = false;
};

enum class RecordUse {
    Keep,     ///< the record in the destination is read and written; it is made when there is none
    Imagine,  ///< a private copy, or a new private one, that goes away again
    ReadOnly, ///< a private copy; ends the run when there is no record
};

/// What was exported to where: the file ".photolib-export.sqlite" in the destination.
///
/// A row with state 'intent' is written before a file gets its name, and becomes 'done' after it. So after a kill every
/// file in the destination under a name that the exporter gave is known. Writes survive a kill at once, a failure of
/// the computer with some delay: the file is then met again without a row, has the same content, and is adopted.
///
/// Functions throw RunEnded. One thread at a time. Changes of more than one row are for the caller to put into a
/// Transaction.
class Record
{
public:
    Record(Destination &destination, RecordUse use);
    ~Record();

    static QString fileName() { return QStringLiteral(".photolib-export.sqlite"); }

    Sql &connection() { return *sql; }

    // Files.

    /// The set of a photo that was exported last.
    std::optional<StoredSet> latestSet(const QString &photoKey);

    /// The files of the sets of a photo that are older than `set`.
    std::vector<EarlierFile> earlierFiles(const QString &photoKey, qint64 set);

    /// Whether a set has this name, whatever the case of its letters.
    bool isStemTaken(const QString &stemPath);
    bool isPathTaken(const QString &path);

    qint64 addSet(const QString &photoKey, const QString &stemPath);
    /// With state 'intent'. The answer is the new id.
    qint64 addFile(const StoredFile &file);
    void finishFile(qint64 file, qint64 mtimeNs);
    /// After the device told something new of an unchanged file, or the exported file's time was changed.
    void refreshFile(const StoredFile &file);
    void removeFile(qint64 file);
    /// When it has no files.
    void removeEmptySet(qint64 set);
    void removeSet(qint64 set);

    std::vector<StoredFile> intents();
    /// All files with state 'done', in the order of their export, a part at a time: those behind `lastId`.
    std::vector<StoredFile> filesAfter(qint64 lastId, int limit);
    std::optional<StoredFile> file(qint64 id);

    // Albums.

    std::optional<StoredAlbum> album(const QString &albumKey);
    std::vector<StoredAlbum> albums();
    bool isAlbumFolderTaken(const QString &folder);
    qint64 addAlbum(const QString &albumKey, const QString &title, const QString &folder);
    void moveAlbum(qint64 album, const QString &title, const QString &folder);
    void removeAlbum(qint64 album);

    std::vector<StoredEntry> entries(qint64 album);
    std::vector<StoredEntry> entriesAfter(qint64 lastId, int limit);
    qint64 addEntry(const StoredEntry &entry);
    void finishEntry(const StoredEntry &entry);
    /// Back to state 'intent', before its link goes.
    void reopenEntry(qint64 entry);
    void removeEntry(qint64 entry);
    bool isEntryPathTaken(const QString &path);

private:
    struct Statements;

    void openKept(Destination &destination);
    void openCopy(Destination &destination, bool exists);
    void check();

    std::unique_ptr<QTemporaryDir> privateFolder;
    std::unique_ptr<Sql> sql;
    std::unique_ptr<Statements> statements;
};

} // namespace exporter

#endif
