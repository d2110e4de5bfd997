#ifndef TESTING_BACKUP_BUILDER_H
#define TESTING_BACKUP_BUILDER_H

#include "testing/backup_key_bag.h"

#include <QByteArray>
#include <QHash>
#include <QString>

#include <cstdint>
#include <vector>

namespace testkit
{

struct BackupOptions {
    QByteArray password; ///< empty: the backup is not encrypted
    BackupRounds rounds; ///< of key derivation, few by default, so that tests are fast
    QString deviceName = QStringLiteral("Anna's phone");
    QByteArray snapshotState = "finished"; ///< in Status.plist
    int pageSize = 4096;                   ///< of Manifest.db
};

/// Makes the unpacked computer backup of a device in a folder: plain or encrypted, as a device would have had it made.
/// Errors end the program. One thread at a time.
class BackupBuilder
{
public:
    /// `folder` is made when it is not there.
    explicit BackupBuilder(const QString &folder, const BackupOptions &options = {});

    /// A file by its path on the device, such as "/DCIM/100APPLE/IMG_0001.JPG". A second one of a name replaces it.
    void addFile(const QByteArray &path, const QByteArray &content);
    void addFolder(const QByteArray &path);
    void addLink(const QByteArray &path);

    /// Everything that lies in a folder of this computer, as the device's media root.
    void addTree(const QString &deviceFolder);

    /// Writes Manifest.db, Manifest.plist, Info.plist and Status.plist. More can be added and written again.
    void write();

    /// Where a file of the device lies, "ab/ab01...", below the backup's folder.
    static QString storedName(const QByteArray &path);

    const QString &path() const { return folder; }

    /// What the last write() put into Manifest.db before it was encrypted.
    const QByteArray &plainManifest() const { return manifest; }

private:
    struct Entry {
        QByteArray path;
        int flags;
        QByteArray record;
    };

    void put(const QString &name, const QByteArray &content) const;
    void add(Entry entry);
    QByteArray manifestDatabase() const;

    QString folder;
    BackupOptions options;
    BackupKeyBag keys;
    QHash<QByteArray, int> places;
    std::vector<Entry> entries;
    QByteArray manifest;
};

} // namespace testkit

#endif
