#ifndef DEVICEHOST_BACKUP_FILE_RECORD_H
#define DEVICEHOST_BACKUP_FILE_RECORD_H

#include <QByteArray>

#include <cstdint>
#include <optional>

namespace devicehost
{

/// What a backup's manifest notes of one file.
struct FileRecord {
    qint64 size = 0; ///< bytes of the file on the device, not negative
    std::uint32_t protectionClass = 0;
    QByteArray wrappedKey; ///< class and wrapped key; empty when the file is not encrypted

    /// From a keyed archive, a binary property list. Nothing when it is damaged or has no size.
    static std::optional<FileRecord> parse(const QByteArray &archive);
};

} // namespace devicehost

#endif
