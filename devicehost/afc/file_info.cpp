#include "devicehost/afc/file_info.h"

#include <QList>

#include <algorithm>

namespace devicehost::afc
{

namespace
{

FileInfo::Type typeOf(const QByteArray &name)
{
    if (name == "S_IFREG")
        return FileInfo::Type::File;
    if (name == "S_IFDIR")
        return FileInfo::Type::Folder;
    return name == "S_IFLNK" ? FileInfo::Type::Link : FileInfo::Type::Other;
}

/// toLongLong() alone also takes signs and spaces.
bool readSize(const QByteArray &text, qint64 *size)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    bool ok = false;
    *size = text.toLongLong(&ok);
    return ok && std::all_of(text.begin(), text.end(), isDigit);
}

} // namespace

bool readFileInfo(const QByteArray &reply, FileInfo *info)
{
    if (!reply.endsWith('\0'))
        return false;
    const QList<QByteArray> texts = reply.left(reply.size() - 1).split('\0');
    if (texts.size() % 2 != 0)
        return false;
    bool hasType = false;
    bool hasSize = false;
    for (int i = 0; i < texts.size(); i += 2) {
        const QByteArray &value = texts[i + 1];
        if (texts[i] == "st_ifmt") {
            info->type = typeOf(value);
            hasType = true;
        } else if (texts[i] == "st_size") {
            hasSize = readSize(value, &info->size);
        } else if (texts[i] == "st_mtime") {
            info->modified = value;
        }
    }
    return hasType && hasSize;
}

} // namespace devicehost::afc
