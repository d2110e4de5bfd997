#ifndef TESTING_BACKUP_PLISTS_H
#define TESTING_BACKUP_PLISTS_H

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace testkit
{

/// What the manifest of a backup notes of one file: a keyed archive. `wrappedKey` is empty for none.
QByteArray fileRecordPlist(qint64 size, std::uint32_t protectionClass, const QByteArray &wrappedKey);

/// Manifest.plist, binary; `keyBag` is empty for a backup that is not encrypted.
QByteArray manifestPlist(const QByteArray &keyBag, const QByteArray &manifestKey);

/// Info.plist, XML: the phone's name, "iPhone10,4", iOS 16.3, backed up on 2023-04-01 at 18:30 UTC.
QByteArray infoPlist(const QString &deviceName);

/// Status.plist, binary.
QByteArray statusPlist(const QByteArray &snapshotState);

} // namespace testkit

#endif
