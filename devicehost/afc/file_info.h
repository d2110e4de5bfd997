#ifndef DEVICEHOST_AFC_FILE_INFO_H
#define DEVICEHOST_AFC_FILE_INFO_H

#include <QByteArray>
#include <QtGlobal>

namespace devicehost::afc
{

/// What a device tells of a name.
struct FileInfo {
    enum class Type { File, Folder, Link, Other };

    Type type = Type::Other;
    qint64 size = 0;     ///< bytes
    QByteArray modified; ///< the time of the last change, as the device wrote it; empty when it did not
};

/// Reads keys and values, each with a zero behind it. False when something else stands there, or when type or size are
/// missing or no sense can be made of them.
bool readFileInfo(const QByteArray &reply, FileInfo *info);

} // namespace devicehost::afc

#endif
