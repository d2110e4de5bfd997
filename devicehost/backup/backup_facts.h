#ifndef DEVICEHOST_BACKUP_BACKUP_FACTS_H
#define DEVICEHOST_BACKUP_BACKUP_FACTS_H

#include "devicehost/vdev/path_tree.h"

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace devicehost
{

/// What a backup says of itself. A plain value.
struct BackupFacts {
    bool encrypted = false;
    QByteArray keyBag;      ///< as it stands; empty unless encrypted
    QByteArray manifestKey; ///< the wrapped key of Manifest.db; empty when that one is not encrypted

    QString deviceName;     ///< empty when not known, like the others
    QString productType;    ///< such as "iPhone10,4"
    QString productVersion; ///< such as "16.3"
    QString identifier;     ///< of the device
    QDateTime lastBackup;
    bool finished = true; ///< false when the backup was interrupted

    /// Reads the property lists of the backup in `tree`. False, with `*error` filled, when Manifest.plist cannot be
    /// used; the others may be missing or damaged.
    bool read(const PathTree &tree, VError *error);

    /// One line for people: "Anna's phone, iPhone10,4, iOS 16.3, 2023-04-01 18:30 UTC, encrypted".
    QString description() const;

private:
    void readInfo(const PathTree &tree);
};

} // namespace devicehost

#endif
