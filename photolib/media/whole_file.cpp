#include "photolib/media/whole_file.h"

#include "photolib/host/handles.h"

namespace photolib
{

bool readWholeFile(VFile *file, QByteArray *out)
{
    vFileSeek(file, 0, fromEnd);
    const qint64 size = vFileTell(file);
    if (size < 0 || size > largestByteArray)
        return false;
    QByteArray content(static_cast<int>(size), Qt::Uninitialized);
    vFileSeek(file, 0, fromStart);
    if (vFileRead(file, content.data(), content.size()) != content.size())
        return false;
    *out = content;
    return true;
}

} // namespace photolib
