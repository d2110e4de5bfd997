#ifndef DEVICEHOST_BACKUP_BACKUP_H
#define DEVICEHOST_BACKUP_BACKUP_H

#include "devicehost/backup/backup_facts.h"
#include "devicehost/backup/key_bag.h"
#include "devicehost/backup/manifest.h"
#include "devicehost/vdev/backend.h"
#include "devicehost/vdev/path_tree.h"

#include <memory>
#include <optional>

namespace devicehost
{

/// An unpacked computer backup of a device, opened: its manifest is in memory, its keys are unlocked. Nothing is ever
/// written to it. Several threads may use one object at once.
class Backup
{
public:
    /// Opens the backup in the folder `root`. `password` is null for none. Null, with `*error` filled, on failure;
    /// ENOKEY stands for a password that is missing, EKEYREJECTED for a wrong one.
    static std::shared_ptr<Backup> open(const char *root, const QByteArray *password, VError *error);

    /// A file by its name on the device, such as "/DCIM/100APPLE/IMG_0001.JPG". Null, with `*error` filled, on failure;
    /// ENOENT when the backup holds no such file, ENODATA when it lists one and does not hold it, or a part only,
    /// EBADMSG when it holds more than it lists. A plain file whose record is damaged is given as it is.
    std::unique_ptr<VFile> openFile(const char *path, VError *error) const;

    /// Whether the backup is still there, the one that was opened, and not being written.
    bool isCurrent(const char *root, VError *error) const;

    /// False when the backup was interrupted, so that some of its files may be missing.
    bool isFinished() const { return facts.finished; }

private:
    /// What makes one version of a file another.
    struct FileState {
        quint64 device = 0;
        quint64 node = 0;
        qint64 size = 0;
        qint64 seconds = 0;
        qint64 nanoseconds = 0;
        bool operator==(const FileState &other) const;
    };

    explicit Backup(PathTree folder) : tree(std::move(folder)) {}
    bool unlock(const QByteArray *password, VError *error);
    bool readManifest(VError *error);
    std::unique_ptr<VFile> openStored(const Manifest::Entry &entry, VError *error) const;
    static std::unique_ptr<VFile> openPlain(const QByteArray &name, UniqueFd file,
                                            const std::optional<FileRecord> &record, VError *error);
    std::unique_ptr<VFile> openEncrypted(const QByteArray &name, UniqueFd file, const FileRecord &record,
                                         VError *error) const;
    static bool isAtRest(const PathTree &tree, VError *error);
    static std::optional<FileState> manifestState(const PathTree &tree, VError *error);

    PathTree tree;
    BackupFacts facts;
    std::optional<KeyBag> keys; ///< unlocked; nothing when the backup is not encrypted
    FileState stateAtOpening;
    std::unique_ptr<Manifest> manifest;
};

} // namespace devicehost

#endif
