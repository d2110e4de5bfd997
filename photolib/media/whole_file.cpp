#include "photolib/media/whole_file.h"

#include "photolib/host/handles.h"

#include <limits>

namespace photolib
{

namespace
{

// QByteArray counts its own header and the byte behind its end with the same 32 bits.
constexpr qint64 largestByteArray = std::numeric_limits<int>::max() - static_cast<qint64>(sizeof(QArrayData)) - 1;

} // namespace

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
